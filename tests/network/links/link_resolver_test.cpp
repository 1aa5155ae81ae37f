// NAPI_DnsResolverConfig: which name servers are written, and what stands in the way of writing.
#include "network/links/link_world.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace linktest;
namespace fs = std::filesystem;

namespace {

std::atomic<int> syncError{0};

} // namespace

// A disk that fails. The library's calls arrive here, because a program's own symbols come before
// those of other libraries.
extern "C" __attribute__((visibility("default"))) int fsync(int descriptor)
{
    if (syncError == 0)
        return reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"))(descriptor);
    errno = syncError;
    return -1;
}

namespace {

// What stands in the place of the machine's own file, and how the library has opened it.
std::string machineFile;
int machineFlags = 0;

} // namespace

extern "C" __attribute__((visibility("default"))) int open(const char* path, int flags, ...)
{
    static const auto real =
        reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open"));
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if (machineFile.empty() || std::strcmp(path, "/etc/resolv.conf") != 0)
        return real(path, flags, mode);
    machineFlags = flags;
    return real(machineFile.c_str(), flags, mode);
}

namespace {

class LinkResolver : public LinkTest
{
protected:
    std::string file() const { return root() + "/etc/resolv.conf"; }

    // Opens the profile "Home" on the scenario bearer and configures the resolver.
    int configureResolver(const NetworkProfile& record, const std::string& scenario = "{}")
    {
        configure(R"({"bearer": "scenario", "scenario": {"default": )" + scenario + "}}");
        store("Home", record);
        int link = NAPI_OpenLink("Home");
        EXPECT_EQ(receiver().next().type, 16);
        return NAPI_DnsResolverConfig(link);
    }

