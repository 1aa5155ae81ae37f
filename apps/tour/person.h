// A person at the phone, who does one thing after the other and takes pictures of the screen.
#ifndef TOUR_PERSON_H
#define TOUR_PERSON_H

#include <functional>
#include <vector>

#include <QDir>
#include <QObject>
#include <QString>

class Person : public QObject
{
    Q_OBJECT

public:
    // Pictures go to this folder, numbered in the order in which they are taken.
    explicit Person(const QDir& folder);

    // The keys of the phone.
    void press(int key, int times = 1);
    void type(const QString& text);
    // Looks at a page, popup or dialog of this class, once it has the input; then takes a picture.
    void lookAt(const char* className, const QString& picture);
    // A picture of the same page or popup.
    void look(const QString& picture);

    // A picture at once. Result: whether it was written; the program ends with 1 when not.
    bool take(const QString& picture);

    // Does it all, one thing at a time, in whatever event loop runs. Says on standard error what
    // did not come within ten seconds, and ends the program with 1.
    void begin();

private slots:
    void act();

private:
    // Something to do; false as long as it cannot be done yet.
    struct Deed
    {
        QString what;
        std::function<bool()> tryIt;
    };

    void add(const QString& what, std::function<bool()> tryIt);

    QDir m_folder;
    std::vector<Deed> m_deeds;
    std::size_t m_next = 0;
    int m_taken = 0;
    int m_waited = 0;
};

#endif
