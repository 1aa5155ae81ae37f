#include "toolkit/look/ytitle.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

// The text with its line broken between two words, or as it is where two lines do not do.
QString inTwoLines(const QString& text, const QFont& letters, int width)
{
    QTextLayout layout(text, letters);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int ends[2] = {};
    for (int& end : ends) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            return text;
        line.setLineWidth(width);
        end = line.textStart() + line.textLength();
    }
    layout.endLayout();
    return ends[1] < text.size() ? text : text.left(ends[0]) + '\n' + text.mid(ends[0]);
}

} // namespace

QFont YTitle::font(const QString& text, int width)
{
    QFont font = YTheme::current().titleFont();
    while (font.pixelSize() > YTheme::current().smallestTitle &&
           QFontMetrics(font).horizontalAdvance(text) > width)
        font.setPixelSize(font.pixelSize() - 1);
    return font;
}

bool YTitle::fitsOneLine(const QString& text, int width)
{
    return QFontMetrics(font(text, width)).horizontalAdvance(text) <= width;
}

void YTitle::draw(QPainter& painter, const QString& text, const QRect& place)
{
    const int side = YWrap::flags(painter, Qt::AlignVCenter | Qt::AlignLeft, text);
    QFont letters = font(text, place.width());
    if (fitsOneLine(text, place.width())) {
        painter.setFont(letters);
        painter.drawText(place, side | Qt::TextSingleLine, text);
        return;
    }
    letters.setPixelSize(YTheme::current().twoLineTitle);
    painter.setFont(letters);
    const QFontMetrics metrics(letters);
    // What some faces leave free above and below their letters may go over the bar's edges.
    const int flags = side | Qt::TextDontClip;
    const QString broken = inTwoLines(text, letters, place.width());
    if (broken != text)
        painter.drawText(place, flags, broken);
    else
        painter.drawText(place, flags | Qt::TextWrapAnywhere,
                         metrics.elidedText(text, Qt::ElideRight,
                                            2 * place.width() - metrics.averageCharWidth()));
}
