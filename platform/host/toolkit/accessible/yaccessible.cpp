// What screen readers are told about the toolkit's widgets, as far as Qt's own widgets do not tell
// it.
#include <new>

#include <QAccessibleWidget>
#include <QGuiApplication>

#include <ylabel.h>
#include <ypopup.h>

#include "toolkit/accessible/yaccessiblerows.h"
#include "toolkit/look/ybusy.h"

namespace {

// A popup is a dialog, or something more particular. Its title is its name, its instruction or
// message its description.
class PopupInterface : public QAccessibleWidget
{
public:
    explicit PopupInterface(QWidget* popup, QAccessible::Role role = QAccessible::Dialog)
        : QAccessibleWidget(popup, role)
    {}

    QString text(QAccessible::Text what) const override
    {
        const QString own = QAccessibleWidget::text(what);
        return what == QAccessible::Name && own.isEmpty() ? nameOfUntitled() : own;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = static_cast<const YPopup*>(widget())->isModalPopup();
        return state;
    }

private:
    // The text that stands in it says what it is about, or at least the program does whose it is.
    QString nameOfUntitled() const
    {
        QString instruction = static_cast<const YPopup*>(widget())->instructText();
        if (!instruction.isEmpty())
            return instruction;
        for (const YLabel* label : widget()->findChildren<YLabel*>(Qt::FindDirectChildrenOnly))
            if (!label->text().isEmpty())
                return label->text();
        return QGuiApplication::applicationDisplayName();
    }
};

class BusyInterface : public QAccessibleWidget
{
public:
    explicit BusyInterface(QWidget* ring) : QAccessibleWidget(ring, QAccessible::Animation) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.busy = widget()->isVisible();
        return state;
    }
};

template <class Interface> QAccessibleInterface* make(QWidget* widget)
{
    return new Interface(widget);
}

template <QAccessible::Role role> QAccessibleInterface* makePopup(QWidget* widget)
{
    return new PopupInterface(widget, role);
}

template <QAccessible::Role role> QAccessibleInterface* makeOther(QWidget* widget)
{
    return new QAccessibleWidget(widget, role);
}

struct Entry
{
    const char* className;
    QAccessibleInterface* (*make)(QWidget*);
};

constexpr Entry table[] = {
    {"YPopup", makePopup<QAccessible::Dialog>},
    {"YNoticeDlg", makePopup<QAccessible::AlertMessage>},
    {"YOptionsMenu", makePopup<QAccessible::PopupMenu>},
    {"YBusy", make<BusyInterface>},
    {"YKbMainWidget", makeOther<QAccessible::Window>},
    {"YFormContainer", makeOther<QAccessible::Form>},
    {"YAppInfoArea", makeOther<QAccessible::StaticText>},
    {"YLineEdit", YAccessibleRows::edit},
    {"YButton", YAccessibleRows::button},
    {"YComboBox", YAccessibleRows::combo},
    {"YSegmentField", YAccessibleRows::segments},
    {"YSeparator", YAccessibleRows::separator},
};

// Qt asks for each class of an object in turn, the most derived one first.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    if (!object || !object->isWidgetType())
        return nullptr;
    for (const Entry& entry : table)
        if (className == QLatin1String(entry.className))
            // Qt asks in the middle of its own work, and does without where there is none.
            try {
                return entry.make(static_cast<QWidget*>(object));
            } catch (const std::bad_alloc&) {
                return nullptr;
            }
    return nullptr;
}

void install()
{
    QAccessible::installFactory(interfaceOf);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(install)
