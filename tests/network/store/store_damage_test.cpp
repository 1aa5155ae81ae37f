// Records and entries that are no usable profile cost no other profile, can be found, replaced and
// removed, and lead nobody out of the store.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include "base/locked_folder.h"
#include "network/store/store_world.h"

namespace fs = std::filesystem;

namespace {

struct Damage
{
    const char* label;
    void (*make)(StoreWorld& world);
    // What inspectStore says: the path below the profiles' folder, and the problem.
    const char* path;
    const char* problem;
};

void PrintTo(const Damage& damage, std::ostream* out)
{
    *out << damage.label;
}

template <std::size_t length> void makeOfLength(StoreWorld& world)
{
    world.putRaw("Bad", std::string(length, 'x'));
}

void makeFolderOnly(StoreWorld& world)
{
    fs::create_directories(world.profiles() + "/Bad");
}

void makeSocket(StoreWorld& world)
{
    makeFolderOnly(world);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    world.record("Bad").copy(address.sun_path, sizeof address.sun_path - 1);
    int fd = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(fd);
}

const Damage damages[] = {
    {"EmptyRecord", makeOfLength<0>, "Bad/profile", "record has 0 bytes instead of 1168"},
    {"OneByteShort", makeOfLength<1167>, "Bad/profile", "record has 1167 bytes instead of 1168"},
    {"OneByteLong", makeOfLength<1169>, "Bad/profile", "record has 1169 bytes instead of 1168"},
    {"NoRecord", makeFolderOnly, "Bad/profile", "record is missing"},
    {"FolderAsRecord",
     [](StoreWorld& world) { fs::create_directories(world.record("Bad") + "/deeper/still"); },
     "Bad/profile", "record is no regular file"},
    {"PipeAsRecord",
     [](StoreWorld& world) {
         makeFolderOnly(world);
         ASSERT_EQ(mkfifo(world.record("Bad").c_str(), 0600), 0);
     },
     "Bad/profile", "record is no regular file"},
    {"SocketAsRecord", makeSocket, "Bad/profile", "record is no regular file"},
    {"LinkAsRecord",
     [](StoreWorld& world) {
         makeFolderOnly(world);
         std::ofstream(world.root() + "/outside") << std::string(1168, 'o');
         fs::create_symlink(world.root() + "/outside", world.record("Bad"));
     },
     "Bad/profile", "record is no regular file"},
    {"DanglingLinkAsRecord",
     [](StoreWorld& world) {
         makeFolderOnly(world);
         fs::create_symlink("nowhere", world.record("Bad"));
     },
     "Bad/profile", "record is no regular file"},
    {"FileAsFolder",
     [](StoreWorld& world) {
         fs::create_directories(world.profiles());
         std::ofstream(world.profiles() + "/Bad") << std::string(1168, 'x');
     },
     "Bad", "is no folder with a record in it"},
    {"LinkAsFolder",
     [](StoreWorld& world) {
         fs::create_directories(world.root() + "/outside");
         std::ofstream(world.root() + "/outside/profile") << std::string(1168, 'o');
         fs::create_directory_symlink(world.root() + "/outside", world.profiles() + "/Bad");
     },
     "Bad", "is no folder with a record in it"},
};

class DamagedProfile : public testing::TestWithParam<Damage>
{
protected:
    void SetUp() override
    {
        world.reset({{"Good", 1}});
        GetParam().make(world);
    }

    // What a link in the store leads to.
    void expectOutsideUntouched()
    {
        for (const char* path : {"/outside", "/outside/profile"}) {
            if (fs::is_regular_file(world.root() + path)) {
                EXPECT_EQ(contentOf(world.root() + path), std::string(1168, 'o'));
            }
        }
    }

