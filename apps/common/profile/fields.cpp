#include "profile/fields.h"

#include <cstring>

namespace ctl {

namespace {

const Choice preferences[] = {{"unset", 0},
                              {"wifi-only", NAPI_PREFER_WIFI_ONLY >> 8},
                              {"wifi-then-cellular", NAPI_PREFER_WIFI_THEN_CELLULAR >> 8},
                              {"cellular-only", NAPI_PREFER_CELLULAR_ONLY >> 8},
                              {nullptr, 0}};

const Choice policies[] = {{"data", 0}, {"voice", 1}, {nullptr, 0}};

// Bearer speeds of +CBST (3GPP TS 27.007, clause 6.7): V.32 and V.34 modems, and V.110 for ISDN.
const Choice speeds[] = {{"auto", 0},       {"modem-14400", 14}, {"modem-9600", 7},
                         {"modem-4800", 6}, {"modem-2400", 4},   {"isdn-14400", 75},
                         {"isdn-9600", 71}, {"isdn-4800", 70},   {"isdn-2400", 68},
                         {nullptr, 0}};

constexpr uint32_t u8 = 0xFF, u16 = 0xFFFF, u32 = 0xFFFFFFFF;

// A member's place and width follow from its declaration, which is pinned to the stored format.
#define PLACE(member) offsetof(NetworkProfile, member), sizeof(NetworkProfile::member)

const std::array<Field, fieldCount> table = {{
    {"preference", "Connection preference", Kind::Choice, PLACE(flags), NAPI_PREFER_MASK, 8,
     preferences},
    {"apn", "GPRS APN", Kind::Text, PLACE(gprsApn), 0, 0, nullptr},
    {"user", "GPRS user name", Kind::Text, PLACE(gprsUserName), 0, 0, nullptr},
    {"password", "GPRS password", Kind::Secret, PLACE(gprsPassword), 0, 0, nullptr},
    {"dns1", "GPRS DNS 1", Kind::Address, PLACE(gprsDns1), u32, 0, nullptr},
    {"dns2", "GPRS DNS 2", Kind::Address, PLACE(gprsDns2), u32, 0, nullptr},
    {"timeout", "GPRS time-out", Kind::Minutes, PLACE(gprsTimeout), u16, 0, nullptr},
    {"qos", "Quality of service policy", Kind::Choice, PLACE(qosPolicy), u8, 0, policies},
    {"proxy1", "Proxy 1", Kind::Text, PLACE(proxy1), 0, 0, nullptr},
    {"port1", "Port 1", Kind::Port, PLACE(port1), u16, 0, nullptr},
    {"domain1", "Domain 1", Kind::Text, PLACE(domain1), 0, 0, nullptr},
    {"proxy2", "Proxy 2", Kind::Text, PLACE(proxy2), 0, 0, nullptr},
    {"port2", "Port 2", Kind::Port, PLACE(port2), u16, 0, nullptr},
    {"domain2", "Domain 2", Kind::Text, PLACE(domain2), 0, 0, nullptr},
    {"csd-number", "CSD number", Kind::Text, PLACE(csdNumber), 0, 0, nullptr},
    {"csd-user", "CSD user name", Kind::Text, PLACE(csdUserName), 0, 0, nullptr},
    {"csd-password", "CSD password", Kind::Secret, PLACE(csdPassword), 0, 0, nullptr},
    {"csd-dns1", "CSD DNS 1", Kind::Address, PLACE(csdDns1), u32, 0, nullptr},
    {"csd-dns2", "CSD DNS 2", Kind::Address, PLACE(csdDns2), u32, 0, nullptr},
    {"csd-timeout", "CSD time-out", Kind::Minutes, PLACE(csdTimeout), u16, 0, nullptr},
    {"csd-speed", "CSD speed", Kind::Choice, PLACE(csdSpeed), u8, 0, speeds},
    {"stored-mark", "", Kind::Mark, PLACE(storedMark), u8, 0, nullptr},
    {"kept0", "", Kind::Kept, PLACE(kept0), u8, 0, nullptr},
    {"kept2", "", Kind::Kept, PLACE(kept2), 0, 0, nullptr},
    {"flags", "", Kind::Kept, PLACE(flags), ~uint32_t(NAPI_PREFER_MASK), 0, nullptr},
    {"kept308", "", Kind::Kept, PLACE(kept308), 0, 0, nullptr},
    {"kept322", "", Kind::Kept, PLACE(kept322), 0, 0, nullptr},
    {"kept553", "", Kind::Kept, PLACE(kept553), 0, 0, nullptr},
    {"kept570", "", Kind::Kept, PLACE(kept570), u8, 0, nullptr},
    {"kept572", "", Kind::Kept, PLACE(kept572), 0, 0, nullptr},
    {"kept962", "", Kind::Kept, PLACE(kept962), u8, 0, nullptr},
    {"kept1063", "", Kind::Kept, PLACE(kept1063), u8, 0, nullptr},
    {"kept1166", "", Kind::Kept, PLACE(kept1166), 0, 0, nullptr},
}};

#undef PLACE

// The record is little-endian wherever it is read.
uint32_t littleEndian(const unsigned char* bytes, std::size_t width)
{
    uint32_t value = 0;
    for (std::size_t i = width; i-- > 0;)
        value = value << 8 | bytes[i];
    return value;
}

} // namespace

const std::array<Field, fieldCount>& fields()
{
    return table;
}

const Field* findField(const char* name)
{
    for (const Field& field : table)
        if (std::strcmp(field.name, name) == 0)
            return &field;
    return nullptr;
}

bool isVisible(const Field& field)
{
    return field.kind != Kind::Mark && field.kind != Kind::Kept;
}

const unsigned char* bytesOf(const Field& field, const NetworkProfile& record)
{
    return reinterpret_cast<const unsigned char*>(&record) + field.offset;
}

unsigned char* bytesOf(const Field& field, NetworkProfile& record)
{
    return reinterpret_cast<unsigned char*>(&record) + field.offset;
}

uint32_t numberOf(const Field& field, const NetworkProfile& record)
{
    return (littleEndian(bytesOf(field, record), field.width) & field.mask) >> field.shift;
}

void setNumber(const Field& field, uint32_t value, NetworkProfile& record)
{
    unsigned char* bytes = bytesOf(field, record);
    const uint32_t others = littleEndian(bytes, field.width) & ~field.mask;
    uint32_t whole = others | ((value << field.shift) & field.mask);
    for (std::size_t i = 0; i < field.width; ++i, whole >>= 8)
        bytes[i] = static_cast<unsigned char>(whole);
}

} // namespace ctl
