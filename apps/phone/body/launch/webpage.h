// The page in which a browser shows the phone.
#ifndef PHONE_LAUNCH_WEBPAGE_H
#define PHONE_LAUNCH_WEBPAGE_H

#include <string>

namespace phone {

// A whole page in HTML. It finds noVNC in the folder core/ beside it, and the token behind the sign
// # of its address.
std::string webPage();

} // namespace phone

#endif
