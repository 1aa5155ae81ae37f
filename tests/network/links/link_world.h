// What the tests of the links stand on: a root of their own, profiles, a configuration, receivers.
#ifndef TESTS_LINK_WORLD_H
#define TESTS_LINK_WORLD_H

#include <chrono>
#include <cstring>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/temporary_folder.h"
#include "napi.h"

namespace linktest {

// A message as a test compares it: every field of the 112 bytes.
struct Message
{
    int type = 0;
    int link = 0;
    int kind = 0;
    std::string device;
    uint32_t address = 0;
    int cause = 0;
    int detail = 0;

    bool operator==(const Message& other) const;
};
std::ostream& operator<<(std::ostream& stream, const Message& message);

Message connected(int link, const std::string& device = "lo", uint32_t address = 0x7F000001,
                  int kind = 1);
Message failed(int link, int cause, int detail);
Message broken(int link, const std::string& device = "lo", uint32_t address = 0x7F000001,
               int kind = 1);

// One indication socket from NAPI_Init, with the NAPI_Init that belongs to it.
class Receiver
{
public:
    Receiver();
    ~Receiver();
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    int socket() const { return m_socket; }

    // The next message. Waits long enough for the slowest machine; without one the test fails.
    Message next();

    // The next message when its bytes are there already.
    std::optional<Message> ready();

    // Closes the socket and leaves the NAPI_Init.
    void hangUp();

    // Gives back the NAPI_Init, before the end of the object.
    int finish();

private:
    int m_socket;
    bool m_counted = true;
};

NetworkProfile packetProfile();
NetworkProfile dialledProfile();
NetworkProfile wifiProfile();

// A root in a temporary folder. At the end all links are closed, and the descriptors and threads
// must be the ones of the beginning.
class LinkTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    const std::string& root() const { return m_folder.path(); }
    void configure(const std::string& json) const; // etc/network.json
    void store(const std::string& name, const NetworkProfile& record = packetProfile()) const;

    // A scenario bearer on which everything connects at once but "Fail" (cause 5, detail 691) and
    // "Never"; all three are stored, and "Home".
    void useScenarios() const;

private:
    TemporaryFolder m_folder;
    std::size_t m_descriptors = 0;
    std::size_t m_threads = 0;
};

void writeFile(const std::string& path, const std::string& text);
std::string readFile(const std::string& path);
std::size_t entriesOf(const char* folder);

// Runs `body` in a process of its own, which has a network API of its own. Fails where it fails.
void expectInChild(const std::function<void()>& body);

// The engine's thread, by its name; 0 when there is none.
int engineThread();
// How often a thread has gone to sleep so far.
long sleepsOf(int thread);

// How many nanoseconds of processor time a thread has used so far. It does not change while the
// thread makes no system call and computes nothing.
long long workOf(int thread);

// Waits until a thread is asleep with nothing more to do, and gives its processor time then.
long long workWhenAsleep(int thread);

} // namespace linktest

#endif
