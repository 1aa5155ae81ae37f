// Roots on which no store can stand, or not a whole one.
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include "network/store/store_world.h"

namespace fs = std::filesystem;

namespace {

struct RootCase
{
    const char* label;
    std::string (*make)(const StoreWorld& world); // gives the root to use
};

void PrintTo(const RootCase& row, std::ostream* out)
{
    *out << row.label;
}

std::string putFile(const std::string& path)
{
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << "x";
    return path;
}

const RootCase unusable[] = {
    {"Relative", [](const StoreWorld&) { return std::string("some/folder"); }},
    {"Dot", [](const StoreWorld&) { return std::string("."); }},
    {"File", [](const StoreWorld& world) { return putFile(world.root() + "/file"); }},
    {"BelowAFile",
     [](const StoreWorld& world) { return putFile(world.root() + "/file") + "/below"; }},
    {"FileOnTheWay",
     [](const StoreWorld& world) {
         putFile(world.root() + "/vornlocal/download");
         return world.root();
     }},
    {"FileInPlaceOfTheProfiles",
     [](const StoreWorld& world) {
         putFile(world.profiles());
         return world.root();
     }},
    {"LinkToItself",
     [](const StoreWorld& world) {
         fs::create_symlink("loop", world.root() + "/loop");
         return world.root() + "/loop";
     }},
    {"TooLong", [](const StoreWorld&) { return "/" + std::string(300, 'r'); }},
};

class UnusableRoot : public testing::TestWithParam<RootCase>
{
protected:
    void SetUp() override { setenv("VORN_ROOT", GetParam().make(world).c_str(), 1); }

    StoreWorld world;
    NetworkProfile record = uniformRecord(1);
};

TEST_P(UnusableRoot, IsToldByEveryCall)
{
    unsigned int count = 3;
    std::vector<napihost::Finding> findings;
    EXPECT_EQ(NAPI_ListAllProfile(nullptr, &count), NAPI_ERR_ROOT);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(NAPI_ReadProfile("A", &record, 0, 0), NAPI_ERR_ROOT);
    EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_ERR_ROOT);
    EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_ERR_ROOT);
    EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_ROOT);
    EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_ROOT);
    EXPECT_EQ(napihost::renameProfile("A", "B"), NAPI_ERR_ROOT);
    EXPECT_EQ(napihost::inspectStore(&findings), NAPI_ERR_ROOT);
}

INSTANTIATE_TEST_SUITE_P(Roots, UnusableRoot, testing::ValuesIn(unusable),
                         [](const auto& row) { return std::string(row.param.label); });

TEST(Root, MissingOneIsMadeByTheFirstWriteWithAllOnTheWay)
{
    StoreWorld world;
    setenv("VORN_ROOT", (world.root() + "/not/there/yet").c_str(), 1);
    NetworkProfile record = uniformRecord(1);
    EXPECT_EQ(storedProfiles(), Profiles{});
    EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
}

TEST(Root, WithoutAnyVariableThatTellsItIsRefused)
{
    StoreWorld world;
    EXPECT_EQ(inChild([] {
                  for (const char* variable : {"VORN_ROOT", "XDG_DATA_HOME", "HOME"})
                      unsetenv(variable);
                  unsigned int count;
                  return NAPI_ListAllProfile(nullptr, &count) == NAPI_ERR_ROOT ? 0 : 1;
              }),
              0);
}

TEST(Root, DefaultsToTheUsersDataFolder)
{
    StoreWorld world;
    EXPECT_EQ(inChild([] {
                  unsetenv("VORN_ROOT");
                  unsetenv("XDG_DATA_HOME");
                  setenv("HOME", "/home/of/me", 1);
                  EXPECT_EQ(napihost::rootFolder(), "/home/of/me/.local/share/vorn");
                  setenv("VORN_ROOT", "", 1);
                  setenv("XDG_DATA_HOME", "", 1);
                  EXPECT_EQ(napihost::rootFolder(), "/home/of/me/.local/share/vorn");
                  setenv("XDG_DATA_HOME", "/data/of/me", 1);
                  EXPECT_EQ(napihost::rootFolder(), "/data/of/me/vorn");
                  return testing::Test::HasFailure() ? 1 : 0;
              }),
              0);
}

