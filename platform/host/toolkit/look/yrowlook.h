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
    bool isCompact() const { return m_compact; }

    void setLabel(const QString& text);
    const QString& label() const { return m_text; }

    // A box for a text that one line has no room for is higher than the usual one.
    void setBoxHeight(int height);

    int heightForWidth(int width) const;
    // The box in a row of this size, and the room for text in it.
    QRect boxR(const QSize& row) const;
    QRect textR(const QSize& row) const;

    void drawLabel(QPainter& painter, const QSize& row, State state) const;
    void drawBox(QPainter& painter, const QSize& row, State state) const;

    // The ground of the row of a list or a menu that is chosen.
    static void drawSelection(QPainter& painter, const QRect& place);

    // A short text at the end of a part of the box.
    static int noteWidth(const QString& note);
    static void drawNote(QPainter& painter, const QRect& place, const QString& note);

    // Brings a row of a form whole into sight: it was scrolled away and is used now.
    static void reveal(QWidget* row);

    static int boxHeight();

private:
    int labelHeight(int width) const;
    int boxHeightNow() const;
    QMargins margins() const;

    QString m_text;
    bool m_compact = false;
    int m_box = 0; // at least the usual one
    // What was measured of the label; forms ask for it again and again.
    mutable int m_generation = -1; // of the theme
    mutable int m_lineWidth = -1;
    mutable int m_lineHeight = 0;
    mutable int m_measuredWidth = -1;
    mutable int m_measuredHeight = 0;
};

#endif
