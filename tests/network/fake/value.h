// Values as they go over the bus, of any type, right or wrong.
#ifndef TESTS_FAKE_VALUE_H
#define TESTS_FAKE_VALUE_H

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <systemd/sd-bus.h>

namespace fakebus {

// A value of one complete type, ready to be put into a message as a variant.
struct Value
{
    std::string type;
    std::function<int(sd_bus_message*)> append;
};

Value text(const std::string& value);
Value path(const std::string& value);
Value paths(const std::vector<std::string>& values);
Value flag(bool value);
Value number(uint32_t value);
Value integer(int32_t value);
Value byte(uint8_t value);
Value bytes(const std::string& value);
Value two(uint32_t first, uint32_t second);                          // (uu)
Value twoTexts(const std::string& first, const std::string& second); // (ss)
Value signal(uint32_t percent, bool recent);                         // (ub)

// aa{sv}: one dictionary for each text, with the text under the key "address".
Value addresses(const std::vector<std::string>& values);

// The names of values: a{sv}.
using Dictionary = std::map<std::string, Value>;
Value dictionary(const Dictionary& values);
int appendDictionary(sd_bus_message* message, const Dictionary& values);

// A connection of NetworkManager: a{sa{sv}}.
using Settings = std::map<std::string, Dictionary>;
int appendSettings(sd_bus_message* message, const Settings& settings);

// A received connection as texts, by "section.key": numbers in decimal, truth values "true" and
// "false", lists with blanks between.
using Told = std::map<std::string, std::string>;
int readSettings(sd_bus_message* message, Told* told);

// A received a{sv}, by its keys.
int readDictionary(sd_bus_message* message, const std::string& prefix, Told* told);

} // namespace fakebus

#endif