TEST(Root, WithoutWritePermissionKeepsWhatItHasAndRefusesChanges)
{
    StoreWorld world;
    world.reset({{"A", 1}});
    fs::permissions(world.profiles(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 NetworkProfile record = uniformRecord(2);
                                 EXPECT_EQ(NAPI_CreateProfile("B", &record, 0, 0), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(napihost::renameProfile("A", "B"), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
}

TEST(Root, ThatMayNotBeMadeIsRefused)
{
    StoreWorld world;
    fs::permissions(world.root(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 NetworkProfile record = uniformRecord(2);
                                 EXPECT_EQ(NAPI_CreateProfile("B", &record, 0, 0), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(storedProfiles(), Profiles{});
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
}

TEST(Root, ProcessWithoutFreeDescriptorsIsTold)
{
    StoreWorld world;
    world.reset({{"A", 1}});
    EXPECT_EQ(inChild([] {
                  rlimit none{0, 0};
                  setrlimit(RLIMIT_NOFILE, &none);
                  NetworkProfile record = uniformRecord(2);
                  unsigned int count;
                  EXPECT_EQ(NAPI_ListAllProfile(nullptr, &count), NAPI_ERR_RESOURCES);
                  EXPECT_EQ(NAPI_ReadProfile("A", &record, 0, 0), NAPI_ERR_RESOURCES);
                  EXPECT_EQ(NAPI_CreateProfile("B", &record, 0, 0), NAPI_ERR_RESOURCES);
                  EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_RESOURCES);
                  EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_RESOURCES);
                  return testing::Test::HasFailure() ? 1 : 0;
              }),
              0);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
}

bool writeText(const char* path, const std::string& text)
{
    std::ofstream file(path);
    file << text << std::flush;
    return file.good();
}

// Gives the process a mount table of its own; an ordinary user needs a user name space of its own
// too.
bool enterOwnMounts()
{
    uid_t user = getuid();
    gid_t group = getgid();
    if (user != 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 ||
            !writeText("/proc/self/setgroups", "deny") ||
            !writeText("/proc/self/uid_map", "0 " + std::to_string(user) + " 1") ||
            !writeText("/proc/self/gid_map", "0 " + std::to_string(group) + " 1"))
            return false;
    } else if (unshare(CLONE_NEWNS) != 0) {
        return false;
    }
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

// Runs the body with a file system of its own at the root; some containers allow none to anybody,
// there the faults tests alone stand for full and read-only disks.
void onOwnFileSystem(const StoreWorld& world, const char* options, int (*body)(const StoreWorld&))
{
    const int noMounts = 99;
    int status = inChild([&] {
        if (!enterOwnMounts() || mount("tmpfs", world.root().c_str(), "tmpfs", 0, options) != 0)
            return noMounts;
        return body(world);
    });
    if (status == noMounts)
        std::cout << "no file system of one's own can be mounted here\n";
    else
        EXPECT_EQ(status, 0);
}

// Fills the store until a create is refused, and gives the result of that one.
int fillStore(int* stored)
{
    for (*stored = 0;; ++*stored) {
        NetworkProfile record = uniformRecord(*stored % 100);
        std::string name = "P" + std::to_string(*stored);
        if (int result = NAPI_CreateProfile(name.c_str(), &record, 0, 0))
            return result;
    }
}

int useUpTheDisk(const StoreWorld& world)
{
    int stored;
    EXPECT_EQ(fillStore(&stored), NAPI_ERR_MEMORY_FULL);
    EXPECT_GT(stored, 3);
    EXPECT_EQ(storedProfiles().size(), std::size_t(stored));
    EXPECT_EQ(entriesOf(world.profiles()).size(), std::size_t(stored));
    for (const auto& [name, byte] : storedProfiles())
        EXPECT_EQ(byte, std::stoi(name.substr(1)) % 100);
    NetworkProfile record = uniformRecord(200);
    EXPECT_EQ(NAPI_ModifyProfile("P0", &record, 0, 0), NAPI_ERR_MEMORY_FULL);
    EXPECT_EQ(storedProfiles()["P0"], 0);
    EXPECT_EQ(napihost::renameProfile("P1", "Q1"), NAPI_OK);
    EXPECT_EQ(napihost::deleteProfile("P2"), NAPI_OK);
    EXPECT_EQ(NAPI_CreateProfile("P2", &record, 0, 0), NAPI_OK);
    return testing::Test::HasFailure() ? 1 : 0;
}

TEST(Root, OnAFullDiskKeepsEveryProfileAndSaysSo)
{
    onOwnFileSystem(StoreWorld(), "size=65536", useUpTheDisk);
}

TEST(Root, OnADiskWithoutFreeInodesKeepsEveryProfileAndSaysSo)
{
    onOwnFileSystem(StoreWorld(), "size=1m,nr_inodes=41", useUpTheDisk);
}

int useReadOnly(const StoreWorld& world)
{
    NetworkProfile record = uniformRecord(2);
    EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
    if (mount(nullptr, world.root().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
        return 1;
    EXPECT_EQ(NAPI_CreateProfile("B", &record, 0, 0), NAPI_ERR_ACCESS);
    EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_ACCESS);
    EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_ACCESS);
    EXPECT_EQ(napihost::renameProfile("A", "B"), NAPI_ERR_ACCESS);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 2}}));
    return testing::Test::HasFailure() ? 1 : 0;
}

TEST(Root, MountedReadOnlyKeepsWhatItHasAndRefusesChanges)
{
    onOwnFileSystem(StoreWorld(), "size=1m", useReadOnly);
}

// Some programs set an odd umask; what the store makes has its own modes all the same.
class StoreUmask : public testing::TestWithParam<mode_t>
{};

TEST_P(StoreUmask, TakesNothingFromTheOwnerAndGivesNothingToOthers)
{
    StoreWorld world;
    const std::string root = world.root() + "/new/root";
    setenv("VORN_ROOT", root.c_str(), 1);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 umask(GetParam());
                                 NetworkProfile record = uniformRecord(3);
                                 EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(NAPI_CreateProfile("B", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(storedProfiles(), (Profiles{{"A", 3}, {"B", 3}}));
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
    const std::string store = root + "/vornlocal/download/appwrite/NetProfile";
    EXPECT_EQ(fs::status(root).permissions(), fs::perms(0711));
    EXPECT_EQ(fs::status(root + "/vornlocal").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(store).permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(store + "/A").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(store + "/A/profile").permissions(), fs::perms(0600));
    std::vector<napihost::Finding> findings;
    EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
    EXPECT_TRUE(findings.empty());
}

INSTANTIATE_TEST_SUITE_P(Masks, StoreUmask, testing::Values(0777, 0700, 0177, 0022, 0000));

// A program that is killed under such a umask between making a folder and giving it its mode leaves
// one that nobody can enter; it must not keep the store closed for ever.
class StoreClosedFolder : public testing::TestWithParam<const char*>
{};

TEST_P(StoreClosedFolder, IsMendedByTheNextNewProfile)
{
    StoreWorld world;
    const std::string closed = world.root() + "/" + GetParam();
    fs::create_directories(closed);
    fs::permissions(closed, fs::perms(0));
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 NetworkProfile record = uniformRecord(3);
                                 EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(storedProfiles(), (Profiles{{"A", 3}}));
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
    EXPECT_EQ(entriesOf(world.profiles()), std::vector<std::string>{"A"});
}

INSTANTIATE_TEST_SUITE_P(Folders, StoreClosedFolder,
                         testing::Values("vornlocal", "vornlocal/download",
                                         "vornlocal/download/appwrite",
                                         "vornlocal/download/appwrite/NetProfile",
                                         "vornlocal/download/appwrite/NetProfile/.pending"));

} // namespace
