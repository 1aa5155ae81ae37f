// The list of profile names as the network API fills it: one slot after the other, without a
// header.
#ifndef PROFILES_NAMESLOTS_H
#define PROFILES_NAMESLOTS_H

#include <cstddef>

#include <napi.h>
#include <qstring.h>

namespace profiles {

// Stores the size in bytes of a buffer for `count` names; whether a buffer can be that large.
bool slotsSize(unsigned int count, std::size_t* size);

// The name in slot `index` of a buffer: up to its NUL, or the whole slot when it has none. A byte
// that belongs to no well-formed UTF-8 sequence gives one U+FFFD.
QString slotName(const char* buffer, unsigned int index);

} // namespace profiles

#endif
