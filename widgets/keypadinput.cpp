#include "widgets/keypadinput.h"

#include <qstring.h>

#include <yapplication.h>

namespace widgets {

namespace {

const char keypadMethod[] = "{637a8c00-1098-42ca-969a-2bf163cd3c14}";

} // namespace

// The call goes to the application object, so that it may be one of its members, as on the phone,
// or a static function, as on the host, where the object need not be a YApplication; hence the way
// through void. Both have one address, because a QObject comes first among the bases.
void useKeypad(QWidget* field, toolkit::InputMode mode)
{
    YApplication* const application = static_cast<YApplication*>(static_cast<void*>(qApp));
    application->setInputMethod(field, keypadMethod, mode, QString());
}

} // namespace widgets
