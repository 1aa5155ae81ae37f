#include "network/links/link_world.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <tuple>

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace linktest {

constexpr int patienceMs = 60000;

namespace {

auto fieldsOf(const Message& m)
{
    return std::tie(m.type, m.link, m.kind, m.device, m.address, m.cause, m.detail);
}

} // namespace

bool Message::operator==(const Message& other) const
{
    return fieldsOf(*this) == fieldsOf(other);
}

std::ostream& operator<<(std::ostream& stream, const Message& m)
{
    return stream << "type " << m.type << " link " << m.link << " kind " << m.kind << " device \""
                  << m.device << "\" address " << std::hex << m.address << std::dec << " cause "
                  << m.cause << " detail " << m.detail;
}

Message connected(int link, const std::string& device, uint32_t address, int kind)
{
    return {16, link, kind, device, address, 0, 0};
}

Message failed(int link, int cause, int detail)
{
    return {17, link, 0, "", 0, cause, detail};
}

Message broken(int link, const std::string& device, uint32_t address, int kind)
{
    return {32, link, kind, device, address, 0, 0};
}

Receiver::Receiver() : m_socket(NAPI_Init(0))
{
    EXPECT_GE(m_socket, 0);
}

Receiver::~Receiver()
{
    finish();
    if (m_socket >= 0)
        close(m_socket);
}

void Receiver::hangUp()
{
    close(m_socket);
    m_socket = -1;
}

int Receiver::finish()
{
    bool counted = m_counted;
    m_counted = false;
    return counted ? NAPI_Fini() : 0;
}

Message Receiver::next()
{
    pollfd readable = {m_socket, POLLIN, 0};
    if (poll(&readable, 1, patienceMs) == 1) {
        if (auto message = ready())
            return *message;
    }
    ADD_FAILURE() << "no message";
    return {};
}

std::optional<Message> Receiver::ready()
{
    // A byte order, field by field at its offset, and not the structure of the header.
    unsigned char bytes[112];
    ssize_t size = recv(m_socket, bytes, sizeof bytes, MSG_DONTWAIT);
    if (size <= 0)
        return {};
    EXPECT_EQ(size, 112) << "messages arrive whole";
    uint16_t halves[2];
    Message message;
    memcpy(halves, bytes, 2);
    message.type = halves[0];
    message.link = bytes[2];
    message.kind = bytes[3];
    message.device = reinterpret_cast<const char*>(bytes + 4);
    memcpy(&message.address, bytes + 104, 4);
    memcpy(halves, bytes + 108, 4);
    message.cause = halves[0];
    message.detail = halves[1];
    return message;
}

NetworkProfile packetProfile()
{
    NetworkProfile record = {};
    strcpy(record.gprsApn, "internet");
    return record;
}

NetworkProfile dialledProfile()
{
    NetworkProfile record = {};
    strcpy(record.csdNumber, "+4912345");
    return record;
}

NetworkProfile wifiProfile()
{
    NetworkProfile record = {};
    record.flags = NAPI_PREFER_WIFI_ONLY;
    return record;
}

void writeFile(const std::string& path, const std::string& text)
{
    // A new file in each case, as editors and installers do it.
    std::ofstream(path + ".new") << text;
    fs::rename(path + ".new", path);
}

std::string readFile(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::size_t entriesOf(const char* folder)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

void expectInChild(const std::function<void()>& body)
{
    fflush(nullptr);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        body();
        fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "see above";
}

int engineThread()
{
    for (const auto& task : fs::directory_iterator("/proc/self/task")) {
        if (readFile(task.path() / "comm") == "napi-links\n")
            return std::stoi(task.path().filename());
    }
    return 0;
}

long sleepsOf(int thread)
{
    static const std::string key = "\nvoluntary_ctxt_switches:";
    std::string status = readFile("/proc/self/task/" + std::to_string(thread) + "/status");
    std::size_t at = status.find(key);
    return at == std::string::npos ? -1 : std::stol(status.substr(at + key.size()));
}

long long workOf(int thread)
{
    // The kernel's numbering of the clocks of other threads, which pthread_getcpuclockid uses too.
    clockid_t clock = static_cast<clockid_t>((~static_cast<unsigned>(thread) << 3) | 6);
    timespec used = {};
    EXPECT_EQ(clock_gettime(clock, &used), 0);
    return used.tv_sec * 1000000000LL + used.tv_nsec;
}

long long workWhenAsleep(int thread)
{
    auto patience = std::chrono::steady_clock::now() + std::chrono::milliseconds(patienceMs);
    for (long long before = -1; std::chrono::steady_clock::now() < patience;) {
        long long now = workOf(thread);
        if (now == before)
            return now;
        before = now;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ADD_FAILURE() << "the thread does not fall asleep";
    return -1;
}

namespace {

// A thread that has been joined may be listed for an instant more, so the list is looked at until
// it has not changed for a while.
std::size_t lastingThreads()
{
    std::size_t threads = 0;
    for (int same = 0; same < 3; ++same) {
        std::size_t now = entriesOf("/proc/self/task");
        if (now != threads)
            same = 0;
        threads = now;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return threads;
}

} // namespace

void LinkTest::SetUp()
{
    fs::create_directory(root() + "/etc");
    setenv("VORN_ROOT", root().c_str(), 1);
    // Tools that watch a program start a thread of their own with the program's first one.
    std::thread([] {}).join();
    m_descriptors = entriesOf("/proc/self/fd");
    m_threads = lastingThreads();
}

void LinkTest::TearDown()
{
    {
        Receiver last;
        for (int link = 0; link < 256; ++link)
            NAPI_CloseLink(link);
    }
    EXPECT_EQ(NAPI_Fini(), -201) << "a NAPI_Init without its NAPI_Fini";
    EXPECT_EQ(entriesOf("/proc/self/fd"), m_descriptors) << "a descriptor is left behind";
    EXPECT_EQ(lastingThreads(), m_threads) << "a thread is left behind";
}

void LinkTest::configure(const std::string& json) const
{
    writeFile(root() + "/etc/network.json", json);
}

void LinkTest::store(const std::string& name, const NetworkProfile& record) const
{
    ASSERT_EQ(NAPI_CreateProfile(name.c_str(), &record, 0, 0), 0);
}

void LinkTest::useScenarios() const
{
    configure(R"({"bearer": "scenario", "scenario": {"profiles": {
        "Fail": {"outcome": "fail", "cause": 5, "detail": 691},
        "Never": {"outcome": "never"}}}})");
    for (const char* name : {"Home", "Fail", "Never"})
        store(name);
}

} // namespace linktest
