#include "toolkit/look/ystyle.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QWidget>

#include <yinputfield.h>

#include "toolkit/input/ykeypad.h"
#include "toolkit/look/ytheme.h"

namespace {

void drawFlatButton(const QStyleOptionButton& button, QPainter* painter)
{
    const YTheme& theme = YTheme::current();
    const bool pressed = button.state & QStyle::State_Sunken;
    if (pressed)
        painter->fillRect(button.rect, theme.accent);
    const bool enabled = button.state & QStyle::State_Enabled;
    painter->setPen(pressed ? theme.onAccent : enabled ? theme.text : theme.disabledText);
    painter->drawText(button.rect.adjusted(theme.margin / 2, 0, -theme.margin / 2, 0),
                      Qt::AlignCenter | Qt::TextSingleLine, button.text);
}

// A scroll indicator: the part that is in sight, without buttons or groove.

QRect indicatorRect(const QStyleOptionSlider& bar)
{
    const bool upright = bar.orientation == Qt::Vertical;
    const int length = upright ? bar.rect.height() : bar.rect.width();
    const int range = bar.maximum - bar.minimum;
    if (range <= 0)
        return bar.rect;
    const auto part = static_cast<int>(qint64(length) * bar.pageStep / (range + bar.pageStep));
    const int size = qMin(length, qMax(YTheme::current().shortestIndicator, part));
    const int offset = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                       length - size, bar.upsideDown);
    return upright ? QRect(bar.rect.left(), bar.rect.top() + offset, bar.rect.width(), size)
                   : QRect(bar.rect.left() + offset, bar.rect.top(), size, bar.rect.height());
}

void drawIndicator(const QStyleOptionSlider& bar, QPainter* painter, const QWidget* widget)
{
    const YTheme& theme = YTheme::current();
    // A bar that is not opaque stands on something else than a list's surface.
    if (!widget || widget->testAttribute(Qt::WA_OpaquePaintEvent))
        painter->fillRect(bar.rect, theme.surface);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(theme.mutedText);
    painter->drawRoundedRect(indicatorRect(bar), YTheme::current().indicator / 2.0,
                             YTheme::current().indicator / 2.0);
    painter->restore();
}

} // namespace

YStyle::YStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void YStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const
{
    // The row draws the box in which its field stands.
    if (element == PE_PanelLineEdit && qobject_cast<const YInputField*>(widget))
        return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

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

void YStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                QPainter* painter, const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar) {
        drawIndicator(*bar, painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect YStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                             SubControl part, const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar) {
        if (part == SC_ScrollBarSlider)
            return indicatorRect(*bar);
        if (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine)
            return QRect();
        if (part == SC_ScrollBarGroove)
            return bar->rect;
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

int YStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    if (metric == PM_ScrollBarExtent)
        return YTheme::current().indicator;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int YStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                      QStyleHintReturn* data) const
{
    // Soft-key texts are translated texts, in which "&" is a letter like any other.
    if (hint == SH_UnderlineShortcut)
        return 0;
    // One tap chooses a row, as on every phone.
    if (hint == SH_ItemView_ActivateItemOnSingleClick)
        return 1;
    // Who types letters by pressing a key several times has to see which one it is.
    if (hint == SH_LineEdit_PasswordMaskDelay && YKeypad::isPresent())
        return YTheme::current().lastLetterTime;
    return QProxyStyle::styleHint(hint, option, widget, data);
}
