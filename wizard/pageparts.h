// What both pages are put together from.
#ifndef WIZARD_PAGEPARTS_H
#define WIZARD_PAGEPARTS_H

#include "wizard/rowtable.h"

class QObject;
class YFormContainer;
class YKbMainWidget;
class YOptionsMenu;
class YSoftKey;

namespace wizard {

// Gives the page its title-bar widget and an empty form. Result: the form, owned by the page.
YFormContainer* addForm(YKbMainWidget* page);

// A menu of one item, which calls `member` of the page; owned by the page.
YOptionsMenu* addOptionsMenu(YKbMainWidget* page, const PhoneText& item, const char* member);

// A bar with "Options" on the left, which opens the menu, and "Cancel" on the right, which calls
// `member` of the page; owned by the page.
YSoftKey* addSoftKeys(YKbMainWidget* page, YOptionsMenu* menu, const char* member);

// What the right key says and calls.
void offerCancel(YSoftKey* softKeys, QObject* page, const char* member);
void offerSave(YSoftKey* softKeys, QObject* page, const char* member);

} // namespace wizard

#endif
