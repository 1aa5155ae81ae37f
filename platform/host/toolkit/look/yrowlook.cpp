#include "toolkit/look/yrowlook.h"

#include <algorithm>

#include <QFontMetrics>
#include <QPainter>
#include <QWidget>

#include <yscrollpanel.h>

#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

const QFont& labelFont()
{
    return YTheme::current().smallFont();
}

// Other letters may come from another font, which may be higher; to find out takes its time.
bool isLatin(const QString& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar letter) { return letter.unicode() < 0x250; });
}

} // namespace

void YRowLook::setCompact(bool isCompact)
{
    m_compact = isCompact;
    m_measuredWidth = -1;
}

void YRowLook::setLabel(const QString& newText)
{
    m_text = newText;
    m_generation = -1;
}

void YRowLook::setBoxHeight(int height)
{
    m_box = height;
}

int YRowLook::boxHeightNow() const
{
    return std::max(m_box, boxHeight());
}

int YRowLook::boxHeight()
{
    return YTheme::current().boxHeight;
}

int YRowLook::heightForWidth(int width) const
{
    const QMargins around = margins();
    return around.top() + labelHeight(width) + boxHeightNow() + around.bottom();
}

QRect YRowLook::boxR(const QSize& row) const
{
    const QRect inner = QRect(QPoint(), row).marginsRemoved(margins());
    return QRect(inner.left(), inner.bottom() + 1 - boxHeightNow(), inner.width(), boxHeightNow());
}

QRect YRowLook::textR(const QSize& row) const
{
    const YTheme& theme = YTheme::current();
    const int side = m_compact ? theme.focus + theme.line : theme.boxInset;
    return boxR(row).adjusted(side, theme.focus, -side, -theme.focus);
}

void YRowLook::drawLabel(QPainter& painter, const QSize& row, State state) const
{
    if (m_text.isEmpty())
        return;
    const YTheme& theme = YTheme::current();
    QRect line = QRect(QPoint(), row).marginsRemoved(margins());
    line.setBottom(boxR(row).top() - 1 - theme.labelGap);
    painter.setFont(labelFont());
    painter.setPen(!state.enabled  ? theme.disabledText
                   : state.focused ? theme.accent
                                   : theme.mutedText);
    YWrap::draw(painter, line, Qt::AlignLeft | Qt::AlignTop, m_text);
}

// The surface is filled over the edge's colour: tracing a round edge takes several times as long.
void YRowLook::drawBox(QPainter& painter, const QSize& row, State state) const
{
    const YTheme& theme = YTheme::current();
    const double line = state.focused ? theme.focus : theme.line;
    const QRectF outer(boxR(row));
    const double inner = theme.boxRadius - line / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(state.focused ? theme.accent : state.enabled ? theme.outline : theme.border);
    painter.drawRoundedRect(outer, inner + line, inner + line);
    painter.setBrush(state.pressed ? theme.bar : state.enabled ? theme.surface : theme.background);
    painter.drawRoundedRect(outer.adjusted(line, line, -line, -line), inner, inner);
    painter.restore();
}

void YRowLook::drawSelection(QPainter& painter, const QRect& place)
{
    const YTheme& theme = YTheme::current();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.accent);
    painter.drawRoundedRect(place, theme.selectionRadius, theme.selectionRadius);
    painter.restore();
}

int YRowLook::noteWidth(const QString& note)
{
    return note.isEmpty()
               ? 0
               : QFontMetrics(labelFont()).horizontalAdvance(note) + 2 * YTheme::current().boxInset;
}

void YRowLook::drawNote(QPainter& painter, const QRect& place, const QString& note)
{
    painter.setFont(labelFont());
    painter.setPen(YTheme::current().mutedText);
    const int inset = YTheme::current().boxInset;
    painter.drawText(place.adjusted(inset, 0, -inset, 0),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, note);
}

void YRowLook::reveal(QWidget* row)
{
    YScrollPanel* panel = nullptr;
    for (QWidget* above = row->parentWidget(); above && !panel; above = above->parentWidget())
        panel = qobject_cast<YScrollPanel*>(above);
    if (!panel)
        return;
    QWidget* child = row;
    while (child != panel && child->parentWidget() != panel->viewport())
        child = child->parentWidget();
    panel->ensureChildVisible(child);
}

int YRowLook::labelHeight(int width) const
{
    if (m_text.isEmpty())
        return 0;
    const QFontMetrics metrics(labelFont());
    if (m_generation != YTheme::generation()) {
        m_generation = YTheme::generation();
        m_measuredWidth = -1;
        // The sum of the letters' widths is rounded.
        m_lineWidth = metrics.horizontalAdvance(m_text) + 1;
        m_lineHeight =
            isLatin(m_text) ? metrics.height() : metrics.size(Qt::TextSingleLine, m_text).height();
    }
    const QMargins around = margins();
    const int room = width - around.left() - around.right();
    if (m_lineWidth <= room)
        return YTheme::current().labelGap + m_lineHeight;
    if (width != m_measuredWidth) {
        m_measuredWidth = width;
        m_measuredHeight = YTheme::current().labelGap + YWrap::height(labelFont(), m_text, room);
    }
    return m_measuredHeight;
}

QMargins YRowLook::margins() const
{
    const YTheme& theme = YTheme::current();
    return m_compact ? QMargins()
                     : QMargins(theme.margin, theme.rowGap, theme.margin, theme.rowGap);
}
