// How the rows of a form look: a label above a box.
#ifndef YROWLOOK_H
#define YROWLOOK_H

#include <QMargins>
#include <QRect>
#include <QString>

class QPainter;
class QWidget;

// One row's measures and drawing. All rows of a form share them, so that labels and boxes line up.
class YRowLook
{
public:
    struct State
    {
        bool enabled;
        bool focused;
        bool pressed;
    };

    // Whether a row keeps a distance to the edges of the form, or is a part of another row.
    void setCompact(bool compact);
    bool isCompact() const { return compact; }

    void setLabel(const QString& text);
    const QString& label() const { return text; }

    // A box for a text that one line has no room for is higher than the usual one.
    void setBoxHeight(int height);

    int heightForWidth(int width) const;
    // The box in a row of this size, and the room for text in it.
    QRect boxR(const QSize& row) const;
    QRect textR(const QSize& row) const;

    void drawLabel(QPainter& painter, const QSize& row, State state) const;
    void drawBox(QPainter& painter, const QSize& row, State state) const;

    // A short text at the right end of a part of the box.
    static int noteWidth(const QString& note);
    static void drawNote(QPainter& painter, const QRect& place, const QString& note);

    // Brings a row of a form whole into sight: it was scrolled away and is used now.
    static void reveal(QWidget* row);

    static int boxHeight();
    static constexpr int textMargin = 7;

private:
    int labelHeight(int width) const;
    QMargins margins() const;

    QString text;
    bool compact = false;
    int box = boxHeight();
    // What was measured of the label; forms ask for it again and again.
    mutable int lineWidth = -1;
    mutable int lineHeight = 0;
    mutable int measuredWidth = -1;
    mutable int measuredHeight = 0;
};

#endif
