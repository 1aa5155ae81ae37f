#include "profile/record.h"

#include <climits>

#include "profile/values.h"

namespace ctl {

namespace {

bool isZero(const Field& field, const NetworkProfile& record)
{
    return hexText(field, record).find_first_not_of('0') == std::string::npos;
}

// A number or a text as the text that parseValue() takes; nothing for anything else.
std::optional<std::string> plainText(const base::JsonValue& value)
{
    if (value.kind() == base::JsonKind::Integer)
        return std::to_string(value.integer(LLONG_MIN, LLONG_MAX, 0));
    if (value.kind() == base::JsonKind::Text)
        return value.text("");
    return {};
}

bool importField(const Field& field, const base::JsonValue& value, NetworkProfile& record)
{
    if (value.kind() == base::JsonKind::Object)
        return !parseHex(field, value.at("hex").text(""), record);
    const std::optional<std::string> text = plainText(value);
    return text && !parseValue(field, *text, record);
}

} // namespace

Json jsonValue(const Field& field, const NetworkProfile& record)
{
    switch (field.kind) {
    case Kind::Minutes:
    case Kind::Port:
    case Kind::Mark:
        return numberOf(field, record);
    case Kind::Text:
    case Kind::Secret:
    case Kind::Address:
    case Kind::Choice:
    case Kind::Kept:
        break;
    }
    return valueText(field, record);
}

Json describe(const std::string& name, const NetworkProfile& record, bool secrets)
{
    Json json = {{"name", name}};
    for (const Field& field : fields()) {
        if (!isVisible(field))
            continue;
        if (field.kind == Kind::Secret)
            json[std::string(field.name) + "-set"] = !valueText(field, record).empty();
        if (field.kind != Kind::Secret || secrets)
            json[field.name] = jsonValue(field, record);
    }
    return json;
}

Json exported(const std::string& name, const NetworkProfile& record, bool secrets)
{
    Json values = Json::object();
    for (const Field& field : fields()) {
        if (field.kind == Kind::Secret && !secrets)
            continue;
        if (!isVisible(field) && isZero(field, record))
            continue;
        if (isPlain(field, record))
            values[field.name] = jsonValue(field, record);
        else
            values[field.name] = {{"hex", hexText(field, record)}};
    }
    return {{"name", name}, {"fields", values}};
}

bool holdsPassword(const NetworkProfile& record)
{
    for (const Field& field : fields())
        if (field.kind == Kind::Secret && !valueText(field, record).empty())
            return true;
    return false;
}

NetworkProfile imported(const base::JsonValue& values, std::vector<base::JsonProblem>* problems)
{
    NetworkProfile record = {};
    for (const Field& field : fields()) {
        const base::JsonValue value = values.at(field.name);
        if (!value.present() || importField(field, value, record))
            continue;
        const bool isHex = value.kind() == base::JsonKind::Object;
        const std::string hex =
            "\"hex\" with " + std::to_string(2 * field.width) + " hexadecimal digits";
        const bool isSecret = field.kind == Kind::Secret;
        problems->push_back({value.line(), value.key(), isHex ? hex : rangeText(field),
                             isSecret ? "something else" : value.description(), ""});
    }
    return record;
}

} // namespace ctl
