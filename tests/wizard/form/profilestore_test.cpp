// Storing a form, without widgets: the record that reaches the network API, and the name that the
// profile has from then on.

#include <cstring>
#include <string>

#include <QDir>
#include <QTemporaryDir>

#include "profiles/recorder.h"
#include "support/text.h"
#include "wizard/form/array_form.h"
#include "wizard/form/profilefolder.h"
#include "wizard/form/profilestore.h"
#include "wizard/world/heap.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/recorded_napi.h"

namespace {

std::string rootFolder;

} // namespace

// Where the library finds the phone's files.
extern "C" int NAPIHOST_RootFolder(char* buffer, std::size_t size)
{
    if (rootFolder.size() >= size)
        return NAPI_ERR_ARGUMENT;
    std::memcpy(buffer, rootFolder.c_str(), rootFolder.size() + 1);
    return NAPI_OK;
}

namespace {

using recorder::Calls;
using wizard::Choice;
using wizard::Text;

// Profile folders in a root of their own.
class Folders : public recorder::Recording
{
protected:
    Folders()
    {
        rootFolder = root.path().toStdString();
        makeFolder("Old");
    }

    static std::string path(const std::string& profile)
    {
        return rootFolder + "/vornlocal/download/appwrite/NetProfile/" + profile;
    }
    static void makeFolder(const std::string& profile)
    {
        QDir().mkpath(QString::fromStdString(path(profile)));
    }
    // The names of the folders there are, with '/' behind each.
    static std::string folders()
    {
        std::string names;
        const QDir::Filters all = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
        for (const QString& found : QDir(QString::fromStdString(path(""))).entryList(all))
            names += found.toStdString() + "/";
        return names;
    }
    static std::string refusal(const std::string& from, const std::string& to)
    {
        return "log: rename profile name from " + path(from) + " to " + path(to) + " failed!\n";
    }

    QTemporaryDir root;
};

class Store : public Folders
{
protected:
    Store()
    {
        purpose.storedName = "Old";
        form.setText(Text::ProfileName, " New ");
        form.setText(Text::GprsApn, "a");
    }
    ~Store() override { heap::failMallocOf(0); }

    int store(const RecordBytes& before)
    {
        const NetworkProfile record = before.record();
        return wizard::storeProfile(form, purpose, &record, false, &storedName);
    }

