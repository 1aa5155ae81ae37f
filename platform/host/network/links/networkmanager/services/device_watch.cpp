#include "network/links/networkmanager/services/device_watch.h"

#include <utility>

#include "network/links/networkmanager/services/service_names.h"
#include "network/links/networkmanager/services/signal_watch.h"

namespace network {

DeviceWatch::DeviceWatch(BusConnection& bus, const ServiceDevice& listed,
                         std::function<void()> changed)
    : m_bus(bus), m_changed(std::move(changed)), m_device(listed)
{
    m_device.ip4Config.clear(); // so that its addresses are asked for once it is told
    m_deviceSignals = listen(m_device.path, nm::device,
                             [this](const BusValue& properties) { readDevice(properties); });
    if (isModem())
        m_bus.listen(
            signalRule(mm::service, m_device.modem, mm::modem, "StateChanged"),
            [this](BusMessage& signal) { modemChanged(signal); }, &m_modemSignals);
    ask();
}

bool DeviceWatch::isModem() const
{
    return m_device.type == nm::Modem && !m_device.modem.empty();
}

// Hears of the properties of an interface of an object that change.
BusSlot DeviceWatch::listen(const std::string& path, const char* interface, Reader reader)
{
    std::string rule = signalRule(nm::service, path, propertiesInterface, "PropertiesChanged") +
                       ",arg0='" + interface + "'";
    BusSlot slot;
    m_bus.listen(
        rule,
        [reader](BusMessage& signal) {
            signal.next();
            reader(signal.next());
        },
        &slot);
    return slot;
}

void DeviceWatch::askFor(const std::string& path, const char* interface, Question* question,
                         Reader reader)
{
    BusCall call = m_bus.call({nm::service, path, propertiesInterface, "GetAll"});
    call.text(interface);
    auto handler = [question, reader](BusMessage& reply) {
        question->pending = false;
        if (!reply.isError())
            reader(reply.next());
    };
    question->pending = m_bus.send(call, handler, &question->answer) == 0;
}

// Many links may ask about one device; to ask again would take back the question before.
void DeviceWatch::ask()
{
    auto reader = [this](const BusValue& properties) {
        m_current = true;
        readDevice(properties);
    };
    if (!m_ofDevice.pending)
        askFor(m_device.path, nm::device, &m_ofDevice, reader);
    if (!m_ofConfig.pending)
        askConfig();
}

void DeviceWatch::readDevice(const BusValue& properties)
{
    std::string config = m_device.ip4Config;
    network::readDevice(properties, &m_device);
    const std::string& name = m_device.ipInterface;
    m_address.interface = isInterfaceName(name) ? name : "";
    if (m_device.ip4Config != config)
        listenToConfig();
    m_changed();
}

// The addresses of an activation are an object of their own.
void DeviceWatch::listenToConfig()
{
    m_address.address = 0;
    m_address.nameServers.clear();
    m_configSignals = BusSlot();
    if (!m_device.ip4Config.empty())
        m_configSignals = listen(m_device.ip4Config, nm::ip4Config,
                                 [this](const BusValue& properties) { readConfig(properties); });
    askConfig();
}

void DeviceWatch::askConfig()
{
    m_ofConfig = {};
    if (!m_device.ip4Config.empty())
        askFor(m_device.ip4Config, nm::ip4Config, &m_ofConfig,
               [this](const BusValue& properties) { readConfig(properties); });
}

void DeviceWatch::readConfig(const BusValue& properties)
{
    readIp4Config(properties, &m_address);
    m_changed();
}

void DeviceWatch::modemChanged(BusMessage& signal)
{
    signal.next(); // the state before
    m_modemState = static_cast<int32_t>(signal.next().toNumber());
    m_changed();
}

bool DeviceWatch::isModemConnected() const
{
    return m_modemState == mm::Connected;
}

bool DeviceWatch::isFree() const
{
    bool switchedOn = !isModem() || m_modemState >= mm::Enabled;
    return m_current && switchedOn && m_device.managed && m_device.state == nm::Disconnected;
}

} // namespace network