    void SetUp() override
    {
        LinkTest::SetUp();
        m_receiver.emplace();
    }
    void TearDown() override
    {
        machineFile.clear();
        m_receiver.reset();
        LinkTest::TearDown();
    }
    Receiver& receiver() { return *m_receiver; }

private:
    std::optional<Receiver> m_receiver;
};

NetworkProfile withServers(NetworkProfile record)
{
    record.gprsDns1 = 0x0A010203;
    record.gprsDns2 = 0xC0A800FE;
    record.csdDns1 = 0x01020304;
    record.csdDns2 = 0x05060708;
    return record;
}

constexpr char networkServers[] = R"({"nameServers": ["9.9.9.9", "2001:db8::53"]})";

TEST_F(LinkResolver, TakesTheProfilesServersForPacketData)
{
    EXPECT_EQ(configureResolver(withServers(packetProfile()), networkServers), 0);
    EXPECT_EQ(readFile(file()), "nameserver 10.1.2.3\nnameserver 192.168.0.254\n");
}

TEST_F(LinkResolver, TakesTheProfilesServersForDialledCalls)
{
    EXPECT_EQ(configureResolver(withServers(dialledProfile()), networkServers), 0);
    EXPECT_EQ(readFile(file()), "nameserver 1.2.3.4\nnameserver 5.6.7.8\n");
}

TEST_F(LinkResolver, LeavesOutAServerThatIsNone)
{
    NetworkProfile record = packetProfile();
    record.gprsDns2 = 0xFFFFFFFF;
    EXPECT_EQ(configureResolver(record), 0);
    EXPECT_EQ(readFile(file()), "nameserver 255.255.255.255\n");
}

TEST_F(LinkResolver, TakesTheNetworksServersWhenTheProfileHasNone)
{
    EXPECT_EQ(configureResolver(packetProfile(), networkServers), 0);
    EXPECT_EQ(readFile(file()), "nameserver 9.9.9.9\nnameserver 2001:db8::53\n");
}

TEST_F(LinkResolver, TakesTheMachinesServersWhenNobodyElseHasAny)
{
    std::string expected;
    std::ifstream machine("/etc/resolv.conf");
    for (std::string line; std::getline(machine, line);) {
        std::istringstream words(line);
        std::string word, server;
        words >> word >> server;
        if (word == "nameserver")
            expected += "nameserver " + server + "\n";
    }
    EXPECT_EQ(configureResolver(packetProfile()), 0);
    EXPECT_EQ(readFile(file()), expected);
}

TEST_F(LinkResolver, OpensTheMachinesFileForItselfAloneAndTakesAddressesOnly)
{
    machineFile = root() + "/machine.conf";
    std::ofstream(machineFile)
        << "nameserver 10.9.8.7\nnameserver $(reboot)\nnameserver fe80::1%a\n";
    EXPECT_EQ(configureResolver(packetProfile()), 0);
    EXPECT_EQ(readFile(file()), "nameserver 10.9.8.7\nnameserver fe80::1%a\n");
    EXPECT_NE(machineFlags & O_CLOEXEC, 0);
}

TEST_F(LinkResolver, DoesNotWaitForAPipeInThePlaceOfTheMachinesFile)
{
    machineFile = root() + "/pipe";
    ASSERT_EQ(mkfifo(machineFile.c_str(), 0600), 0);
    EXPECT_EQ(configureResolver(packetProfile()), 0);
    EXPECT_EQ(readFile(file()), "");
}

TEST_F(LinkResolver, TakesNothingFromAMachinesFileBeyondMeasure)
{
    machineFile = root() + "/large";
    std::ofstream(machineFile) << "nameserver 10.9.8.7\n" << std::string(64 * 1024, '#');
    EXPECT_EQ(configureResolver(packetProfile()), 0);
    EXPECT_EQ(readFile(file()), "");
}

TEST_F(LinkResolver, MakesAFolderThatEverybodyMayReadWhateverTheUmask)
{
    NetworkProfile record = withServers(packetProfile());
    store("Home", record);
    const int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver().next().type, 16);
    fs::remove_all(root() + "/etc");
    const mode_t mask = umask(0777);
    EXPECT_EQ(NAPI_DnsResolverConfig(link), 0);
    umask(mask);
    struct stat status;
    ASSERT_EQ(stat((root() + "/etc").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0755u);
}

TEST_F(LinkResolver, ReplacesTheFileAndLetsEverybodyReadIt)
{
    std::ofstream(file()) << "nameserver 4.4.4.4\n# a longer line that must go with the old file\n";
    mode_t mask = umask(077);
    EXPECT_EQ(configureResolver(withServers(packetProfile())), 0);
    umask(mask);
    EXPECT_EQ(readFile(file()), "nameserver 10.1.2.3\nnameserver 192.168.0.254\n");
    struct stat status;
    ASSERT_EQ(stat(file().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0644u);
    EXPECT_EQ(entriesOf((root() + "/etc").c_str()), 2u) << "network.json and resolv.conf only";
}

TEST_F(LinkResolver, MakesAMissingFolder)
{
    NetworkProfile record = withServers(packetProfile());
    store("Home", record);
    fs::remove_all(root() + "/etc");
    int link = NAPI_OpenLink("Home"); // over the machine's own interface
    EXPECT_EQ(receiver().next().type, 16);
    EXPECT_EQ(NAPI_DnsResolverConfig(link), 0);
    EXPECT_EQ(readFile(file()), "nameserver 10.1.2.3\nnameserver 192.168.0.254\n");
}

TEST_F(LinkResolver, RefusesAFileInThePlaceOfTheFolder)
{
    EXPECT_EQ(configureResolver(packetProfile()), 0);
    fs::remove_all(root() + "/etc");
    std::ofstream(root() + "/etc") << "in the way";
    EXPECT_EQ(NAPI_DnsResolverConfig(0), -209);
    fs::remove(root() + "/etc");
}

TEST_F(LinkResolver, RefusesARootThatIsNoAbsolutePath)
{
    EXPECT_EQ(configureResolver(packetProfile()), 0);
    setenv("VORN_ROOT", "relative", 1);
    EXPECT_EQ(NAPI_DnsResolverConfig(0), -209);
    setenv("VORN_ROOT", root().c_str(), 1);
}

TEST_F(LinkResolver, RefusesAFolderInThePlaceOfTheFile)
{
    fs::create_directory(file());
    EXPECT_EQ(configureResolver(packetProfile()), -208);
    EXPECT_EQ(entriesOf((root() + "/etc").c_str()), 2u) << "nothing half done is left";
}

struct DiskRow
{
    const char* name;
    int error;
    int result;
};
const DiskRow diskRows[] = {
    {"Full", ENOSPC, -152},     {"OverQuota", EDQUOT, -152}, {"ReadOnly", EROFS, -207},
    {"Forbidden", EPERM, -207}, {"Broken", EIO, -208},
};
class LinkResolverDisk : public LinkResolver, public testing::WithParamInterface<DiskRow>
{};
TEST_P(LinkResolverDisk, KeepsTheOldFileAndTellsWhatFailed)
{
    std::ofstream(file()) << "nameserver 4.4.4.4\n";
    store("Other");
    EXPECT_EQ(configureResolver(withServers(packetProfile())), 0);
    std::string before = readFile(file());
    syncError = GetParam().error;
    NAPI_OpenLink("Other");
    EXPECT_EQ(receiver().next().type, 16);
    EXPECT_EQ(NAPI_DnsResolverConfig(1), GetParam().result);
    syncError = 0;
    EXPECT_EQ(readFile(file()), before);
    EXPECT_EQ(entriesOf((root() + "/etc").c_str()), 2u) << "nothing half done is left";
}
INSTANTIATE_TEST_SUITE_P(All, LinkResolverDisk, testing::ValuesIn(diskRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
