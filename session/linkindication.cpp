#include "session/linkindication.h"

#include <cstddef>
#include <string.h>

namespace session {

// Applications are compiled with this layout.
static_assert(offsetof(YLinkInfo, infoWord) == 0, "applications rely on the place");
static_assert(offsetof(YLinkInfo, infoByte) == 4, "applications rely on the place");
static_assert(offsetof(YLinkInfo, infoText) == 8, "applications rely on the place");
static_assert(sizeof(YLinkInfo) == 112, "applications rely on the size");

YLinkInfo linkInfo(const NapiIndication& message)
{
    YLinkInfo info = {};
    info.infoWord = message.infoWord;
    info.infoByte = message.infoByte;

    const std::size_t room = sizeof info.infoText - 1;
    const std::size_t start = offsetof(NapiIndication, infoText);
    static_assert(start + sizeof info.infoText - 1 <= sizeof message, "the text ends inside");
    const char* text = reinterpret_cast<const char*>(&message) + start;
    memcpy(info.infoText, text, strnlen(text, room));
    return info;
}

} // namespace session
