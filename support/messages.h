// What Qt reports about its own use: a connection that cannot be made, a call that is refused.
#ifndef SUPPORT_MESSAGES_H
#define SUPPORT_MESSAGES_H

namespace support {

enum MessageType { MessageDebug = 0, MessageWarning = 1, MessageFatal = 2 };

// `type` is a MessageType; `text` is UTF-8 and belongs to the caller. Called in the thread that
// reports.
typedef void (*MessageHandler)(int type, const char* text);

// Has `handler` take every message from now on, instead of whoever took them before; null gives
// them back to the one who had them before the first handler. Returns the handler that it replaces,
// null for none.
MessageHandler captureMessages(MessageHandler handler);

} // namespace support

#endif
