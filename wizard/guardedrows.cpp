#include "wizard/guardedrows.h"

#include <qevent.h>
#include <qnamespace.h>

#include "support/log.h"
#include "support/toolkitnumbers.h"
#include "wizard/boxes.h"

namespace {

// Whether the key is used up.
bool explainWifiOnly(const QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return false;
    wizard::showWifiOnly();
    return true;
}

} // namespace

NSEditBox::NSEditBox(QWidget* parent, const char* name)
    : YLineEdit(parent, name, toolkit::FormLineEdit)
{}

NSEditBox::~NSEditBox() {}

void NSEditBox::keyPressEvent(QKeyEvent* event)
{
    if (isYEnabled() || !explainWifiOnly(event))
        YLineEdit::keyPressEvent(event);
}

NSComboBox::NSComboBox(QWidget* parent, const char* name) : YComboBox(parent, name, true)
{
    setAutoResize(true);
}

NSComboBox::~NSComboBox() {}

void NSComboBox::keyPressEvent(QKeyEvent* event)
{
    if (isYEnabled() || !explainWifiOnly(event))
        YComboBox::keyPressEvent(event);
}

NSPressButton::NSPressButton(QWidget* parent, const char* name)
    : YPressButton(parent, name, toolkit::FormPressButton)
{}

NSPressButton::~NSPressButton() {}

void NSPressButton::keyPressEvent(QKeyEvent* event)
{
    support::logPrint(support::LogError, "click the exibition button\n");
    if (isYEnabled() || !explainWifiOnly(event))
        YPressButton::keyPressEvent(event);
}
