// The hand of a person at the phone: the same deeds by keys, by clicks or by touch.
#ifndef TESTS_PHONE_HAND_H
#define TESTS_PHONE_HAND_H

#include <functional>

#include "tour/person.h"

enum class Way { Keys, Clicks, Touch };

const char* nameOf(Way way);

class Hand
{
public:
    Hand(phone::Person& person, Way way) : m_person(person), m_way(way) {}

    // Presses a soft key, 0 left and 1 right, of what has the input.
    void softKey(int button);
    // Opens the menu of a soft key and chooses an item by its text.
    void menu(int button, const QString& item);
    // Chooses a card of the page, or a row of the dialog, by the text of its row.
    void row(const QString& text);
    // Puts the cursor on a card without choosing it.
    void point(const QString& text);

private:
    void tap(const std::function<QPoint()>& place);

    phone::Person& m_person;
    Way m_way;
};

// Taps a place of the screen as a finger or a mouse does.
void tapScreen(Way way, const QPoint& place);

#endif
