// What screen readers are told about the toolkit's widgets, as far as Qt's own widgets do not tell
// it.
#include <QAccessibleWidget>
#include <QCoreApplication>

#include <ypopup.h>

#include "ybusy.h"

namespace {

// A popup is a dialog; its title is its name, its instruction or message its description.
class PopupInterface : public QAccessibleWidget
{
public:
    explicit PopupInterface(QWidget* popup) : QAccessibleWidget(popup, QAccessible::Dialog) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = static_cast<const YPopup*>(widget())->isModalPopup();
        return state;
    }
};

class NoticeInterface : public QAccessibleWidget
{
public:
    explicit NoticeInterface(QWidget* notice) : QAccessibleWidget(notice, QAccessible::AlertMessage)
    {}
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

struct Entry
{
    const char* className;
    QAccessibleInterface* (*make)(QWidget*);
};

constexpr Entry table[] = {
    {"YNoticeDlg", make<NoticeInterface>},
    {"YPopup", make<PopupInterface>},
    {"YBusy", make<BusyInterface>},
};

// Qt asks for each class of an object in turn, the most derived one first.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object)
{
    if (!object || !object->isWidgetType())
        return nullptr;
    for (const Entry& entry : table)
        if (className == QLatin1String(entry.className))
            return entry.make(static_cast<QWidget*>(object));
    return nullptr;
}

void install()
{
    QAccessible::installFactory(interfaceOf);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(install)
