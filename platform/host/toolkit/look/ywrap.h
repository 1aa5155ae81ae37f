// Texts in several lines.
#ifndef YWRAP_H
#define YWRAP_H

#include <QFont>
#include <QString>

class QLabel;
class QPainter;
class QRect;

// Lines are broken between words, and within a word only where it alone is too long for a line: a
// name without blanks is to be read to its end.
class YWrap
{
    // The side of the screen on which an alignment is.
    static Qt::Alignment sideOf(const QPainter& painter, Qt::Alignment alignment);

public:
    // The height of the text at a width.
    static int height(const QFont& font, const QString& text, int width);
    // Writes the text with the painter's font and pen.
    static void draw(QPainter& painter, const QRect& place, Qt::Alignment alignment,
                     const QString& text);

    // For QPainter::drawText(): a text from outside may be in another language than the rest. Its
    // letters run as they are read, and it stands on the side where the rest begins.
    static int flags(const QPainter& painter, Qt::Alignment alignment, const QString& text);

    // The same for a label's plain text; Qt's own label breaks no word.
    static int height(const QLabel& label, int width);
    static void draw(QLabel& label);
};

// Remembers the heights of one text: a form asks for them at each layout, with its scroll bar and
// without.
class YWrapHeight
{
public:
    int at(const QFont& font, const QString& text, int width);

private:
    QFont m_measuredFont;
    QString m_measuredText;
    int m_widths[2] = {-1, -1};
    int m_heights[2] = {0, 0};
    int m_oldest = 0;
};

#endif
