#include "profilefunctions.h"

#include "profiles/array_allocation.h"
#include "profiles/recorder.h"
#include "profiles/scripted_napi.h"

using recorder::Calls;
using recorder::calls;
using scripted::slot;

namespace {

class DefaultProfileName : public recorder::Recording
{
protected:
    ~DefaultProfileName() override
    {
        allocation::failArrays(false);
        EXPECT_EQ(allocation::heldArrays(), 0);
    }

    std::string nameFor(const scripted::Napi& napi)
    {
        QString name("before");
        scripted::play(napi);
        getDefaultProfileName(name);
        return name.toUtf8().toStdString();
    }

    std::string nameBeside(const std::vector<std::string>& stored)
    {
        scripted::Napi napi;
        for (const std::string& name : stored)
            napi.filled.push_back(slot(name));
        return nameFor(napi);
    }
};

struct Row
{
    const char* name;
    std::vector<std::string> stored;
    const char* expected;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class StoredNames : public DefaultProfileName, public testing::WithParamInterface<Row>
{};

TEST_P(StoredNames, GiveTheNextName)
{
    EXPECT_EQ(nameBeside(GetParam().stored), GetParam().expected);
}

std::string rowName(const testing::TestParamInfo<Row>& row)
{
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    ThatCount, StoredNames,
    testing::Values(
        Row{"One", {"Profile1"}, "Profile2"}, Row{"Gap", {"Profile1", "Profile5"}, "Profile6"},
        Row{"NumericNotTextual", {"Profile10", "Profile9"}, "Profile11"},
        Row{"AnyOrder", {"Profile3", "Profile8", "Profile4"}, "Profile9"},
        Row{"AmongOthers", {"Profile", "Profile2", "profile9"}, "Profile3"},
        Row{"LeadingZeros", {"Profile007"}, "Profile8"}, Row{"PlusSign", {"Profile+5"}, "Profile6"},
        Row{"BlankBefore", {"Profile 5"}, "Profile6"}, Row{"BlankAfter", {"Profile5 "}, "Profile6"},
        Row{"WideBlank",
            {"Profile\xe3\x80\x80"
             "5"},
            "Profile6"},
        Row{"ArabicDigits", {"Profile\xd9\xa1\xd9\xa2"}, "Profile13"},
        Row{"FullwidthDigit", {"Profile\xef\xbc\x97"}, "Profile8"},
        Row{"OneBelowTheLargest", {"Profile2147483646"}, "Profile2147483647"},
        Row{"LargestWrapsAround", {"Profile2147483647"}, "Profile-2147483648"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    ThatDoNotCount, StoredNames,
    testing::Values(
        Row{"None", {}, "Profile1"}, Row{"BareBase", {"Profile"}, "Profile1"},
        Row{"LowerCase", {"profile9"}, "Profile1"}, Row{"UpperCase", {"PROFILE9"}, "Profile1"},
        Row{"BaseInside", {"MyProfile7"}, "Profile1"}, Row{"BlankFirst", {" Profile7"}, "Profile1"},
        Row{"PartOfTheBase", {"Profil77"}, "Profile1"}, Row{"Zero", {"Profile0"}, "Profile1"},
        Row{"Negative", {"Profile-3"}, "Profile1"}, Row{"TextBehind", {"Profile7x"}, "Profile1"},
        Row{"TwoNumbers", {"Profile7 8"}, "Profile1"}, Row{"Fraction", {"Profile7.0"}, "Profile1"},
        Row{"Hexadecimal", {"Profile0x10"}, "Profile1"},
        Row{"OnlyABlank", {"Profile "}, "Profile1"}, Row{"OnlyASign", {"Profile-"}, "Profile1"},
        Row{"OneAboveTheLargest", {"Profile2147483648"}, "Profile1"},
        Row{"WrapsIn32Bits", {"Profile4294967299"}, "Profile1"},
        Row{"WrapsIn64Bits", {"Profile18446744073709551619"}, "Profile1"},
        Row{"BrokenUtf8Behind", {"Profile7\xff"}, "Profile1"},
        Row{"BrokenUtf8Before", {"\xe2Profile7"}, "Profile1"},
        Row{"OverlongDigit", {"Profile\xc0\xb7"}, "Profile1"}, Row{"Empty", {""}, "Profile1"}),
    rowName);

TEST_F(DefaultProfileName, IsMadeFromOneCountAndOneListing)
{
    nameBeside({"Profile1", "Profile2"});
    EXPECT_EQ(calls(), (Calls{"list count 0", "new[] 128", "list names 2", "delete[]"}));
}

TEST_F(DefaultProfileName, GoesOnWithAnEmptyListWhenNothingIsStored)
{
    EXPECT_EQ(nameBeside({}), "Profile1");
    EXPECT_EQ(calls(), (Calls{"list count 0", "new[] 0", "list names 0", "delete[]"}));
}

TEST_F(DefaultProfileName, SeesAProfileStoredMeanwhileOnTheNextCall)
{
    EXPECT_EQ(nameBeside({"Profile1"}), "Profile2");
    EXPECT_EQ(nameBeside({"Profile1", "Profile2"}), "Profile3");
}

TEST_F(DefaultProfileName, StaysAsItIsWhenTheCountFails)
{
    scripted::Napi napi;
    napi.filled = {slot("Profile1")};
    napi.firstResult = -208;
    EXPECT_EQ(nameFor(napi), "before");
    EXPECT_EQ(calls(), (Calls{"list count 0", "log: NAPI_ListAllProfile return error\n"}));
}

TEST_F(DefaultProfileName, StaysAsItIsWhenTheListingFails)
{
    scripted::Napi napi;
    napi.filled = {slot("Profile1")};
    napi.secondResult = -1;
    EXPECT_EQ(nameFor(napi), "before");
    EXPECT_EQ(calls(), (Calls{"list count 0", "new[] 64", "list names 1",
                              "log: NAPI_ListAllProfile return error\n", "delete[]"}));
}

TEST_F(DefaultProfileName, StaysAsItIsWhenMemoryHasRunOut)
{
    allocation::failArrays(true);
    EXPECT_EQ(nameBeside({"Profile1"}), "before");
    EXPECT_EQ(calls(),
              (Calls{"list count 0", "new[] 64", "log: Can not alloc memory for profile.\n"}));
}

TEST_F(DefaultProfileName, TakesAPositiveResultForSuccess)
{
    scripted::Napi napi;
    napi.filled = {slot("Profile1")};
    napi.firstResult = 1;
    napi.secondResult = 1;
    EXPECT_EQ(nameFor(napi), "Profile2");
}

TEST_F(DefaultProfileName, LooksAtAsManyNamesAsTheListingHasFilled)
{
    scripted::Napi napi;
    napi.filled = {slot("Profile1"), slot("Profile2"), slot("Profile3")};
    napi.secondCount = 2;
    EXPECT_EQ(nameFor(napi), "Profile3");
    napi.secondCount = 0;
    EXPECT_EQ(nameFor(napi), "Profile1");
}

TEST_F(DefaultProfileName, LooksAtNoMoreNamesThanItsBufferHas)
{
    scripted::Napi napi;
    napi.filled = {slot("Profile1"), slot("Profile2"), slot("Profile3")};
    napi.firstCount = 2;
    napi.secondCount = 3000;
    EXPECT_EQ(nameFor(napi), "Profile3");
}

TEST_F(DefaultProfileName, FindsNoNameInASlotThatIsCountedAndNotFilled)
{
    scripted::Napi napi;
    napi.filled = {slot("Profile1"), slot("Profile2")};
    napi.firstCount = 4;
    napi.secondCount = 4;
    EXPECT_EQ(nameFor(napi), "Profile3");
}

TEST_F(DefaultProfileName, ReadsASlotWithoutNulToItsEnd)
{
    scripted::Napi napi;
    napi.filled = {"Profile" + std::string(55, '0') + "12", slot("7")};
    ASSERT_EQ(napi.filled[0].size(), 64U);
    EXPECT_EQ(nameFor(napi), "Profile13");
    napi.filled.pop_back();
    EXPECT_EQ(nameFor(napi), "Profile13");
}

TEST_F(DefaultProfileName, ReadsASlotUpToItsNul)
{
    scripted::Napi napi;
    napi.filled = {std::string("Profile4\0005", 10)};
    EXPECT_EQ(nameFor(napi), "Profile5");
}

TEST_F(DefaultProfileName, ReadsANameThatFillsItsSlotUpToTheNul)
{
    EXPECT_EQ(nameBeside({"Profile" + std::string(55, '0') + "6"}), "Profile7");
}

} // namespace
