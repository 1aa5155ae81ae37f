#include "toolkit/look/yrowfont.h"

#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

QFont rowFont(bool strong)
{
    QFont font = YTheme::current().bodyFont();
    font.setBold(strong);
    return font;
}

} // namespace

YRowFont::YRowFont(bool strong)
    : m_generation(YTheme::generation()), m_face(rowFont(strong)), m_measure(m_face)
{
    for (std::size_t code = 0; code < m_advances.size(); ++code)
        m_advances[code] = m_measure.horizontalAdvance(QChar(static_cast<char16_t>(code)));
}

bool YRowFont::isCurrent() const
{
    return m_generation == YTheme::generation();
}

bool YRowFont::fits(const QString& text, int width) const
{
    int sum = 0;
    for (const QChar letter : text) {
        if (letter.unicode() >= m_advances.size())
            return m_measure.horizontalAdvance(text) < width;
        sum += m_advances[letter.unicode()];
    }
    // Kerning and rounding change the sum by less than a pixel a letter.
    return sum + text.size() <= width || m_measure.horizontalAdvance(text) < width;
}

int YRowFont::wrappedHeight(const QString& text, int width) const
{
    return YWrap::height(m_face, text, width);
}
