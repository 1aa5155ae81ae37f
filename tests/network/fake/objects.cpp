#include "network/fake/objects.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include <gtest/gtest.h>

namespace fakebus {

Service::Service(const std::string& name, const std::string& manager)
    : m_name(name), m_manager(manager)
{
    arrive();
}

void Service::arrive()
{
    ASSERT_GE(sd_bus_new(&m_bus), 0);
    sd_bus_set_address(m_bus, std::getenv("DBUS_SYSTEM_BUS_ADDRESS"));
    sd_bus_set_bus_client(m_bus, 1);
    ASSERT_GE(sd_bus_start(m_bus), 0);
    sd_bus_add_filter(m_bus, nullptr, received, this);
    ASSERT_GE(sd_bus_request_name(m_bus, m_name.c_str(), 0), 0) << m_name;
}

void Service::leave()
{
    sd_bus_close(m_bus);
    m_bus = sd_bus_unref(m_bus);
}

int Service::descriptor() const
{
    return m_bus ? sd_bus_get_fd(m_bus) : -1;
}

void Service::work()
{
    while (m_bus && sd_bus_process(m_bus, nullptr) > 0) {
    }
    // A bus that has hung up stays so; waiting for it would never end.
    if (m_bus && sd_bus_is_open(m_bus) <= 0)
        leave();
    if (m_bus)
        sd_bus_flush(m_bus);
}

void Service::silence(const std::string& member)
{
    on(member, [](sd_bus_message*) { return 0; });
}

void Service::refuse(const std::string& member, const std::string& error, const std::string& text)
{
    on(member, [=](sd_bus_message* call) {
        return sd_bus_reply_method_errorf(call, error.c_str(), "%s", text.c_str());
    });
}

std::size_t Service::countOf(const std::string& member) const
{
    return static_cast<std::size_t>(std::count(m_calls.begin(), m_calls.end(), member));
}

int Service::received(sd_bus_message* message, void* service, sd_bus_error*)
{
    if (sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0)
        return 0;
    int result = static_cast<Service*>(service)->answer(message);
    if (result < 0)
        sd_bus_reply_method_errorf(message, SD_BUS_ERROR_INVALID_ARGS, "not understood: %d",
                                   result);
    return 1;
}

int Service::answer(sd_bus_message* call)
{
    std::string member = sd_bus_message_get_member(call);
    const char* interface = sd_bus_message_get_interface(call);
    if (!interface || std::string(interface).rfind("org.freedesktop.DBus.", 0) != 0)
        m_calls.push_back(member);
    auto handler = m_handlers.find(member);
    if (handler != m_handlers.end())
        return handler->second(call);
    if (member == "Get")
        return answerGet(call);
    if (member == "GetAll")
        return answerGetAll(call);
    if (member == "GetManagedObjects")
        return answerManaged(call);
    return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_METHOD, "no %s", member.c_str());
}

int Service::answerGet(sd_bus_message* call)
{
    const char* interface = nullptr;
    const char* property = nullptr;
    int result = sd_bus_message_read(call, "ss", &interface, &property);
    if (result < 0)
        return result;
    auto object = objects.find(sd_bus_message_get_path(call));
    if (object == objects.end())
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_OBJECT, "no such object");
    const Dictionary& all = object->second[interface];
    auto found = all.find(property);
    if (found == all.end())
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_PROPERTY, "no %s", property);
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_open_container(reply, 'v', found->second.type.c_str());
    found->second.append(reply);
    sd_bus_message_close_container(reply);
    result = sd_bus_send(m_bus, reply, nullptr);
    sd_bus_message_unref(reply);
    return result;
}

int Service::answerGetAll(sd_bus_message* call)
{
    const char* interface = nullptr;
    int result = sd_bus_message_read(call, "s", &interface);
    if (result < 0)
        return result;
    auto object = objects.find(sd_bus_message_get_path(call));
    if (object == objects.end())
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_OBJECT, "no such object");
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    appendDictionary(reply, object->second[interface]);
    result = sd_bus_send(m_bus, reply, nullptr);
    sd_bus_message_unref(reply);
    return result;
}

int Service::answerManaged(sd_bus_message* call)
{
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_open_container(reply, 'a', "{oa{sa{sv}}}");
    for (const auto& [path, interfaces] : objects) {
        sd_bus_message_open_container(reply, 'e', "oa{sa{sv}}");
        sd_bus_message_append(reply, "o", path.c_str());
        appendSettings(reply, interfaces);
        sd_bus_message_close_container(reply);
    }
    sd_bus_message_close_container(reply);
    int result = sd_bus_send(m_bus, reply, nullptr);
    sd_bus_message_unref(reply);
    return result;
}

void Service::change(const std::string& object, const std::string& interface,
                     const std::string& property, Value value)
{
    objects[object][interface][property] = value;
    emit(object, "org.freedesktop.DBus.Properties", "PropertiesChanged",
         [&](sd_bus_message* message) {
             sd_bus_message_append(message, "s", interface.c_str());
             appendDictionary(message, {{property, value}});
             return sd_bus_message_append(message, "as", 0);
         });
}

void Service::remove(const std::string& object)
{
    Interfaces interfaces = objects[object];
    objects.erase(object);
    emit(m_manager, "org.freedesktop.DBus.ObjectManager", "InterfacesRemoved",
         [&](sd_bus_message* message) {
             sd_bus_message_append(message, "o", object.c_str());
             sd_bus_message_open_container(message, 'a', "s");
             for (const auto& [name, properties] : interfaces)
                 sd_bus_message_append(message, "s", name.c_str());
             return sd_bus_message_close_container(message);
         });
}

void Service::emit(const std::string& object, const std::string& interface,
                   const std::string& member, const std::function<int(sd_bus_message*)>& append)
{
    if (!m_bus)
        return;
    sd_bus_message* message = nullptr;
    sd_bus_message_new_signal(m_bus, &message, object.c_str(), interface.c_str(), member.c_str());
    EXPECT_GE(append(message), 0) << member;
    EXPECT_GE(sd_bus_send(m_bus, message, nullptr), 0) << member;
    sd_bus_message_unref(message);
}

} // namespace fakebus
