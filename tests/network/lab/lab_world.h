// What the tests in the laboratory stand on: its services, its modem, other programs.
#ifndef TESTS_LAB_WORLD_H
#define TESTS_LAB_WORLD_H

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "network/links/link_world.h"

namespace labtest {

using Milliseconds = std::chrono::milliseconds;

// What a command of the shell prints on its standard output, without the line end at its end.
std::string output(const std::string& command);

// Runs a command of the shell; the test fails when the command does.
void run(const std::string& command);

// Waits until the condition holds. Result: whether it does within the time.
bool until(const std::function<bool()>& condition, Milliseconds time = Milliseconds(10000));

// The state that NetworkManager gives a device: 30 (disconnected), 100 (activated), ...; 0 for
// none.
int stateOf(const std::string& device);

// An order to the modem (modem.py), which has taken it when the call returns.
void modem(const std::string& order);

// The next message within a time, or none.
std::optional<linktest::Message> within(Milliseconds time, linktest::Receiver& receiver);

// Another program, which opens a link for the profile and keeps it.
class OtherProgram
{
public:
    explicit OtherProgram(const char* profile);
    ~OtherProgram() { kill(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    // The type of its link's first message, as it is there.
    int outcome();

    void kill(); // at once, without a chance to clean up
    void end();  // after closing its link

private:
    [[noreturn]] static void live(const char* profile, int says, int listens);

    pid_t m_process = -1;
    int m_says = -1;
    int m_hears = -1;
};

// A root with the bearer "networkmanager". At the end all links are closed, and on the services
// everything must be as before: no connection, no profile.
class LabTest : public linktest::LinkTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    // Whose device is to be down at the end, and is taken down where a test has failed.
    virtual std::string device() const = 0;

    // Opens a link that connects. Result: its message.
    linktest::Message up(linktest::Receiver& receiver, const char* profile = "Home") const;
};

// Over Ethernet: the profile "Home" is for WiFi, whose interface is eth9.
class EthernetTest : public LabTest
{
protected:
    void SetUp() override;
    std::string device() const override { return "eth9"; }
};

// Over the modem: the profile "Home" has an access point, a user name and a password.
class ModemTest : public LabTest
{
protected:
    void SetUp() override;
    void TearDown() override;
    std::string device() const override { return "ttyHS0"; }

    // The commands that the modem has got since the beginning of the test.
    std::vector<std::string> commands() const;
    bool got(const std::string& command) const; // one that begins so

private:
    std::size_t m_logged = 0;
};

NetworkProfile fullProfile();

} // namespace labtest

#endif
