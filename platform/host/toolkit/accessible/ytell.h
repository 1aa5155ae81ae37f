// What screen readers are told when it changes.
#ifndef YTELL_H
#define YTELL_H

#include <QAccessible>

class QWidget;

class YTell
{
public:
    // The states that are set in `changed` are no longer what they were. `child` is one of the
    // widget's accessible children, or -1 for the widget itself.
    static void state(QWidget* widget, QAccessible::State changed, int child = -1);
    static void enabled(QWidget* row);
    static void value(QWidget* widget, const QString& value);
    static void event(QWidget* widget, QAccessible::Event event);
};

#endif
