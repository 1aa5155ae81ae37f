#include "wizard/dataconnection_newwiz1.h"

#include <qevent.h>

#include <setuputility.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <ylineedit.h>
#include <yseparator.h>

#include "profilefunctions.h"
#include "profiles/readdmint.h"
#include "support/guarded.h"
#include "support/log.h"
#include "support/loop.h"
#include "support/memory.h"
#include "support/text.h"
#include "support/toolkitnumbers.h"
#include "wizard/boxes.h"
#include "wizard/dataconnection_newwiz2.h"
#include "wizard/form/codetables.h"
#include "wizard/form/profilestore.h"
#include "wizard/form/recordmapping.h"
#include "wizard/guardedrows.h"
#include "wizard/pageparts.h"
#include "wizard/pagerows.h"

using support::Guarded;
using support::logPrint;
using wizard::Choice;
using wizard::FormFault;
using wizard::Text;

DataConnection_NewWiz1::DataConnection_NewWiz1(const QString& name, bool creating, QWidget* parent,
                                               const char* objectName, unsigned int flags)
    : YKbMainWidget(parent, objectName, flags),
      m_form(nullptr),
      m_currentName(""),
      m_additionalSettings(nullptr),
      m_cellularSeparator(nullptr),
      m_softKeys(nullptr),
      reserved(nullptr),
      m_isCreating(creating),
      m_inModalLoop(false),
      m_hasWifi(false),
      m_result(ResultClosed),
      m_currentPreference(wizard::WifiThenCellular),
      m_defaultPreference(wizard::WifiThenCellular)
{
    setMorphMode(toolkit::FormMorph);
    const SETUP_Utility features;
    m_hasWifi = features.isFeatureAvailable(SETUP_FEATURE_WIFI) != 0;

    setTitleAndName(name);
    m_form = wizard::addForm(this);
    addRows();
    m_page2.reset(new DataConnection_NewWiz2(this, nullptr, nullptr, 0));
    if (loadProfile(name))
        logPrint(support::LogProgress, "Load Profile Ok!\n");
    else
        logPrint(support::LogError, "Load profile content failed\n");
    addKeys();
    m_rows.edit(Text::ProfileName)->setFocus();
    if (m_hasWifi)
        QObject::connect(m_rows.combo(Choice::Preference), "2activated ( int )", this,
                         "1slotPreferencChanged( int )");
    QObject::connect(m_additionalSettings, SIGNAL(clicked()), this, SLOT(slotGoToNext()));
}

DataConnection_NewWiz1::~DataConnection_NewWiz1()
{
    m_page2.reset();
    m_record.reset();
    DataConnection_NewWiz1::hide();
    logPrint(support::LogProgress, "Destory an object...\n ");
}

// A page that is deleted by its owner has nobody to tell.
void DataConnection_NewWiz1::DeletePage2::operator()(DataConnection_NewWiz2* page) const
{
    page->forgetPage1();
    delete page;
}

void DataConnection_NewWiz1::losePage2()
{
    m_page2.release();
    m_rows.forgetPage2();
    hide();
}

void DataConnection_NewWiz1::setTitleAndName(const QString& name)
{
    QString title = name;
    if (m_isCreating) {
        title = name.isEmpty() ? tr("TXT_RID_HEADER_CONNECTION_SETUP", "Connection Setup")
                               : tr("TXT_RID_HEADER_NEW_CONNECTION", "New Connection");
        getDefaultProfileName(m_currentName);
    } else {
        m_currentName = name;
    }
    setMainWidgetTitle(title);
}

void DataConnection_NewWiz1::addRows()
{
    for (const wizard::Page1Row& entry : wizard::page1Rows) {
        if (entry.onlyWithWifi && !m_hasWifi)
            continue;
        const bool holdsName = &entry.row == &wizard::page1Rows[0].row;
        QWidget* widget =
            wizard::addRow(entry.row, m_form, m_rows, holdsName ? &m_currentName : nullptr);
        if (entry.row.kind == wizard::RowKind::Separator)
            m_cellularSeparator = static_cast<YSeparator*>(widget);
        else if (entry.row.kind == wizard::RowKind::PressButton)
            m_additionalSettings = static_cast<NSPressButton*>(widget);
        else if (widget == m_rows.combo(Choice::Preference))
            chooseDefaultPreference();
    }
}

// A new profile shows "WiFi Only" without switching its rows off when that is the device's default:
// only a choice of the user, or a stored one, switches them.
void DataConnection_NewWiz1::chooseDefaultPreference()
{
    if (!readDmInt("DefConnPrefer", m_defaultPreference)) {
        logPrint(support::LogError, "Get default connection preference faild\n");
        m_defaultPreference = wizard::WifiThenCellular;
    }
    m_rows.setChoice(Choice::Preference, m_defaultPreference);
    logPrint(support::LogProgress, "set WiFi preference dialog ok");
}

void DataConnection_NewWiz1::addKeys()
{
    const wizard::PhoneText cancelProfile = {"TXT_RID_OPTION_CANCEL_PROFILE", "Cancel Profile"};
    const wizard::PhoneText cancelEdit = {"TXT_RID_OPTION_CANCEL_EDIT", "Cancel Edit"};
    YOptionsMenu* menu = wizard::addOptionsMenu(this, m_isCreating ? cancelProfile : cancelEdit,
                                                SLOT(slotGotoPrevious()));
    m_softKeys = wizard::addSoftKeys(this, menu, SLOT(slotGotoPrevious()));
}

