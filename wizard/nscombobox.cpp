#include "wizard/nscombobox.h"

#include "wizard/wifionly.h"

NSComboBox::NSComboBox(QWidget* parent, const char* name) : YComboBox(parent, name, true)
{
    setAutoResize(true);
}

NSComboBox::~NSComboBox() {}

void NSComboBox::keyPressEvent(QKeyEvent* event)
{
    if (isYEnabled() || !wizard::explainWifiOnly(event))
        YComboBox::keyPressEvent(event);
}
