// What the keys and values of the two files may be.
#include <charconv>
#include <climits>

#include "base/utf8.h"
#include "settings/settings_files.h"

namespace settingsfiles {

using base::JsonKind;
using base::JsonValue;
using settingshost::Setting;

const char settingExpected[] =
    "an integer from -2147483648 to 2147483647, a text without NUL or a truth value";
const char featureExpected[] = "true or false";

namespace {

const KnownNode knownNodes[] = {
    {"DefConnPrefer", 0, 2, "0 (WiFi, then cellular), 1 (WiFi only) or 2 (cellular only)", "0"},
};

} // namespace

const KnownNode* knownNode(const std::string& name)
{
    for (const KnownNode& node : knownNodes)
        if (name == node.name)
            return &node;
    return nullptr;
}

bool isNodeName(const std::string& text)
{
    return !text.empty() && text.size() <= 255 && !base::hasControls(text) && base::isUtf8(text);
}

bool isNodeText(const std::string& text)
{
    return text.size() <= 4096 && text.find('\0') == std::string::npos && base::isUtf8(text);
}

int featureNumber(const std::string& key)
{
    int number = 0;
    const char* end = key.data() + key.size();
    const std::from_chars_result parsed = std::from_chars(key.data(), end, number);
    const bool isWhole = parsed.ec == std::errc() && parsed.ptr == end;
    return isWhole && number > 0 && key.front() != '0' ? number : 0;
}

std::optional<Setting> settingOf(const JsonValue& value)
{
    Setting setting;
    switch (value.kind()) {
    case JsonKind::Integer:
        setting.type = Setting::Type::Integer;
        if (const long long wide = value.integer(LLONG_MIN, LLONG_MAX, 0);
            wide < INT_MIN || wide > INT_MAX)
            return {};
        else
            setting.integer = static_cast<int>(wide);
        return setting;
    case JsonKind::Text:
        setting.type = Setting::Type::Text;
        setting.text = value.text({});
        if (setting.text.find('\0') != std::string::npos)
            return {};
        return setting;
    case JsonKind::Boolean:
        setting.type = Setting::Type::Boolean;
        setting.boolean = value.boolean(false);
        return setting;
    case JsonKind::Absent:
    case JsonKind::Null:
    case JsonKind::Number:
    case JsonKind::Array:
    case JsonKind::Object:
        break;
    }
    return {};
}

std::optional<bool> featureOf(const JsonValue& value)
{
    if (value.kind() == JsonKind::Boolean)
        return value.boolean(false);
    return {};
}

} // namespace settingsfiles
