#include "ystyle.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "ytheme.h"

namespace {

void drawFlatButton(const QStyleOptionButton& button, QPainter* painter)
{
    const YTheme& theme = YTheme::current();
    const bool pressed = button.state & QStyle::State_Sunken;
    if (pressed)
        painter->fillRect(button.rect, theme.accent);
    const bool enabled = button.state & QStyle::State_Enabled;
    painter->setPen(pressed ? theme.onAccent : enabled ? theme.text : theme.disabledText);
    painter->drawText(button.rect.adjusted(YTheme::margin / 2, 0, -YTheme::margin / 2, 0),
                      Qt::AlignCenter | Qt::TextSingleLine, button.text);
}

} // namespace

YStyle::YStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void YStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButton && button && (button->features & QStyleOptionButton::Flat)) {
        drawFlatButton(*button, painter);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

int YStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const
{
    // Soft-key texts are translated texts, in which "&" is a letter like any other.
    if (hint == SH_UnderlineShortcut)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}
