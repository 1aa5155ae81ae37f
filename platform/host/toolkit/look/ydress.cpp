#include "toolkit/look/ydress.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <ysegmentfield.h>

#include "toolkit/look/ystyle.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ytranslator.h"

namespace {

// Marks what wear() was called for.
constexpr char mark[] = "vorn_dressed";

bool isDressed(const QWidget& widget)
{
    return widget.property(mark).toBool();
}

bool isApplicationDressed()
{
    return qobject_cast<YStyle*>(QApplication::style());
}

bool liesInDressed(const QWidget& widget)
{
    const QWidget* inner = &widget;
    while (!inner->isWindow() && inner->parentWidget()) {
        inner = inner->parentWidget();
        if (isDressed(*inner))
            return true;
    }
    return false;
}

// The style of the widgets of an application that has another one. A style is not handed on from a
// widget to its children as letters and colours are, so that each of them gets it when it is shown
// first or moves to another place.
class Wardrobe : public QObject
{
public:
    explicit Wardrobe(QObject* parent) : QObject(parent) { m_style.setParent(this); }

    void dress(QWidget* widget)
    {
        if (!widget->testAttribute(Qt::WA_SetStyle))
            widget->setStyle(&m_style);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QEvent::Type type = event->type();
        if ((type == QEvent::Polish || type == QEvent::ParentChange) && watched->isWidgetType())
            place(static_cast<QWidget*>(watched));
        return false;
    }

private:
    void place(QWidget* widget)
    {
        const bool inside = liesInDressed(*widget);
        if (inside)
            dress(widget);
        if (isDressed(*widget))
            widget->setAutoFillBackground(!inside);
    }

    YStyle m_style;
};

// Made for the application object that is there, and deleted with it.
Wardrobe& wardrobe()
{
    static QPointer<Wardrobe> made;
    if (!made) {
        made = new Wardrobe(qApp);
        qApp->installEventFilter(made);
    }
    return *made;
}

// The parts of an address, for instance.
bool isLeftToRight(const QWidget& widget)
{
    return qobject_cast<const YSegmentField*>(widget.parentWidget());
}

void colour(QWidget* widget)
{
    widget->setPalette(YTheme::current().palette());
    widget->setFont(YTheme::current().bodyFont());
    widget->setLayoutDirection(isLeftToRight(*widget) ? Qt::LeftToRight : YTranslator::direction());
}

// What lies in a widget of the toolkit is laid out anew, with other letters and other lengths.
void layOutAnew()
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!isApplicationDressed() && !isDressed(*widget) && !liesInDressed(*widget))
            continue;
        widget->updateGeometry();
        QCoreApplication::postEvent(widget, new QEvent(QEvent::LayoutRequest));
        widget->update();
    }
}

} // namespace

void YDress::wear(QWidget* widget)
{
    if (isApplicationDressed())
        return;
    widget->setProperty(mark, true);
    wardrobe().dress(widget);
    colour(widget);
}

void YDress::wearAll()
{
    if (!isApplicationDressed())
        QApplication::setStyle(new YStyle);
    QApplication::setPalette(YTheme::current().palette());
    QApplication::setFont(YTheme::current().bodyFont());
    QApplication::setLayoutDirection(YTranslator::direction());
}

void YDress::refresh()
{
    if (isApplicationDressed())
        wearAll();
    else
        for (QWidget* widget : QApplication::allWidgets())
            if (isDressed(*widget))
                colour(widget);
    layOutAnew();
}
