// What each profile call does in a store where nothing is wrong.
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "network/store/store_world.h"

namespace fs = std::filesystem;

namespace {

class StoreCalls : public testing::Test
{
protected:
    StoreWorld world;
    NetworkProfile record = uniformRecord(1);

    static mode_t modeOf(const std::string& path)
    {
        struct stat status
        {};
        stat(path.c_str(), &status);
        return status.st_mode & 07777;
    }

    // Folders are what the limit counts, so empty ones fill the store quickly.
    void fillUpTo(unsigned int count)
    {
        fs::create_directories(world.profiles());
        for (unsigned int i = 0; i < count; ++i)
            fs::create_directory(world.profiles() + "/Full" + std::to_string(i));
    }
};

TEST_F(StoreCalls, NothingStoredIsAnEmptyListAndMakesNoFolder)
{
    unsigned int count = 9;
    EXPECT_EQ(NAPI_ListAllProfile(nullptr, &count), NAPI_OK);
    EXPECT_EQ(count, 0u);
    count = 5;
    char slots[5 * NAPI_PROFILE_NAME_SLOT] = "untouched";
    EXPECT_EQ(NAPI_ListAllProfile(slots, &count), NAPI_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_STREQ(slots, "untouched");
    EXPECT_TRUE(entriesOf(world.root()).empty());
}

TEST_F(StoreCalls, MissingProfileIsReportedAndMakesNoFolder)
{
    EXPECT_EQ(NAPI_ReadProfile("A", &record, 0, 0), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::renameProfile("A", "B"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::renameProfile("A", "A"), NAPI_ERR_NO_PROFILE);
    EXPECT_TRUE(entriesOf(world.root()).empty());
    world.reset({{"B", 2}});
    EXPECT_EQ(NAPI_ReadProfile("A", &record, 0, 0), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(NAPI_IsProfileValid("A"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::deleteProfile("A"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::renameProfile("A", "C"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(storedProfiles(), (Profiles{{"B", 2}}));
    EXPECT_EQ(byteOf(record), 1);
}

TEST_F(StoreCalls, NullPointersAreRefused)
{
    EXPECT_EQ(NAPI_CreateProfile(nullptr, &record, 0, 0), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_CreateProfile("A", nullptr, 0, 0), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_ModifyProfile(nullptr, &record, 0, 0), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_ModifyProfile("A", nullptr, 0, 0), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_ReadProfile(nullptr, &record, 0, 0), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_ReadProfile("A", nullptr, 0, 0), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_IsProfileValid(nullptr), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(NAPI_ListAllProfile(nullptr, nullptr), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(napihost::deleteProfile(nullptr), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(napihost::renameProfile(nullptr, "A"), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(napihost::renameProfile("A", nullptr), NAPI_ERR_ARGUMENT);
    EXPECT_EQ(napihost::inspectStore(nullptr), NAPI_ERR_ARGUMENT);
    EXPECT_TRUE(entriesOf(world.root()).empty());
}

TEST_F(StoreCalls, CreatedRecordIsStoredByteForByteBelowTheRoot)
{
    auto* bytes = reinterpret_cast<unsigned char*>(&record);
    for (std::size_t i = 0; i < sizeof record; ++i)
        bytes[i] = static_cast<unsigned char>(i * 7 + i / 256);
    ASSERT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
    std::string stored =
        contentOf(world.root() + "/vornlocal/download/appwrite/NetProfile/A/profile");
    ASSERT_EQ(stored.size(), 1168u);
    EXPECT_EQ(memcmp(stored.data(), &record, sizeof record), 0);
    NetworkProfile again = uniformRecord(0);
    ASSERT_EQ(NAPI_ReadProfile("A", &again, 0, 0), NAPI_OK);
    EXPECT_EQ(memcmp(&again, &record, sizeof record), 0);
    EXPECT_EQ(entriesOf(world.profiles()), std::vector<std::string>{"A"});
    EXPECT_EQ(entriesOf(world.profiles() + "/A"), std::vector<std::string>{"profile"});
}

TEST_F(StoreCalls, OnlyTheOwnerMayReadWhateverTheUmask)
{
    for (mode_t mask : {mode_t(0), mode_t(022), mode_t(0177), mode_t(0777)}) {
        world.clear();
        fs::create_directories(world.profiles());
        mode_t before = umask(mask);
        EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
        umask(before);
        EXPECT_EQ(modeOf(world.record("A")), 0600u) << mask;
        EXPECT_EQ(modeOf(world.profiles() + "/A"), 0700u) << mask;
        before = umask(mask);
        EXPECT_EQ(NAPI_ModifyProfile("A", &record, 0, 0), NAPI_OK);
        umask(before);
        EXPECT_EQ(modeOf(world.record("A")), 0600u) << mask;
    }
}

TEST_F(StoreCalls, NewFoldersAreTheOwnersAlone)
{
    ASSERT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(modeOf(world.profiles()), 0700u);
    EXPECT_EQ(modeOf(world.root() + "/vornlocal"), 0700u);
}

TEST_F(StoreCalls, CreateRefusesATakenName)
{
    world.reset({{"A", 1}});
    NetworkProfile other = uniformRecord(2);
    EXPECT_EQ(NAPI_CreateProfile("A", &other, 0, 0), NAPI_ERR_EXISTS);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
}

TEST_F(StoreCalls, NamesAreComparedByteByByte)
{
    world.reset({{"home", 1}, {"Home", 2}, {"Home ", 3}});
    EXPECT_EQ(storedProfiles(), (Profiles{{"home", 1}, {"Home", 2}, {"Home ", 3}}));
}

TEST_F(StoreCalls, ModifyReplacesTheRecordAndNothingElse)
{
    world.reset({{"A", 1}, {"B", 2}});
    NetworkProfile other = uniformRecord(3);
    EXPECT_EQ(NAPI_ModifyProfile("A", &other, 0, 0), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 3}, {"B", 2}}));
    EXPECT_EQ(entriesOf(world.profiles()), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(entriesOf(world.profiles() + "/A"), std::vector<std::string>{"profile"});
}

TEST_F(StoreCalls, DeleteRemovesTheProfileAndNothingElse)
{
    world.reset({{"A", 1}, {"B", 2}});
    EXPECT_EQ(napihost::deleteProfile("A"), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"B", 2}}));
    EXPECT_EQ(entriesOf(world.profiles()), std::vector<std::string>{"B"});
}

TEST_F(StoreCalls, RenameMovesTheProfile)
{
    world.reset({{"A", 1}, {"B", 2}});
    EXPECT_EQ(napihost::renameProfile("A", "C"), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"B", 2}, {"C", 1}}));
}

TEST_F(StoreCalls, RenameToItsOwnNameChangesNothing)
{
    world.reset({{"A", 1}});
    EXPECT_EQ(napihost::renameProfile("A", "A"), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
}

TEST_F(StoreCalls, RenameRefusesATakenNameEvenADamagedOne)
{
    world.reset({{"A", 1}, {"B", 2}});
    world.putRaw("Damaged", "x");
    fs::create_directory(world.profiles() + "/Empty");
    EXPECT_EQ(napihost::renameProfile("A", "B"), NAPI_ERR_EXISTS);
    EXPECT_EQ(napihost::renameProfile("A", "Damaged"), NAPI_ERR_EXISTS);
    EXPECT_EQ(napihost::renameProfile("A", "Empty"), NAPI_ERR_EXISTS);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}, {"B", 2}}));
}

TEST_F(StoreCalls, MovingTheFolderRenamesTheProfile)
{
    world.reset({{"A", 1}});
    fs::rename(world.profiles() + "/A", world.profiles() + "/B");
    EXPECT_EQ(storedProfiles(), (Profiles{{"B", 1}}));
    NetworkProfile other = uniformRecord(4);
    EXPECT_EQ(NAPI_ModifyProfile("B", &other, 0, 0), NAPI_OK);
    EXPECT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}, {"B", 4}}));
}

