// The fields of a profile record as one table: names, places, kinds and limits. Everything that
// shows, sets, exports or imports a record is one loop over it.
#ifndef COMMON_FIELDS_H
#define COMMON_FIELDS_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "napi.h"

namespace ctl {

enum class Kind {
    Text,    // UTF-8 of at most `width` bytes
    Secret,  // as Text, shown only on demand and never taken from the command line
    Address, // IPv4 address, 0 for none
    Minutes, // idle time-out, 0 for none
    Port,    // 0 for none
    Choice,  // a code with a name for each usual value
    Mark,    // a byte that the editors set to 1; exported and imported, else out of sight
    Kept     // bits of the network API, exported and imported, else out of sight
};

struct Choice
{
    const char* text;
    uint32_t value;
};

struct Field
{
    const char* name;  // on the command line and in JSON
    const char* label; // for people
    Kind kind;
    std::size_t offset;
    std::size_t width;     // in bytes
    uint32_t mask;         // of a number: its bits
    unsigned shift;        // of a number: the place of its lowest bit
    const Choice* choices; // ended by a null text
};

constexpr std::size_t fieldCount = 33;

// In the order of being shown.
const std::array<Field, fieldCount>& fields();

// The field of this name; null when there is none.
const Field* findField(const char* name);

// True for the fields that people see and set.
bool isVisible(const Field& field);

// A field that is a number: its value, moved down to bit 0.
uint32_t numberOf(const Field& field, const NetworkProfile& record);
void setNumber(const Field& field, uint32_t value, NetworkProfile& record);

// The bytes of a field in the record.
const unsigned char* bytesOf(const Field& field, const NetworkProfile& record);
unsigned char* bytesOf(const Field& field, NetworkProfile& record);

} // namespace ctl

#endif
