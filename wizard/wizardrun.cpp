// The run of the wizard: from showing page 1 to the end of its event loop, and saving in between.

#include <initializer_list>

#include <qevent.h>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ylineedit.h>

#include "support/guarded.h"
#include "support/log.h"
#include "support/loop.h"
#include "support/memory.h"
#include "wizard/dataconnection_newwiz1.h"
#include "wizard/dataconnection_newwiz2.h"
#include "wizard/form/profilestore.h"
#include "wizard/messages.h"

using support::Guarded;
using wizard::Choice;
using wizard::FormFault;
using wizard::Text;

int DataConnection_NewWiz1::run()
{
    show();
    connectContentSignals();
    if (!inModalLoop) {
        inModalLoop = true;
        const Guarded<DataConnection_NewWiz1> self(this);
        support::enterLoop();
        if (self.isNull())
            return ResultClosed;
    }
    return result;
}

// Only now, so that filling the rows has not counted as a change.
void DataConnection_NewWiz1::connectContentSignals()
{
    static const char textChanged[] = "2textChanged (const QString &)";
    QObject::connect(rows.edit(Text::ProfileName), textChanged, this, SLOT(slotContentChanged()));
    QWidget* row = rows.edit(Text::Proxy1);
    for (int field = int(Text::Proxy1); field <= int(Text::GprsDns2); ++field) {
        QObject::connect(row, textChanged, this, SLOT(slotContentChanged()));
        row = form->getNextChild(row);
    }
    for (Choice field : {Choice::QosPolicy, Choice::GprsTimeout})
        QObject::connect(rows.combo(field), SIGNAL(activated(int)), this,
                         SLOT(slotContentChanged()));
}

void DataConnection_NewWiz1::hide()
{
    YKbMainWidget::hide();
    leaveLoop();
}

// A window that is iconified comes back; the wizard waits for it.
void DataConnection_NewWiz1::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous())
        leaveLoop();
    YKbMainWidget::hideEvent(event);
}

void DataConnection_NewWiz1::leaveLoop()
{
    if (inModalLoop) {
        inModalLoop = false;
        support::exitLoop();
    }
}

wizard::FormPurpose DataConnection_NewWiz1::purpose() const
{
    wizard::FormPurpose purpose;
    purpose.isCreating = isCreating;
    purpose.storedName = currentName;
    purpose.hasWifi = hasWifi;
    return purpose;
}

// Where the form has a fault, nothing is stored.
int DataConnection_NewWiz1::checkAndStore(FormFault* fault)
{
    *fault = wizard::checkForm(rows, purpose());
    if (*fault != FormFault::None)
        return wizard::NotStored;
    const bool withPage2 = page2 && page2->isSaved();
    return wizard::storeProfile(rows, purpose(), record.get(), withPage2, &currentName);
}

// The page may be deleted while the user reads a message.
void DataConnection_NewWiz1::slotSaveProfile()
{
    const Guarded<DataConnection_NewWiz1> self(this);
    FormFault fault = FormFault::None;
    const int stored = support::withMemory([this, &fault] { return checkAndStore(&fault); },
                                           wizard::notStoredWithoutMemory);
    if (fault != FormFault::None) {
        wizard::showFault(fault, rows);
        if (!self.isNull())
            focusFields(fault);
        return;
    }
    if (stored == wizard::Stored) {
        result = ResultStored;
        wizard::showStored(currentName);
    } else if (stored == NAPI_ERR_MEMORY_FULL) {
        wizard::showMemoryFull();
    } else {
        support::logPrint(4, "Network: Save profile data error!\n");
    }
    if (!self.isNull())
        hide();
}

void DataConnection_NewWiz1::focusFields(FormFault fault)
{
    const wizard::FaultFields toCorrect = wizard::fieldsToCorrect(fault);
    for (int i = 0; i < toCorrect.count; ++i)
        rows.focus(toCorrect.fields[i]);
}
