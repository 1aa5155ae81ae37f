#include "wizard/nseditbox.h"

#include "wizard/wifionly.h"

// The toolkit's number for the look of a line edit in a form.
static const int formLineEditClass = 39;

NSEditBox::NSEditBox(QWidget* parent, const char* name) : YLineEdit(parent, name, formLineEditClass)
{}

NSEditBox::~NSEditBox() {}

void NSEditBox::keyPressEvent(QKeyEvent* event)
{
    if (isYEnabled() || !wizard::explainWifiOnly(event))
        YLineEdit::keyPressEvent(event);
}
