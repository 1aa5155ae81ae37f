#include "yrowfont.h"

#include <QTextLayout>

#include "ytheme.h"

namespace {

QFont rowFont(bool strong)
{
    QFont font = YTheme::bodyFont();
    font.setBold(strong);
    return font;
}

} // namespace

YRowFont::YRowFont(bool strong) : face(rowFont(strong)), measure(face)
{
    for (std::size_t code = 0; code < advances.size(); ++code)
        advances[code] = measure.horizontalAdvance(QChar(static_cast<char16_t>(code)));
}

bool YRowFont::fits(const QString& text, int width) const
{
    int sum = 0;
    for (const QChar letter : text) {
        if (letter.unicode() >= advances.size())
            return measure.horizontalAdvance(text) <= width;
        sum += advances[letter.unicode()];
    }
    // Kerning and rounding change the sum by less than a pixel a letter.
    if (sum + text.size() <= width)
        return true;
    return measure.horizontalAdvance(text) <= width;
}

int YRowFont::wrappedHeight(const QString& text, int width) const
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, face);
    layout.setTextOption(option);
    layout.beginLayout();
    double height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        height += line.height();
    }
    layout.endLayout();
    return static_cast<int>(height + 0.5);
}
