// Values of record fields as texts: one pair of functions serves showing, setting, export and
// import, so that nothing which is accepted in one place is refused in another.
#ifndef COMMON_VALUES_H
#define COMMON_VALUES_H

#include <optional>
#include <string>

#include "profile/fields.h"

namespace ctl {

// The field's value as the text that parseValue() takes. Addresses of 0 are "". Texts end at their
// NUL and may hold bytes that are no UTF-8.
std::string valueText(const Field& field, const NetworkProfile& record);

// The field's value for people: "-" for none, "15 min", "off". Secrets are "(set)" unless
// `secrets`.
std::string shownText(const Field& field, const NetworkProfile& record, bool secrets);

// What the field takes, in words: "0 to 65535".
std::string rangeText(const Field& field);

// Sets the field from a text. Nothing on success; on failure the reason, and the record is
// unchanged. The reason of a Secret does not repeat the text.
std::optional<std::string> parseValue(const Field& field, const std::string& text,
                                      NetworkProfile& record);

// The field's bytes in hexadecimal digits ("0a01"), of its own bits only; and back. parseHex()
// gives a reason on failure and leaves the record unchanged.
std::string hexText(const Field& field, const NetworkProfile& record);
std::optional<std::string> parseHex(const Field& field, const std::string& hex,
                                    NetworkProfile& record);

// True when parseValue() of valueText() gives back every bit of the field.
bool isPlain(const Field& field, const NetworkProfile& record);

} // namespace ctl

#endif
