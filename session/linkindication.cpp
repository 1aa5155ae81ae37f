#include "session/linkindication.h"

#include <string.h>

namespace session {

YLinkInfo linkInfo(const NapiIndication& message)
{
    YLinkInfo info = {};
    info.infoWord = message.infoWord;
    info.infoByte = message.infoByte;

    const size_t room = sizeof info.infoText - 1;
    const size_t start = offsetof(NapiIndication, infoText);
    static_assert(start + sizeof info.infoText - 1 <= sizeof message, "the text ends inside");
    const char* text = reinterpret_cast<const char*>(&message) + start;
    memcpy(info.infoText, text, strnlen(text, room));
    return info;
}

} // namespace session
