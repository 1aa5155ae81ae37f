// What a message of the bus carries, read into memory: a truth value, a number, a text, a list, or
// a dictionary. Whoever reads a reply asks for what he expects; anything else reads as absent.
#ifndef NETWORK_NETWORKMANAGER_BUS_VALUE_H
#define NETWORK_NETWORKMANAGER_BUS_VALUE_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace network {

class BusValue
{
public:
    enum class Kind { None, Flag, Number, Text, List, Dictionary };

    BusValue() = default;
    static BusValue flag(bool value);
    static BusValue number(uint64_t value);
    static BusValue text(std::string value); // also an object path, a signature, or bytes
    static BusValue list(std::vector<BusValue> elements);

    // A dictionary begins empty; a later entry of the same key is never seen.
    static BusValue dictionary();
    void add(std::string key, BusValue value);

    Kind kind() const { return m_kind; }

    // The value where it is of the kind, else the fallback.
    bool toFlag(bool fallback = false) const;
    uint64_t toNumber(uint64_t fallback = 0) const;
    const std::string& toText() const; // "" as the fallback

    // The elements of a list or the values of a dictionary; of anything else, none.
    const std::vector<BusValue>& elements() const { return m_elements; }
    const BusValue& at(std::size_t index) const; // none behind the end

    // Of a dictionary: keys in the order of elements(), and the value of one key or none.
    const std::vector<std::string>& keys() const { return m_keys; }
    const BusValue& at(const char* key) const;

private:
    Kind m_kind = Kind::None;
    uint64_t m_number = 0;
    std::string m_text;
    std::vector<BusValue> m_elements;
    std::vector<std::string> m_keys;
};

} // namespace network

#endif
