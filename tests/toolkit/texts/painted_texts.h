// What a widget really writes on the screen: each piece of text with its place and with what of it
// is cut off.
#ifndef TESTS_TOOLKIT_PAINTED_TEXTS_H
#define TESTS_TOOLKIT_PAINTED_TEXTS_H

#include <vector>

#include <QRect>
#include <QString>

class QWidget;

struct PaintedText
{
    QString text;
    QRect place; // of the letters that are seen, in the painted widget
    bool cut;    // some of them are not seen, or not whole
};

class PaintedTexts
{
public:
    // Paints `widget` with all that lies in it.
    explicit PaintedTexts(QWidget& widget);

    // What is painted in `place`, line after line without blanks.
    QString in(const QRect& place) const;
    // The first text in `place` that is cut off, or ends in dots for want of room, else "".
    QString cutIn(const QRect& place) const;

private:
    std::vector<PaintedText> m_texts;
};

// A text without its blanks: lines are broken at them.
QString withoutBlanks(const QString& text);

#endif