    StoreWorld world{StoreWorld::On::Memory};
    NetworkProfile record = uniformRecord(6);
};

TEST_P(DamagedProfile, IsReportedAndNotListed)
{
    EXPECT_EQ(storedProfiles(), (Profiles{{"Good", 1}}));
    EXPECT_EQ(NAPI_ReadProfile("Bad", &record, 0, 0), NAPI_ERR_DAMAGED);
    EXPECT_EQ(NAPI_IsProfileValid("Bad"), NAPI_ERR_DAMAGED);
    EXPECT_EQ(byteOf(record), 6);
}

TEST_P(DamagedProfile, IsFoundByInspectionWhichChangesNothing)
{
    auto before = entriesOf(world.profiles());
    std::vector<napihost::Finding> findings;
    ASSERT_EQ(napihost::inspectStore(&findings), NAPI_OK);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].path, world.profiles() + "/" + GetParam().path);
    EXPECT_EQ(findings[0].problem, GetParam().problem);
    EXPECT_EQ(findings[0].remedy, "restore it from a copy, or delete the profile");
    EXPECT_EQ(entriesOf(world.profiles()), before);
}

TEST_P(DamagedProfile, KeepsItsName)
{
    EXPECT_EQ(NAPI_CreateProfile("Bad", &record, 0, 0), NAPI_ERR_EXISTS);
    EXPECT_EQ(NAPI_IsProfileValid("Bad"), NAPI_ERR_DAMAGED);
}

TEST_P(DamagedProfile, IsMendedByModify)
{
    EXPECT_EQ(NAPI_ModifyProfile("Bad", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"Bad", 6}, {"Good", 1}}));
    EXPECT_EQ(entriesOf(world.profiles()), (std::vector<std::string>{"Bad", "Good"}));
    EXPECT_EQ(entriesOf(world.profiles() + "/Bad"), std::vector<std::string>{"profile"});
    expectOutsideUntouched();
}

TEST_P(DamagedProfile, IsRemovedByDelete)
{
    EXPECT_EQ(napihost::deleteProfile("Bad"), NAPI_OK);
    EXPECT_EQ(entriesOf(world.profiles()), std::vector<std::string>{"Good"});
    EXPECT_EQ(storedProfiles(), (Profiles{{"Good", 1}}));
    expectOutsideUntouched();
}

TEST_P(DamagedProfile, CanBeRenamed)
{
    EXPECT_EQ(napihost::renameProfile("Bad", "Other"), NAPI_OK);
    EXPECT_EQ(NAPI_IsProfileValid("Other"), NAPI_ERR_DAMAGED);
    EXPECT_EQ(NAPI_IsProfileValid("Bad"), NAPI_ERR_NO_PROFILE);
}

INSTANTIATE_TEST_SUITE_P(Damages, DamagedProfile, testing::ValuesIn(damages),
                         [](const auto& damage) { return std::string(damage.param.label); });

class StoreInspection : public testing::Test
{
protected:
    std::vector<std::string> inspect()
    {
        std::vector<napihost::Finding> findings{{"left", "from", "before"}};
        EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
        std::vector<std::string> lines;
        for (const napihost::Finding& finding : findings)
            lines.push_back(finding.path.substr(world.profiles().size() + 1) + ": " +
                            finding.problem);
        return lines;
    }

    StoreWorld world;
};

TEST_F(StoreInspection, FindsNothingInAStoreThatIsWhole)
{
    EXPECT_TRUE(inspect().empty());
    world.reset({{"A", 1}, {"B", 2}});
    EXPECT_TRUE(inspect().empty());
}

TEST_F(StoreInspection, TellsEntriesThatNoProfileCanHaveInTheOrderOfTheirNames)
{
    world.reset({{"M", 1}});
    fs::create_directory(world.profiles() + "/z\nz");
    std::ofstream(world.profiles() + "/.hidden") << "x";
    world.putRaw("L", "short");
    EXPECT_EQ(inspect(), (std::vector<std::string>{".hidden: no profile can have this name",
                                                   "L/profile: record has 5 bytes instead of 1168",
                                                   "z\nz: no profile can have this name"}));
}

TEST_F(StoreInspection, TakesAWritersWorkForNoDamage)
{
    world.reset({{"A", 1}});
    fs::create_directory(world.profiles() + "/.pending");
    base::LockedFolder writer;
    ASSERT_EQ(writer.open(world.profiles()), 0);
    EXPECT_TRUE(inspect().empty());
}

struct Concern
{
    const char* label;
    void (*make)(const StoreWorld& world);
    // What is found; "ROOT" stands for the root.
    const char* path;
    const char* problem;
    const char* remedy;
};

