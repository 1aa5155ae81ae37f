// The font of list rows, and how wide a text is in it.
#ifndef YROWFONT_H
#define YROWFONT_H

#include <array>

#include <QFont>
#include <QFontMetrics>
#include <QString>

class YRowFont
{
public:
    explicit YRowFont(bool strong);

    // False once the theme is another one, whose letters may be larger.
    bool isCurrent() const;
    const QFont& font() const { return m_face; }
    const QFontMetrics& metrics() const { return m_measure; }

    // Whether the text fits `width` pixels in one line. Adding up the letters' widths answers it
    // for nearly every text, ten times quicker than laying the text out, which counts with ten
    // thousand rows.
    bool fits(const QString& text, int width) const;
    // The height of the text, wrapped at `width`.
    int wrappedHeight(const QString& text, int width) const;

private:
    int m_generation; // of the theme
    QFont m_face;
    QFontMetrics m_measure;
    std::array<int, 128> m_advances; // of the letters of ASCII
};

#endif
