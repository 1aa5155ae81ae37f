// Where memory runs out.
#ifndef SUPPORT_MEMORY_H
#define SUPPORT_MEMORY_H

#include <new>

namespace support {

// What `act` returns, or what `otherwise` returns when memory has run out meanwhile: nobody who
// calls the library need expect an exception. Where the library is compiled without exceptions, the
// program ends when `new` finds no memory, as all of its programs do.
template <class Act, class Otherwise> auto withMemory(Act act, Otherwise otherwise)
{
#ifdef __cpp_exceptions
    try {
        return act();
    } catch (const std::bad_alloc&) {
        return otherwise();
    }
#else
    (void)otherwise;
    return act();
#endif
}

} // namespace support

#endif
