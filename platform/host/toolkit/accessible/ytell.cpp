#include "toolkit/accessible/ytell.h"

#include <QWidget>

void YTell::state(QWidget* widget, QAccessible::State changed, int child)
{
    QAccessibleStateChangeEvent event(widget, changed);
    event.setChild(child);
    QAccessible::updateAccessibility(&event);
}

void YTell::enabled(QWidget* row)
{
    QAccessible::State changed;
    changed.disabled = true;
    state(row, changed);
}

void YTell::value(QWidget* widget, const QString& value)
{
    QAccessibleValueChangeEvent event(widget, value);
    QAccessible::updateAccessibility(&event);
}

void YTell::event(QWidget* widget, QAccessible::Event type)
{
    QAccessibleEvent event(widget, type);
    QAccessible::updateAccessibility(&event);
}
