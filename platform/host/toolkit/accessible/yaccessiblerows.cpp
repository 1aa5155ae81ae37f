#include "toolkit/accessible/yaccessiblerows.h"

#include <QAccessibleWidget>

#include <ycombobox.h>
#include <yinputfield.h>
#include <ylineedit.h>
#include <ysegmentfield.h>
#include <yseparator.h>

namespace {

// A row that is switched off is disabled for a screen reader, although it takes the focus.
template <class Row> class RowInterface : public QAccessibleWidget
{
public:
    RowInterface(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.disabled = state.disabled || !row()->isYEnabled();
        return state;
    }

protected:
    Row* row() const { return static_cast<Row*>(widget()); }
};

class EditInterface : public RowInterface<YLineEdit>
{
public:
    explicit EditInterface(QWidget* edit) : RowInterface(edit, QAccessible::EditableText) {}

    QString text(QAccessible::Text what) const override
    {
        if (what == QAccessible::Value)
            return row()->getInputField()->displayText();
        const QString own = RowInterface::text(what);
        return what == QAccessible::Name && own.isEmpty() ? nameInField() : own;
    }

    void setText(QAccessible::Text what, const QString& text) override
    {
        if (what != QAccessible::Value)
            RowInterface::setText(what, text);
        else if (row()->isYEnabled() && !row()->isReadOnly())
            row()->setText(text);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = RowInterface::state();
        state.readOnly = row()->isReadOnly();
        state.editable = !state.readOnly && !state.disabled;
        state.passwordEdit = row()->echoMode() != QLineEdit::Normal;
        return state;
    }

    // The field in the row is a part of it and not another object to go to.
    int childCount() const override { return 0; }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type != QAccessible::TextInterface && type != QAccessible::EditableTextInterface)
            return RowInterface::interface_cast(type);
        QAccessibleInterface* field = QAccessible::queryAccessibleInterface(row()->getInputField());
        return field ? field->interface_cast(type) : nullptr;
    }

private:
    // A segment is named by its field and its place there.
    QString nameInField() const
    {
        const auto* field = qobject_cast<const YSegmentField*>(row()->parentWidget());
        for (int i = 0; field && i < field->numSegments(); ++i)
            if (field->getField(i) == row())
                return QStringLiteral("%1 %2/%3")
                    .arg(field->label())
                    .arg(i + 1)
                    .arg(field->numSegments())
                    .trimmed();
        return QString();
    }
};

class ButtonInterface : public RowInterface<YButton>
{
public:
    explicit ButtonInterface(QWidget* button, QAccessible::Role role = QAccessible::Button)
        : RowInterface(button, role)
    {}

    QString text(QAccessible::Text what) const override
    {
        const QString own = RowInterface::text(what);
        return what == QAccessible::Name && own.isEmpty() ? row()->text() : own;
    }

    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + RowInterface::actionNames();
    }

    void doAction(const QString& action) override
    {
        if (action != pressAction())
            RowInterface::doAction(action);
        // The dialog that a press may open is not to hold up the screen reader.
        else if (row()->isYEnabled())
            QMetaObject::invokeMethod(row(), "click", Qt::QueuedConnection);
    }
};

class ComboInterface : public ButtonInterface
{
public:
    explicit ComboInterface(QWidget* combo) : ButtonInterface(combo, QAccessible::ComboBox) {}

    QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? static_cast<YComboBox*>(widget())->currentText()
                                          : ButtonInterface::text(what);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = ButtonInterface::state();
        state.hasPopup = true;
        return state;
    }
};

// The whole address, or whatever the segments make together.
class SegmentsInterface : public RowInterface<YSegmentField>
{
public:
    explicit SegmentsInterface(QWidget* field) : RowInterface(field, QAccessible::Grouping) {}

    QString text(QAccessible::Text what) const override
    {
        return what == QAccessible::Value ? value() : RowInterface::text(what);
    }

private:
    QString value() const
    {
        QStringList parts;
        for (int i = 0; i < row()->numSegments(); ++i)
            parts << row()->getField(i)->getInputField()->displayText();
        return parts.join(QString()).isEmpty() ? QString() : parts.join(row()->separatorString());
    }
};

} // namespace

QAccessibleInterface* YAccessibleRows::edit(QWidget* widget)
{
    return new EditInterface(widget);
}

QAccessibleInterface* YAccessibleRows::button(QWidget* widget)
{
    return new ButtonInterface(widget);
}

QAccessibleInterface* YAccessibleRows::combo(QWidget* widget)
{
    return new ComboInterface(widget);
}

QAccessibleInterface* YAccessibleRows::segments(QWidget* widget)
{
    return new SegmentsInterface(widget);
}

QAccessibleInterface* YAccessibleRows::separator(QWidget* widget)
{
    return new RowInterface<YSeparator>(widget, QAccessible::Separator);
}