void PrintTo(const Concern& concern, std::ostream* out)
{
    *out << concern.label;
}

const Concern concerns[] = {
    {"RecordThatOthersMayRead",
     [](const StoreWorld& world) { chmod(world.record("A").c_str(), 0644); },
     "ROOT/vornlocal/download/appwrite/NetProfile/A/profile", "others may read it (mode 0644)",
     "chmod go-rw ROOT/vornlocal/download/appwrite/NetProfile/A/profile"},
    {"RecordThatTheGroupMayWrite",
     [](const StoreWorld& world) { chmod(world.record("A").c_str(), 0620); },
     "ROOT/vornlocal/download/appwrite/NetProfile/A/profile", "others may write it (mode 0620)",
     "chmod go-rw ROOT/vornlocal/download/appwrite/NetProfile/A/profile"},
    {"FolderThatOthersMayRead",
     [](const StoreWorld& world) { chmod((world.profiles() + "/A").c_str(), 0755); },
     "ROOT/vornlocal/download/appwrite/NetProfile/A", "others may read it (mode 0755)",
     "chmod go-rw ROOT/vornlocal/download/appwrite/NetProfile/A"},
    {"StoreThatOthersMayReadAndWrite",
     [](const StoreWorld& world) { chmod(world.profiles().c_str(), 0777); },
     "ROOT/vornlocal/download/appwrite/NetProfile", "others may read and write it (mode 0777)",
     "chmod go-rw ROOT/vornlocal/download/appwrite/NetProfile"},
    {"FolderOnTheWayThatOthersMayWrite",
     [](const StoreWorld& world) { chmod((world.root() + "/vornlocal").c_str(), 0733); },
     "ROOT/vornlocal", "others may write it (mode 0733)", "chmod go-w ROOT/vornlocal"},
    {"RootThatOthersMayRead", [](const StoreWorld& world) { chmod(world.root().c_str(), 0744); },
     "ROOT", "others may read it (mode 0744)", "chmod go-rw ROOT"},
    {"LeftoverPutAside",
     [](const StoreWorld& world) { fs::create_directory(world.profiles() + "/.unremovable-7"); },
     "ROOT/vornlocal/download/appwrite/NetProfile/.unremovable-7",
     "put aside because it could not be removed; it may hold passwords",
     "as its owner or as root: rm -r "
     "ROOT/vornlocal/download/appwrite/NetProfile/.unremovable-7"},
    {"LeftoverOfAnEndedWriter",
     [](const StoreWorld& world) { fs::create_directory(world.profiles() + "/.pending"); },
     "ROOT/vornlocal/download/appwrite/NetProfile/.pending",
     "left by a program that was ended while it changed a profile; it may hold passwords",
     "the next change of a profile removes it, or rm -r "
     "ROOT/vornlocal/download/appwrite/NetProfile/.pending"},
};

class StoreConcerns : public testing::TestWithParam<Concern>
{
protected:
    std::string expanded(std::string text) const
    {
        for (std::size_t at; (at = text.find("ROOT")) != std::string::npos;)
            text.replace(at, 4, world.root());
        return text;
    }

    StoreWorld world{StoreWorld::On::Memory};
};

TEST_P(StoreConcerns, AreFoundWithTheCommandThatMendsThem)
{
    world.reset({{"A", 1}});
    std::vector<napihost::Finding> findings;
    ASSERT_EQ(napihost::inspectStore(&findings), NAPI_OK);
    ASSERT_TRUE(findings.empty());
    GetParam().make(world);
    ASSERT_EQ(napihost::inspectStore(&findings), NAPI_OK);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].path, expanded(GetParam().path));
    EXPECT_EQ(findings[0].problem, GetParam().problem);
    EXPECT_EQ(findings[0].remedy, expanded(GetParam().remedy));
}

INSTANTIATE_TEST_SUITE_P(Concerns, StoreConcerns, testing::ValuesIn(concerns),
                         [](const auto& concern) { return std::string(concern.param.label); });

TEST_F(StoreInspection, LooksAtTheRootBeforeAnythingIsStored)
{
    chmod(world.root().c_str(), 0755);
    std::vector<napihost::Finding> findings;
    EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].path, world.root());
}

