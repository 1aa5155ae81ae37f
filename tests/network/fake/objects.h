// A service on the bus that is nothing but data: objects with interfaces and properties, and what
// it answers to calls. It is played by the test's own thread, so nothing happens on it by itself.
#ifndef TESTS_FAKE_OBJECTS_H
#define TESTS_FAKE_OBJECTS_H

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "network/fake/value.h"

namespace fakebus {

// Objects by their paths, with the properties of their interfaces.
using Interfaces = std::map<std::string, Dictionary>;
using Objects = std::map<std::string, Interfaces>;

class Service
{
public:
    // `manager` is the object that tells of all others (org.freedesktop.DBus.ObjectManager).
    Service(const std::string& name, const std::string& manager);
    ~Service() { leave(); }
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    // Answers a call; a result below 0 says that the call was not understood.
    using Handler = std::function<int(sd_bus_message* call)>;

    Objects objects;

    // Calls of a member, of whatever object and interface. Without a handler a call is answered
    // with UnknownMethod.
    void on(const std::string& member, Handler handler) { m_handlers[member] = std::move(handler); }

    // Calls of this member get no answer, or an error. Also for "Get", "GetAll" and
    // "GetManagedObjects", which need no handler.
    void silence(const std::string& member);
    void refuse(const std::string& member, const std::string& error, const std::string& text = "");

    // Changes a property and tells so.
    void change(const std::string& object, const std::string& interface,
                const std::string& property, Value value);
    void remove(const std::string& object); // and tells so

    // Any other signal.
    void emit(const std::string& object, const std::string& interface, const std::string& member,
              const std::function<int(sd_bus_message*)>& append);

    void leave();  // the process is gone from the bus
    void arrive(); // and is back, under another unique name
    bool isThere() const { return m_bus != nullptr; }

    // Calls that were received, in their order: member names, without the standard interfaces'.
    const std::vector<std::string>& calls() const { return m_calls; }
    std::size_t countOf(const std::string& member) const;

    // The answer to "GetManagedObjects", for a handler that counts.
    int answerManaged(sd_bus_message* call);

    int descriptor() const;
    void work(); // answers whatever has come

private:
    static int received(sd_bus_message* message, void* service, sd_bus_error*);
    int answer(sd_bus_message* call);
    int answerGet(sd_bus_message* call);
    int answerGetAll(sd_bus_message* call);

    std::string m_name;
    std::string m_manager;
    sd_bus* m_bus = nullptr;
    std::map<std::string, Handler> m_handlers;
    std::vector<std::string> m_calls;
};

} // namespace fakebus

#endif
