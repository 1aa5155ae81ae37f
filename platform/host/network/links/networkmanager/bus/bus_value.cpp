#include "network/links/networkmanager/bus/bus_value.h"

#include <algorithm>

namespace network {

namespace {

const BusValue& none()
{
    static const BusValue value;
    return value;
}

} // namespace

BusValue BusValue::flag(bool value)
{
    BusValue made;
    made.m_kind = Kind::Flag;
    made.m_number = value;
    return made;
}

BusValue BusValue::number(uint64_t value)
{
    BusValue made;
    made.m_kind = Kind::Number;
    made.m_number = value;
    return made;
}

BusValue BusValue::text(std::string value)
{
    BusValue made;
    made.m_kind = Kind::Text;
    made.m_text = std::move(value);
    return made;
}

BusValue BusValue::list(std::vector<BusValue> elements)
{
    BusValue made;
    made.m_kind = Kind::List;
    made.m_elements = std::move(elements);
    return made;
}

BusValue BusValue::dictionary()
{
    BusValue made;
    made.m_kind = Kind::Dictionary;
    return made;
}

void BusValue::add(std::string key, BusValue value)
{
    m_keys.push_back(std::move(key));
    m_elements.push_back(std::move(value));
}

bool BusValue::toFlag(bool fallback) const
{
    return m_kind == Kind::Flag ? m_number != 0 : fallback;
}

uint64_t BusValue::toNumber(uint64_t fallback) const
{
    return m_kind == Kind::Number ? m_number : fallback;
}

const std::string& BusValue::toText() const
{
    return m_kind == Kind::Text ? m_text : none().m_text;
}

const BusValue& BusValue::at(std::size_t index) const
{
    return index < m_elements.size() ? m_elements[index] : none();
}

const BusValue& BusValue::at(const char* key) const
{
    auto found = std::find(m_keys.begin(), m_keys.end(), key);
    return found == m_keys.end() ? none()
                                 : m_elements[static_cast<std::size_t>(found - m_keys.begin())];
}

} // namespace network