TEST_F(StoreInspection, QuotesWhatAShellWouldReadOtherwise)
{
    world.reset({{"Mum's phone", 1}});
    chmod(world.record("Mum's phone").c_str(), 0644);
    std::vector<napihost::Finding> findings;
    EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].remedy, "chmod go-rw '" + world.profiles() + "/Mum'\\''s phone/profile'");
}

TEST(Leftovers, OfAnyKindAreSweptByTheNextWrite)
{
    StoreWorld world(StoreWorld::On::Memory);
    NetworkProfile record = uniformRecord(2);
    std::string pending = world.profiles() + "/.pending";
    void (*const leftovers[])(const std::string&) = {
        [](const std::string& path) { std::ofstream(path) << "half a record"; },
        [](const std::string& path) { fs::create_directory(path); },
        [](const std::string& path) {
            fs::create_directories(path + "/deep/deeper");
            std::ofstream(path + "/profile") << "half";
        },
        [](const std::string& path) { fs::create_symlink("nowhere", path); },
    };
    int (*const writes[])(const NetworkProfile&) = {
        [](const NetworkProfile& with) { return NAPI_CreateProfile("New", &with, 0, 0); },
        [](const NetworkProfile& with) { return NAPI_ModifyProfile("A", &with, 0, 0); },
        [](const NetworkProfile&) { return napihost::renameProfile("A", "New"); },
        [](const NetworkProfile&) { return napihost::deleteProfile("A"); },
    };
    for (auto leave : leftovers) {
        for (auto write : writes) {
            world.reset({{"A", 1}});
            leave(pending);
            EXPECT_EQ(listedNames(), std::vector<std::string>{"A"});
            EXPECT_EQ(write(record), NAPI_OK);
            EXPECT_EQ(entriesOf(world.profiles()), listedNames());
        }
    }
}

TEST(Permissions, UnreadableRecordIsRefusedToAnOrdinaryUserAndFound)
{
    StoreWorld world;
    world.reset({{"A", 1}, {"B", 2}});
    fs::permissions(world.record("A"), fs::perms::none);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 NetworkProfile record;
                                 std::vector<napihost::Finding> findings;
                                 EXPECT_EQ(NAPI_ReadProfile("A", &record, 0, 0), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(NAPI_ReadProfile("B", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
                                 EXPECT_EQ(findings.size(), 1u);
                                 EXPECT_EQ(findings.at(0).problem,
                                           "cannot be read: Permission denied");
                                 EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_OK);
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
}

TEST(Permissions, LockedProfileFolderCostsNoOtherProfile)
{
    StoreWorld world;
    world.reset({{"A", 1}, {"B", 2}});
    fs::permissions(world.profiles() + "/A", fs::perms::none);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 NetworkProfile record = uniformRecord(3);
                                 EXPECT_EQ(listedNames(), std::vector<std::string>{"B"});
                                 EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(NAPI_ModifyProfile("B", &record, 0, 0), NAPI_OK);
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
}

TEST(Permissions, ProfileThatCannotBeRemovedStaysUnderItsName)
{
    StoreWorld world;
    world.reset({{"A", 1}, {"B", 2}});
    fs::permissions(world.profiles() + "/A", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_ACCESS);
                                 EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}, {"B", 2}}));
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
    EXPECT_EQ(entriesOf(world.profiles()), (std::vector<std::string>{"A", "B"}));
}

TEST(Permissions, LeftoverThatCannotBeRemovedIsPutAsideAndFound)
{
    StoreWorld world;
    world.reset({{"A", 1}});
    fs::create_directories(world.profiles() + "/.pending/deep");
    std::ofstream(world.profiles() + "/.pending/deep/file") << "x";
    fs::permissions(world.profiles() + "/.pending/deep",
                    fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(asOrdinaryUser(world,
                             [] {
                                 NetworkProfile record = uniformRecord(3);
                                 std::vector<napihost::Finding> findings;
                                 EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_OK);
                                 EXPECT_EQ(napihost::deleteProfile("A"), NAPI_OK);
                                 EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
                                 EXPECT_EQ(findings.size(), 1u);
                                 return testing::Test::HasFailure() ? 1 : 0;
                             }),
              0);
}

} // namespace
