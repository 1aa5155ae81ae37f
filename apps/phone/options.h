// What the command line asks for.
#ifndef PHONE_OPTIONS_H
#define PHONE_OPTIONS_H

#include "body/body.h"

namespace phone {

struct Options
{
    BodyOptions body;

    // Reads the command line. False when the program ends at once, with `*status`; what there was
    // to say is said.
    bool read(int argc, char** argv, int* status);
};

} // namespace phone

#endif
