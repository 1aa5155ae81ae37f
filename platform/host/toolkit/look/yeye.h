// The eye at the end of a password's box.
#ifndef YEYE_H
#define YEYE_H

#include <QRect>

class QKeyEvent;
class QPainter;

// An open eye shows the password, a crossed one hides it.
struct YEye
{
    bool isOpen = false;
    bool hasCursor = false; // the keys have gone on to it from the text

    // What a key does. `behindText`: the text's cursor stands at its end.
    struct Taken
    {
        bool key;     // it is the eye's and not the text's
        bool toggles; // the eye opens or closes
        bool stays;   // the cursor is on the eye afterwards
    };
    Taken take(const QKeyEvent& event, bool behindText) const;
    static bool isReturn(int key);

    static QRect placeIn(const QRect& box, Qt::LayoutDirection direction);
    void draw(QPainter& painter, const QRect& box) const;
};

#endif