// Non-zero when there is a record that belongs to the profile.
int DataConnection_NewWiz1::loadProfile(const QString& name)
{
    m_record = wizard::newRecord();
    if (!m_record)
        return 0;
    if (name.isEmpty())
        return 1;
    const std::string bytes = support::utf8(name);
    if (NAPI_ReadProfile(bytes.c_str(), m_record.get(), 0, 0) != 0) {
        logPrint(support::LogError, "Read profile error.\n");
        return 0;
    }
    wizard::fillPage1(*m_record, m_rows);
    if (m_hasWifi) {
        m_currentPreference = wizard::preferenceItemOf(m_record->flags, m_defaultPreference);
        m_rows.setChoice(Choice::Preference, m_currentPreference);
        if (m_currentPreference == wizard::WifiOnly)
            switchCellularRows(false);
    }
    logPrint(support::LogProgress, "Load Profile: %s successfully\n", bytes.c_str());
    return 1;
}

void DataConnection_NewWiz1::switchCellularRows(bool on)
{
    for (int field = int(Text::Proxy1); field <= int(Text::GprsDns2); ++field) {
        m_rows.edit(Text(field))->setEnabled(on);
        m_rows.edit(Text(field))->setReadOnly(!on);
    }
    m_rows.combo(Choice::QosPolicy)->setEnabled(on);
    m_rows.combo(Choice::GprsTimeout)->setEnabled(on);
    m_additionalSettings->setEnabled(on);
    if (m_hasWifi)
        m_cellularSeparator->setEnabled(on);
}

void DataConnection_NewWiz1::slotGotoPrevious()
{
    m_result = ResultCancelled;
    hide();
}

void DataConnection_NewWiz1::slotGoToNext()
{
    if (!m_page2)
        return;
    if (m_record)
        wizard::fillPage2(*m_record, m_rows);
    m_page2->open();
}

void DataConnection_NewWiz1::slotPreferencChanged(int index)
{
    if (index == wizard::WifiOnly)
        switchCellularRows(false);
    else if (m_currentPreference == wizard::WifiOnly)
        switchCellularRows(true);
    m_currentPreference = index;
    slotContentChanged();
}

void DataConnection_NewWiz1::slotContentChanged()
{
    wizard::offerSave(m_softKeys, this, SLOT(slotSaveProfile()));
}

int DataConnection_NewWiz1::run()
{
    show();
    connectContentSignals();
    if (!m_inModalLoop) {
        m_inModalLoop = true;
        const Guarded<DataConnection_NewWiz1> self(this);
        support::enterLoop();
        if (self.isNull())
            return ResultClosed;
    }
    return m_result;
}

// Only now, so that filling the rows has not counted as a change.
void DataConnection_NewWiz1::connectContentSignals()
{
    static const char textChanged[] = "2textChanged (const QString &)";
    QObject::connect(m_rows.edit(Text::ProfileName), textChanged, this, SLOT(slotContentChanged()));
    QWidget* row = m_rows.edit(Text::Proxy1);
    for (int field = int(Text::Proxy1); field <= int(Text::GprsDns2); ++field) {
        QObject::connect(row, textChanged, this, SLOT(slotContentChanged()));
        row = m_form->getNextChild(row);
    }
    for (Choice field : {Choice::QosPolicy, Choice::GprsTimeout})
        QObject::connect(m_rows.combo(field), SIGNAL(activated(int)), this,
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
    if (m_inModalLoop) {
        m_inModalLoop = false;
        support::exitLoop();
    }
}

wizard::FormPurpose DataConnection_NewWiz1::purpose() const
{
    return {m_isCreating, m_currentName, m_hasWifi};
}

// Where the form has a fault, nothing is stored.
int DataConnection_NewWiz1::checkAndStore(FormFault* fault)
{
    *fault = wizard::checkForm(m_rows, purpose());
    if (*fault != FormFault::None)
        return wizard::NotStored;
    const bool withPage2 = m_page2 && m_page2->isSaved();
    return wizard::storeProfile(m_rows, purpose(), m_record.get(), withPage2, &m_currentName);
}

// The page may be deleted while the user reads a message.
void DataConnection_NewWiz1::slotSaveProfile()
{
    const Guarded<DataConnection_NewWiz1> self(this);
    FormFault fault = FormFault::None;
    const int stored = support::withMemory([this, &fault] { return checkAndStore(&fault); },
                                           wizard::notStoredWithoutMemory);
    if (fault != FormFault::None) {
        wizard::showFault(fault, m_rows);
        if (!self.isNull())
            m_rows.focus(wizard::fieldsToCorrect(fault));
        return;
    }
    if (stored == wizard::Stored) {
        m_result = ResultStored;
        wizard::showStored(m_currentName);
    } else if (stored == NAPI_ERR_MEMORY_FULL) {
        wizard::showMemoryFull();
    } else {
        logPrint(support::LogError, "Network: Save profile data error!\n");
    }
    if (!self.isNull())
        hide();
}
