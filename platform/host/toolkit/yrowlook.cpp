#include "yrowlook.h"

#include <QFontMetrics>
#include <QPainter>

#include "ytheme.h"

namespace {

constexpr QMargins rowMargins(YTheme::margin, 4, YTheme::margin, 4);
constexpr int labelGap = 2;
constexpr double boxRadius = 6;

QFont labelFont()
{
    return YTheme::smallFont();
}

int wrapFlags(const QFontMetrics& metrics, const QString& text, int width)
{
    // A word that fits is not broken.
    for (const QString& word : text.split(' '))
        if (metrics.horizontalAdvance(word) > width)
            return Qt::TextWrapAnywhere;
    return Qt::TextWordWrap;
}

} // namespace

void YRowLook::setCompact(bool isCompact)
{
    compact = isCompact;
    measuredWidth = -1;
}

void YRowLook::setLabel(const QString& newText)
{
    text = newText;
    measuredWidth = -1;
}

int YRowLook::heightForWidth(int width) const
{
    const QMargins around = margins();
    return around.top() + labelHeight(width) + boxHeight + around.bottom();
}

QRect YRowLook::boxR(const QSize& row) const
{
    const QRect inner = QRect(QPoint(), row).marginsRemoved(margins());
    return QRect(inner.left(), inner.bottom() + 1 - boxHeight, inner.width(), boxHeight);
}

QRect YRowLook::textR(const QSize& row) const
{
    const int side = compact ? YTheme::focusWidth + 1 : textMargin;
    return boxR(row).adjusted(side, YTheme::focusWidth, -side, -YTheme::focusWidth);
}

void YRowLook::drawLabel(QPainter& painter, const QSize& row, State state) const
{
    if (text.isEmpty())
        return;
    const YTheme& theme = YTheme::current();
    QRect line = QRect(QPoint(), row).marginsRemoved(margins());
    line.setBottom(boxR(row).top() - 1 - labelGap);
    painter.setFont(labelFont());
    painter.setPen(!state.enabled  ? theme.disabledText
                   : state.focused ? theme.accent
                                   : theme.mutedText);
    painter.drawText(line, wrapFlags(painter.fontMetrics(), text, line.width()), text);
}

void YRowLook::drawBox(QPainter& painter, const QSize& row, State state) const
{
    const YTheme& theme = YTheme::current();
    const double line = state.focused ? YTheme::focusWidth : 1;
    const QRectF box = QRectF(boxR(row)).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(state.focused ? theme.accent : theme.border, line));
    painter.setBrush(state.pressed ? theme.bar : state.enabled ? theme.surface : theme.background);
    painter.drawRoundedRect(box, boxRadius, boxRadius);
    painter.restore();
}

int YRowLook::noteWidth(const QString& note)
{
    return note.isEmpty() ? 0 : QFontMetrics(labelFont()).horizontalAdvance(note) + textMargin;
}

void YRowLook::drawNote(QPainter& painter, const QRect& place, const QString& note)
{
    painter.setFont(labelFont());
    painter.setPen(YTheme::current().mutedText);
    painter.drawText(place.adjusted(0, 0, -textMargin, 0),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, note);
}

int YRowLook::labelHeight(int width) const
{
    if (text.isEmpty())
        return 0;
    if (width != measuredWidth) {
        const QFontMetrics metrics(labelFont());
        const QMargins around = margins();
        const int room = width - around.left() - around.right();
        measuredWidth = width;
        measuredHeight =
            labelGap +
            metrics.boundingRect(0, 0, room, 0, wrapFlags(metrics, text, room), text).height();
    }
    return measuredHeight;
}

QMargins YRowLook::margins() const
{
    return compact ? QMargins() : rowMargins;
}