TEST_F(StoreCalls, ListIsSortedByteByByte)
{
    world.reset({{"b", 1}, {"B", 1}, {"a", 1}, {"\xC3\xA4", 1}, {"Profile10", 1}, {"Profile2", 1}});
    EXPECT_EQ(listedNames(),
              (std::vector<std::string>{"B", "Profile10", "Profile2", "a", "b", "\xC3\xA4"}));
}

TEST_F(StoreCalls, ListFillsNoMoreSlotsThanThereAre)
{
    world.reset({{"A", 1}, {"B", 1}, {"C", 1}});
    std::string slots(4 * NAPI_PROFILE_NAME_SLOT, '#');
    unsigned int count = 2;
    EXPECT_EQ(NAPI_ListAllProfile(slots.data(), &count), NAPI_OK);
    EXPECT_EQ(count, 2u);
    EXPECT_STREQ(slots.data(), "A");
    EXPECT_STREQ(slots.data() + 64, "B");
    EXPECT_EQ(slots.substr(128), std::string(128, '#'));
    count = 0;
    EXPECT_EQ(NAPI_ListAllProfile(slots.data(), &count), NAPI_OK);
    EXPECT_EQ(count, 0u);
}

TEST_F(StoreCalls, ListSaysHowManyOfMoreSlotsItFilled)
{
    world.reset({{"A", 1}, {std::string(63, 'z'), 1}});
    std::string slots(4 * NAPI_PROFILE_NAME_SLOT, '#');
    unsigned int count = 4;
    EXPECT_EQ(NAPI_ListAllProfile(slots.data(), &count), NAPI_OK);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(slots.substr(64), std::string(63, 'z') + '\0' + std::string(128, '#'));
}

