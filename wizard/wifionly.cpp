#include "wizard/wifionly.h"

#include <qevent.h>
#include <qnamespace.h>

#include "wizard/messages.h"

namespace wizard {

bool explainWifiOnly(const QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return false;
    showWifiOnly();
    return true;
}

} // namespace wizard
