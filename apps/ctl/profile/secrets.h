// Passwords on their way in: from a prompt that shows nothing, from the standard input, or from a
// file; never from the command line, which every user of the machine can read.
#ifndef CTL_SECRETS_H
#define CTL_SECRETS_H

#include "line/request.h"
#include "napi.h"

namespace ctl {

// Puts the passwords that the request asks for into the record. Throws Failure: Exit::Password when
// none can be read, Exit::Usage when one does not fit its field.
void takePasswords(const Request& request, NetworkProfile& record);

// Copies the passwords that takePasswords() has put into `taken`, and leaves the others.
void copyPasswords(const Request& request, const NetworkProfile& taken, NetworkProfile& record);

} // namespace ctl

#endif
