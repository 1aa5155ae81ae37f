// What screen readers are told about the rows of forms.
#ifndef YACCESSIBLEROWS_H
#define YACCESSIBLEROWS_H

class QAccessibleInterface;
class QWidget;

// Each makes the interface of a widget of its kind.
class YAccessibleRows
{
public:
    static QAccessibleInterface* edit(QWidget* widget);
    static QAccessibleInterface* button(QWidget* widget);
    static QAccessibleInterface* combo(QWidget* widget);
    static QAccessibleInterface* segments(QWidget* widget);
    static QAccessibleInterface* separator(QWidget* widget);
};

#endif
