#include "toolkit/look/ywrap.h"

#include <cmath>

#include <QFontMetricsF>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

QTextOption wrapping(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

Qt::Alignment YWrap::sideOf(const QPainter& painter, Qt::Alignment alignment)
{
    return QStyle::visualAlignment(painter.layoutDirection(), alignment) | Qt::AlignAbsolute;
}

int YWrap::flags(const QPainter& painter, Qt::Alignment alignment, const QString& text)
{
    return static_cast<int>(sideOf(painter, alignment)) |
           (text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight);
}

int YWrap::height(const QFont& font, const QString& text, int width)
{
    QString lines = text;
    lines.replace('\n', QChar::LineSeparator);
    QTextLayout layout(lines, font);
    layout.setTextOption(wrapping(Qt::AlignLeft));
    const double leading = QFontMetricsF(font).leading();
    double height = -leading;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        height += leading + line.height();
    }
    layout.endLayout();
    return static_cast<int>(std::ceil(height));
}

// A text from outside may be in another language than the rest: its letters run as they are read,
// and it stands on the side where the rest begins.
void YWrap::draw(QPainter& painter, const QRect& place, Qt::Alignment alignment,
                 const QString& text)
{
    QTextOption option = wrapping(sideOf(painter, alignment));
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(QRectF(place), text, option);
}

int YWrap::height(const QLabel& label, int width)
{
    const QMargins around = label.contentsMargins();
    return around.top() +
           height(label.font(), label.text(), width - around.left() - around.right()) +
           around.bottom();
}

void YWrap::draw(QLabel& label)
{
    QPainter painter(&label);
    painter.setPen(label.palette().color(label.foregroundRole()));
    draw(painter, label.contentsRect(), label.alignment(), label.text());
}

int YWrapHeight::at(const QFont& font, const QString& text, int width)
{
    if (text != m_measuredText || font != m_measuredFont) {
        m_measuredText = text;
        m_measuredFont = font;
        m_widths[0] = m_widths[1] = -1;
    }
    for (int i : {0, 1})
        if (m_widths[i] == width)
            return m_heights[i];
    const int place = m_oldest;
    m_oldest = 1 - m_oldest;
    m_widths[place] = width;
    m_heights[place] = YWrap::height(font, text, width);
    return m_heights[place];
}
