#include "network/lab/lab_world.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace linktest;
using std::chrono::steady_clock;

namespace labtest {

std::string output(const std::string& command)
{
    std::string all;
    FILE* pipe = ::popen(command.c_str(), "re");
    char chunk[4096];
    for (std::size_t size; pipe && (size = fread(chunk, 1, sizeof chunk, pipe)) > 0;)
        all.append(chunk, size);
    if (pipe)
        ::pclose(pipe);
    while (!all.empty() && all.back() == '\n')
        all.pop_back();
    return all;
}

void run(const std::string& command)
{
    std::string told = output("{ " + command + " ; } 2>&1 || echo FAILED");
    EXPECT_EQ(told.find("FAILED"), std::string::npos) << command << ": " << told;
}

bool until(const std::function<bool()>& condition, Milliseconds time)
{
    auto end = steady_clock::now() + time;
    while (!condition()) {
        if (steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(Milliseconds(5));
    }
    return true;
}

int stateOf(const std::string& device)
{
    return std::atoi(
        output("nmcli -g GENERAL.STATE device show " + device + " 2>/dev/null").c_str());
}

void modem(const std::string& order)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    strcpy(address.sun_path, "/run/lab/modem.sock");
    int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    std::string line = order + "\n";
    ASSERT_EQ(::write(socket, line.data(), line.size()), ssize_t(line.size()));
    char answer[3];
    EXPECT_EQ(::read(socket, answer, sizeof answer), 3) << order;
    ::close(socket);
}

std::optional<Message> within(Milliseconds time, Receiver& receiver)
{
    pollfd readable = {receiver.socket(), POLLIN, 0};
    ::poll(&readable, 1, int(time.count()));
    return receiver.ready();
}

OtherProgram::OtherProgram(const char* profile)
{
    int says[2], hears[2];
    if (::pipe(says) != 0 || ::pipe(hears) != 0)
        std::abort();
    m_process = ::fork();
    if (m_process == 0) {
        ::close(says[0]);
        ::close(hears[1]);
        live(profile, says[1], hears[0]);
    }
    ::close(says[1]);
    ::close(hears[0]);
    m_says = says[0];
    m_hears = hears[1];
}

void OtherProgram::live(const char* profile, int says, int listens)
{
    Receiver receiver;
    int link = NAPI_OpenLink(profile);
    char type = char(receiver.next().type);
    char byte;
    if (::write(says, &type, 1) == 1 && ::read(listens, &byte, 1) == 1) {
        NAPI_CloseLink(link);
        receiver.finish();
    }
    ::_exit(0);
}

int OtherProgram::outcome()
{
    char type = 0;
    EXPECT_EQ(::read(m_says, &type, 1), 1);
    return type;
}

void OtherProgram::kill()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    ::close(m_says);
    ::close(m_hears);
    m_process = -1;
}

void OtherProgram::end()
{
    EXPECT_EQ(::write(m_hears, "e", 1), 1);
    ::waitpid(m_process, nullptr, 0);
    ::close(m_says);
    ::close(m_hears);
    m_process = -1;
}

NetworkProfile fullProfile()
{
    NetworkProfile record = {};
    strcpy(record.gprsApn, "internet.example");
    strcpy(record.gprsUserName, "ursula");
    strcpy(record.gprsPassword, "correct horse 4711");
    return record;
}

void LabTest::SetUp()
{
    LinkTest::SetUp();
    configure(R"({"bearer": "networkmanager", "interfaces": {"wifi": "eth9"}})");
}

void LabTest::TearDown()
{
    LinkTest::TearDown();
    EXPECT_TRUE(until([this] { return stateOf(device()) == 30; }))
        << device() << " is left in state " << stateOf(device());
    EXPECT_EQ(output("mmcli --modem any --output-keyvalue 2>&1 | grep 'state *: connected'"), "")
        << "the modem is still connected";
    // What a test leaves is not left to the next one.
    output("nmcli device disconnect " + device() + " 2>&1");
    EXPECT_EQ(output("nmcli -g NAME connection | grep -vx lo"), "")
        << "a connection is left behind";
    EXPECT_EQ(
        output("ls /etc/NetworkManager/system-connections /run/NetworkManager/system-connections "
               "2>/dev/null | grep nmconnection | grep -v ^lo"),
        "")
        << "a connection is written to the disk";
}

Message LabTest::up(Receiver& receiver, const char* profile) const
{
    int link = NAPI_OpenLink(profile);
    Message message = receiver.next();
    EXPECT_EQ(message.type, NAPI_IND_CONNECTED) << message;
    EXPECT_EQ(message.link, link);
    return message;
}

void EthernetTest::SetUp()
{
    LabTest::SetUp();
    store("Home", wifiProfile());
}

void ModemTest::SetUp()
{
    LabTest::SetUp();
    store("Home", fullProfile());
    m_logged = readFile("/run/lab/modem.log").size();
}

void ModemTest::TearDown()
{
    if (HasFailure()) {
        for (const std::string& command : commands())
            std::cerr << "the modem got " << command << "\n";
    }
    modem("forget");
    LabTest::TearDown();
}

std::vector<std::string> ModemTest::commands() const
{
    std::istringstream log(readFile("/run/lab/modem.log").substr(m_logged));
    std::vector<std::string> all;
    for (std::string line; std::getline(log, line);) {
        std::size_t command = line.find("> ");
        if (command != std::string::npos && line[0] != '<')
            all.push_back(line.substr(command + 2));
    }
    return all;
}

bool ModemTest::got(const std::string& command) const
{
    std::vector<std::string> all = commands();
    return std::any_of(all.begin(), all.end(), [&](const std::string& one) {
        return one.compare(0, command.size(), command) == 0;
    });
}

} // namespace labtest
