#include "wizard/dataconnection_newwiz2.h"

#include <initializer_list>

// Nothing here opens a port of the log; the phone's library has one in this place, and gives it
// back when it is unloaded.
#include <applogport.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <ylineedit.h>

#include "support/toolkitnumbers.h"
#include "wizard/dataconnection_newwiz1.h"
#include "wizard/pageparts.h"
#include "wizard/pagerows.h"

using wizard::Choice;
using wizard::Text;

namespace {

const int automaticSpeed = 0;

} // namespace

DataConnection_NewWiz2::DataConnection_NewWiz2(DataConnection_NewWiz1* firstPage, QWidget* parent,
                                               const char* objectName, unsigned int flags)
    : YKbMainWidget(parent, objectName, flags),
      m_page1(firstPage),
      m_form(nullptr),
      m_softKeys(nullptr),
      m_saved(false)
{
    setMorphMode(toolkit::FormMorph);
    setMainWidgetTitle(tr("TXT_RID_HEADER_ADDITIONAL_SETTINGS", "Additional Settings"));
    m_form = wizard::addForm(this);
    for (const wizard::Row& row : wizard::page2Rows)
        wizard::addRow(row, m_form, m_page1->formRows());
    YOptionsMenu* menu =
        wizard::addOptionsMenu(this, {"TXT_RID_OPTION_CANCEL", "Cancel"}, SLOT(slotGotoPrevious()));
    m_softKeys = wizard::addSoftKeys(this, menu, SLOT(slotGotoPrevious()));
    connectContentSignals();
}

DataConnection_NewWiz2::~DataConnection_NewWiz2()
{
    if (m_page1)
        m_page1->losePage2();
}

void DataConnection_NewWiz2::connectContentSignals()
{
    wizard::FormRows& rows = m_page1->formRows();
    QWidget* row = rows.edit(Text::Proxy2);
    for (int field = int(Text::Proxy2); field <= int(Text::CsdPassword); ++field) {
        QObject::connect(row, SIGNAL(textChanged(const QString&)), this,
                         SLOT(slotContentChanged(void)));
        row = m_form->getNextChild(row);
    }
    QObject::connect(rows.combo(Choice::CsdSpeed), SIGNAL(activated(int)), this,
                     SLOT(slotLineSpeedChanged(void)));
    for (Choice field : {Choice::LineType, Choice::CsdTimeout})
        QObject::connect(rows.combo(field), SIGNAL(activated(int)), this,
                         SLOT(slotContentChanged(void)));
    for (Text field : {Text::CsdDns1, Text::CsdDns2})
        QObject::connect(rows.edit(field), SIGNAL(textChanged(const QString&)), this,
                         SLOT(slotContentChanged(void)));
}

void DataConnection_NewWiz2::open()
{
    switchLineType();
    wizard::offerCancel(m_softKeys, this, SLOT(slotGotoPrevious()));
    show();
}

// With an automatic speed there is no line type to choose.
void DataConnection_NewWiz2::switchLineType()
{
    const wizard::FormRows& rows = m_page1->formRows();
    rows.combo(Choice::LineType)->setEnabled(rows.choice(Choice::CsdSpeed) != automaticSpeed);
}

void DataConnection_NewWiz2::slotGotoPrevious()
{
    m_page1->formRows().focus(Text::ProfileName);
    m_page1->show();
    hide();
}

void DataConnection_NewWiz2::slotCancelSetup()
{
    m_page1->slotGotoPrevious();
}

void DataConnection_NewWiz2::slotContentChanged()
{
    wizard::offerSave(m_softKeys, this, SLOT(slotSaveProfile()));
}

void DataConnection_NewWiz2::slotLineSpeedChanged()
{
    switchLineType();
    slotContentChanged();
}

void DataConnection_NewWiz2::slotSaveProfile()
{
    m_saved = true;
    m_page1->slotSaveProfile();
}
