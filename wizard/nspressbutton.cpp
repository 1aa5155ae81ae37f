#include "wizard/nspressbutton.h"

#include "support/log.h"
#include "wizard/wifionly.h"

// The toolkit's number for the look of a push button in a form.
static const int formPressButtonClass = 60;

NSPressButton::NSPressButton(QWidget* parent, const char* name)
    : YPressButton(parent, name, formPressButtonClass)
{}

NSPressButton::~NSPressButton() {}

void NSPressButton::keyPressEvent(QKeyEvent* event)
{
    support::logPrint(4, "click the exibition button\n");
    if (isYEnabled() || !wizard::explainWifiOnly(event))
        YPressButton::keyPressEvent(event);
}