TEST_F(StoreCalls, EveryOneOfAThousandProfilesIsListed)
{
    fs::create_directories(world.profiles());
    for (int i = 0; i < 1000; ++i)
        world.putRaw("A name of some length, number " + std::to_string(i), std::string(1168, 'x'));
    unsigned int count = 0;
    EXPECT_EQ(NAPI_ListAllProfile(nullptr, &count), NAPI_OK);
    EXPECT_EQ(count, 1000u);
    EXPECT_EQ(listedNames().size(), 1000u);
}

TEST_F(StoreCalls, LimitLetsTheLastProfileInAndNoMore)
{
    ASSERT_GT(NAPI_GetMaxProfiles(), 1000u);
    fillUpTo(NAPI_GetMaxProfiles() - 1);
    EXPECT_EQ(NAPI_CreateProfile("Last", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(NAPI_CreateProfile("TooMany", &record, 0, 0), NAPI_ERR_MEMORY_FULL);
    EXPECT_EQ(NAPI_IsProfileValid("TooMany"), NAPI_ERR_NO_PROFILE);
    EXPECT_EQ(napihost::deleteProfile("Full7"), NAPI_OK);
    EXPECT_EQ(NAPI_CreateProfile("Again", &record, 0, 0), NAPI_OK);
}

TEST_F(StoreCalls, FullStoreStillTakesChanges)
{
    fillUpTo(NAPI_GetMaxProfiles() - 1);
    ASSERT_EQ(NAPI_CreateProfile("Last", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(NAPI_CreateProfile("Last", &record, 0, 0), NAPI_ERR_EXISTS);
    EXPECT_EQ(NAPI_ModifyProfile("Last", &record, 0, 0), NAPI_OK);
    EXPECT_EQ(napihost::renameProfile("Last", "Renamed"), NAPI_OK);
}

TEST_F(StoreCalls, FoldersThatAreNoProfilesTakeNoPlace)
{
    fillUpTo(NAPI_GetMaxProfiles() - 1);
    fs::create_directory(world.profiles() + "/.foreign");
    fs::create_directory(world.profiles() + "/line\nfeed");
    EXPECT_EQ(NAPI_CreateProfile("Last", &record, 0, 0), NAPI_OK);
}

TEST_F(StoreCalls, RootIsReadFromTheEnvironmentAtEachCall)
{
    world.reset({{"A", 1}});
    StoreWorld other;
    EXPECT_EQ(storedProfiles(), Profiles{});
    setenv("VORN_ROOT", (world.root() + "/").c_str(), 1);
    EXPECT_EQ(storedProfiles(), (Profiles{{"A", 1}}));
    EXPECT_EQ(napihost::rootFolder(), world.root());
    EXPECT_EQ(napihost::profilesFolder(), world.profiles());
}

} // namespace
