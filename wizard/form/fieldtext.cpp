#include "wizard/form/fieldtext.h"

#include <string.h>
#include <string>

#include "support/ipv4.h"
#include "support/log.h"
#include "support/number.h"
#include "support/text.h"

namespace wizard {

QString textOfField(const char* field, std::size_t width)
{
    return support::fromUtf8(field, int(strnlen(field, width)));
}

void storeText(const QString& text, char* field, std::size_t width)
{
    const std::string bytes = support::utf8(text);
    const std::size_t length = strnlen(bytes.c_str(), width);
    memcpy(field, bytes.c_str(), length);
    memset(field + length, 0, width - length);
}

namespace {

// One reading of addresses for checking and for storing: what passes the check is stored.
bool readAddress(const QString& text, unsigned int* address)
{
    if (text.isEmpty()) {
        *address = 0;
        return true;
    }
    return support::ipv4FromText(text, address);
}

} // namespace

void storeAddress(const QString& text, unsigned int* address)
{
    if (!readAddress(text, address))
        support::logPrint(support::LogError, "Wrong IP address\n");
}

bool isAddressOrEmpty(const QString& text)
{
    unsigned int address = 0;
    return readAddress(text, &address);
}

unsigned short portOf(const QString& text)
{
    return static_cast<unsigned short>(support::toUInt32(text));
}

} // namespace wizard
