// From the network API's indication message to the record that applications see.
#ifndef SESSION_LINKINDICATION_H
#define SESSION_LINKINDICATION_H

#include <napi.h>

#include "ylinkinfo.h"

namespace session {

// The link information of `message`. The text is taken up to its NUL. Senders always end it; were
// the NUL missing, the text would run on into the fields that follow, as far as the record has
// room: 103 bytes and a NUL.
YLinkInfo linkInfo(const NapiIndication& message);

} // namespace session

#endif
