// IPv4 addresses as texts and as numbers. The number has the first dotted part in its most
// significant byte: 192.168.0.1 is 0xC0A80001.
#ifndef SUPPORT_IPV4_H
#define SUPPORT_IPV4_H

#include <qstring.h>

namespace support {

// Reads a dotted address: blanks around it are dropped, the rest is split at '.', empty parts are
// skipped ("1..2.3.4" is 1.2.3.4), and there must be four parts left, each a number that
// support::toUInt32 reads, 255 at most; so 010 is ten. Returns whether the text is such an address;
// `*address` changes only then.
bool ipv4FromText(const QString& text, unsigned int* address);

// The address as four decimal numbers without leading zeros, for example "10.0.0.1".
QString ipv4ToText(unsigned int address);

} // namespace support

#endif
