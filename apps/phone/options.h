// What the command line asks for.
#ifndef PHONE_OPTIONS_H
#define PHONE_OPTIONS_H

#include <string>

#include "body/body.h"

namespace phone {

struct Options
{
    BodyOptions body;
    std::string tour; // the folder of the tour's pictures; "" for no tour
    std::string log;  // the file of the library's log; "" for the usual one

    // Reads the command line. False when the program ends at once, with `*status`; what there was
    // to say is said.
    bool read(int argc, char** argv, int* status);
};

} // namespace phone

#endif
