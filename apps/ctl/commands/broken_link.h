// Why a link broke.
#ifndef CTL_BROKEN_LINK_H
#define CTL_BROKEN_LINK_H

#include <string>

#include "napi.h"

namespace ctl {

// In words, from what is left of the link's device and address now, and from the idle time-out of
// the profile; the indication itself does not say: "the device wwan0 is gone".
std::string brokenReason(const NapiIndication& broken, const std::string& profile);

} // namespace ctl

#endif
