#include "base/look_variables.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace base {

namespace {

constexpr int smallestSide = 160;
constexpr int largestSide = 4096;
constexpr std::size_t mostShown = 40; // characters of a value that is told

bool isOneOf(std::string_view value, std::initializer_list<std::string_view> words)
{
    return std::find(words.begin(), words.end(), value) != words.end();
}

// A word, or the path of a theme file.
bool isTheme(std::string_view value)
{
    return isOneOf(value, {"light", "dark", "system"}) || value.find('/') != value.npos;
}

bool isAccent(std::string_view value)
{
    return isOneOf(value, {"blue", "plum", "teal"});
}

bool isTextSize(std::string_view value)
{
    return isOneOf(value, {"small", "normal", "large", "largest"});
}

bool isMotion(std::string_view value)
{
    return isOneOf(value, {"full", "reduced"});
}

bool isKeypad(std::string_view value)
{
    return isOneOf(value, {"0", "1"});
}

// A locale as POSIX writes it: language, then territory or script, encoding and modifier.
bool isLanguage(std::string_view value)
{
    const std::string_view locale = value.substr(0, value.find_first_of(".@"));
    const std::string_view language = locale.substr(0, locale.find_first_of("_-"));
    return isOneOf(language, {"en", "ar", "de", "es", "fr", "ja", "pt", "ru", "zh", "C", "POSIX"});
}

bool isBody(std::string_view value)
{
    return isOneOf(value, {"desk", "screen", "web"});
}

bool isScreen(std::string_view value)
{
    int width = 0;
    int height = 0;
    return readScreenSize(value, width, height);
}

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

// Digits alone, at most four, so that no side overflows.
bool readSide(std::string_view text, int& side)
{
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, side);
    return !text.empty() && text.size() <= 4 && text[0] != '-' && error == std::errc() &&
           stop == end && side >= smallestSide && side <= largestSide;
}

} // namespace

const std::array<LookVariable, 8> lookVariables = {{
    {"VORN_THEME", "light, dark, system or the path of a theme file", isTheme},
    {"VORN_ACCENT", "blue, plum or teal", isAccent},
    {"VORN_TEXT_SIZE", "small, normal, large or largest", isTextSize},
    {"VORN_MOTION", "full or reduced", isMotion},
    {"VORN_LANG", "en, ar, de, es, fr, ja, pt, ru, zh_CN or zh_TW", isLanguage},
    {"VORN_KEYPAD", "0 or 1", isKeypad},
    {"VORN_SCREEN", "WIDTHxHEIGHT, each 160 to 4096, for instance 240x320", isScreen},
    {"VORN_BODY", "desk, screen or web", isBody},
}};

std::string lookValue(std::string_view name)
{
    for (const LookVariable& known : lookVariables)
        if (known.name == name && known.isKnown(variable(known.name)))
            return std::string(variable(known.name));
    return {};
}

std::string lookComplaint(const LookVariable& known)
{
    const std::string_view value = variable(known.name);
    if (value.empty() || known.isKnown(value))
        return {};
    std::string shown(value.substr(0, mostShown));
    std::replace_if(
        shown.begin(), shown.end(), [](char letter) { return letter < ' ' || letter > '~'; }, '?');
    if (value.size() > mostShown)
        shown += "...";
    return std::string(known.name) + "=" + shown + " is ignored; it may be " + known.known;
}

bool readScreenSize(std::string_view text, int& width, int& height)
{
    const std::size_t by = text.find('x');
    int sides[2] = {};
    if (by == text.npos || !readSide(text.substr(0, by), sides[0]) ||
        !readSide(text.substr(by + 1), sides[1]))
        return false;
    width = sides[0];
    height = sides[1];
    return true;
}

} // namespace base
