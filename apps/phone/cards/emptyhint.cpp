#include "cards/emptyhint.h"

#include <QPainter>

#include <toolkit/look/ytheme.h>

#include "cards/card.h"
#include "cards/cardsign.h"

namespace phone {

EmptyHint::EmptyHint(QWidget* parent, const QString& title, const QString& hint) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setTexts(title, hint);
}

void EmptyHint::setTexts(const QString& title, const QString& hint)
{
    m_title = title;
    m_hint = hint;
    setAccessibleName(title);
    setAccessibleDescription(hint);
    update();
}

void EmptyHint::paintEvent(QPaintEvent*)
{
    constexpr int signSize = 48;
    const YTheme& theme = YTheme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect room =
        rect().adjusted(3 * YTheme::current().margin, 0, -3 * YTheme::current().margin, 0);
    const QFontMetrics titleMetrics(YTheme::current().titleFont());
    const QFontMetrics hintMetrics(YTheme::current().bodyFont());
    const int wrap = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
    const int titleHeight = titleMetrics.boundingRect(room, wrap, m_title).height();
    const int hintHeight = hintMetrics.boundingRect(room, wrap, m_hint).height();
    int top = (height() - signSize - titleHeight - hintHeight - 3 * YTheme::current().margin) / 2;
    drawSign(painter, QRect((width() - signSize) / 2, top, signSize, signSize), Sign::Cellular);
    top += signSize + 2 * YTheme::current().margin;
    painter.setPen(theme.text);
    painter.setFont(YTheme::current().titleFont());
    painter.drawText(QRect(room.left(), top, room.width(), titleHeight), wrap, m_title);
    top += titleHeight + YTheme::current().margin;
    painter.setPen(theme.mutedText);
    painter.setFont(YTheme::current().bodyFont());
    painter.drawText(QRect(room.left(), top, room.width(), hintHeight), wrap, m_hint);
}

} // namespace phone