    ArrayForm form;
    wizard::FormPurpose purpose;
    RecordedNapi napi;
    QString storedName = "remembered";
};

struct FlagsRow
{
    const char* name;
    bool hasWifi;
    int item;
    unsigned before;
    unsigned after;
};

void PrintTo(const FlagsRow& row, std::ostream* out)
{
    *out << row.name;
}

class Flags : public Store, public testing::WithParamInterface<FlagsRow>
{};

TEST_P(Flags, KeepEveryBitButTheFourOfThePreference)
{
    const FlagsRow& row = GetParam();
    form.setChoice(Choice::Preference, row.item);
    purpose.hasWifi = row.hasWifi;
    for (bool creating : {true, false}) {
        purpose.isCreating = creating;
        makeFolder("Old");
        EXPECT_EQ(store(RecordBytes().word(4, row.before)), 0);
        EXPECT_EQ(row.after, RecordBytes(napi.written).read(4, 4)) << creating;
        QDir(root.path()).removeRecursively();
    }
}

const FlagsRow flagsRows[] = {
    {"NoWifi", false, 0, 0xA5A5A15A, 0xA5A5A45A},
    {"NoWifiWhateverTheForm", false, 1, 0x5A5A5EA5, 0x5A5A54A5},
    {"NoWifiAllBits", false, 2, 0xFFFFFFFF, 0xFFFFF4FF},
    {"WifiThenCellular", true, 0, 0xA5A5A15A, 0xA5A5A25A},
    {"WifiOnly", true, 1, 0xA5A5A25A, 0xA5A5A15A},
    {"CellularOnly", true, 2, 0xA5A5A15A, 0xA5A5A45A},
    {"FromAnUnknownOne", true, 1, 0xFFFFFFFF, 0xFFFFF1FF},
    {"FromNone", true, 0, 0, 0x200},
};
INSTANTIATE_TEST_SUITE_P(Table, Flags, testing::ValuesIn(flagsRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(Store, OfANewProfileRemembersTheStrippedNameWhateverTheNetworkApiSays)
{
    for (int result : {0, -1, -152}) {
        storedName = "remembered";
        napi.createResult = result;
        EXPECT_EQ(result, store(RecordBytes()));
        EXPECT_EQ(storedName.toStdString(), "New") << result;
    }
}

TEST_F(Store, OfAChangeRemembersTheStrippedNameWhateverTheNetworkApiSays)
{
    purpose.isCreating = false;
    for (int result : {0, -1, -152}) {
        makeFolder("Old");
        storedName = "remembered";
        napi.modifyResult = result;
        EXPECT_EQ(result, store(RecordBytes()));
        EXPECT_EQ(storedName.toStdString(), "New") << result;
        EXPECT_EQ(folders(), "New/");
        QDir(QString::fromStdString(path("New"))).removeRecursively();
    }
}

TEST_F(Store, OfANewNameAloneRemembersIt)
{
    purpose.isCreating = false;
    EXPECT_EQ(store(RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a")), 0);
    EXPECT_EQ(storedName.toStdString(), "New");
    EXPECT_EQ(Calls(), recorder::calls());
}

TEST_F(Store, WhoseFolderCannotBeMovedRemembersTheOldName)
{
    purpose.isCreating = false;
    purpose.storedName = "No such";
    EXPECT_EQ(store(RecordBytes()), 1);
    EXPECT_EQ(storedName.toStdString(), "remembered");
    EXPECT_EQ(Calls{refusal("No such", "New")}, recorder::calls());
}

TEST_F(Store, WithoutMemoryRemembersTheOldNameAndMovesNothing)
{
    for (bool creating : {true, false}) {
        purpose.isCreating = creating;
        recorder::calls().clear();
        heap::failMallocOf(1168);
        EXPECT_EQ(store(RecordBytes()), 1);
        heap::failMallocOf(0);
        EXPECT_EQ(storedName.toStdString(), "remembered");
        EXPECT_EQ(Calls{"log: NSETUP: can not get memory to save profile\n"}, recorder::calls());
        EXPECT_EQ(folders(), "Old/");
    }
}

TEST_F(Store, OfAnUntouchedNameWithBlanksMovesTheFolderToTheStrippedName)
{
    makeFolder(" Old ");
    QDir().rmdir(QString::fromStdString(path("Old")));
    purpose.isCreating = false;
    purpose.storedName = " Old ";
    form.setText(Text::ProfileName, " Old ");
    EXPECT_EQ(store(RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a")), 0);
    EXPECT_EQ(storedName.toStdString(), "Old");
    EXPECT_EQ(folders(), "Old/");
}

struct FolderRow
{
    const char* name;
    std::string from;
    std::string to;
    bool isMoved;
};

void PrintTo(const FolderRow& row, std::ostream* out)
{
    *out << row.name;
}

class Folder : public Folders, public testing::WithParamInterface<FolderRow>
{};

TEST_P(Folder, IsMovedOrStaysAndIsLogged)
{
    const FolderRow& row = GetParam();
    EXPECT_EQ(row.isMoved, wizard::renameProfileFolder(support::fromUtf8(row.from.c_str()),
                                                       support::fromUtf8(row.to.c_str())));
    EXPECT_EQ(row.isMoved ? Calls() : Calls{refusal(row.from, row.to)}, recorder::calls());
    EXPECT_EQ(row.isMoved ? row.to + "/" : "Old/", folders());
}

// 63 bytes.
const std::string wide21 = [] {
    std::string text;
    for (int i = 0; i < 21; ++i)
        text += "\xE4\xB8\xAD";
    return text;
}();

const FolderRow folderRows[] = {
    {"Plain", "Old", "New", true},
    {"TheSameName", "Old", "Old", true},
    {"AnotherCase", "Old", "old", true},
    {"InnerBlank", "Old", "New one", true},
    {"InnerDot", "Old", "v1.2", true},
    {"BeyondLatin", "Old", "B\xC3\xBCro \xE4\xB8\xAD", true},
    {"NoBreakSpace", "Old",
     "a\xC2\xA0"
     "b",
     true},
    {"Bytes63", "Old", std::string(63, 'x'), true},
    {"Bytes64", "Old", std::string(64, 'x'), false},
    {"Bytes63Wide", "Old", wide21, true},
    {"Bytes64Wide", "Old", wide21 + "x", false},
    {"Empty", "Old", "", false},
    {"Slash", "Old", "Old/x", false},
    {"SlashAlone", "Old", "/", false},
    {"TrailingSlash", "Old", "New/", false},
    {"Dot", "Old", ".", false},
    {"DotDot", "Old", "..", false},
    {"LeadingDot", "Old", ".New", false},
    {"ControlFirst", "Old", "\x01New", false},
    {"ControlLast", "Old", "New\x1F", false},
    {"Newline", "Old", "New\nline", false},
    {"Delete", "Old", "New\x7F", false},
    {"ControlOfLatin1", "Old", "New\xC2\x80", false},
    {"LastControlOfLatin1", "Old", "New\xC2\x9F", false},
    {"FromNothing", "No such", "New", false},
    {"FromEmpty", "", "New", false},
    {"FromSlash", "Old/../Old", "New", false},
    {"FromDot", "./Old", "New", false},
};
INSTANTIATE_TEST_SUITE_P(Table, Folder, testing::ValuesIn(folderRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(Folders, AreNotMovedOverOneThatHoldsSomething)
{
    makeFolder("New/inner");
    EXPECT_FALSE(wizard::renameProfileFolder("Old", "New"));
    EXPECT_EQ(Calls{refusal("Old", "New")}, recorder::calls());
    EXPECT_EQ(folders(), "New/Old/");
}

} // namespace
