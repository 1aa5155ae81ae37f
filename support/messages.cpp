#include "support/messages.h"

#include <atomic>

#include "support/qt.h"

namespace support {

static std::atomic<MessageHandler> current(nullptr);
static qt::InstalledHandler before = nullptr;

static void deliver(int type, const char* text)
{
    if (MessageHandler handler = current)
        handler(type, text);
}

MessageHandler captureMessages(MessageHandler handler)
{
    const MessageHandler replaced = current.exchange(handler);
    if (handler && !replaced)
        before = qt::installHandler<deliver>();
    else if (!handler && replaced)
        qt::restoreHandler(before);
    return replaced;
}

} // namespace support
