// Memory that runs out, at each allocation of the library in turn: a result code comes back, no
// exception, and nothing stays behind.

#include <algorithm>
#include <string>

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <profilefunctions.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "common/failing_memory.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using failingmemory::forEachAllocation;
using recorder::Calls;

// Longer than what a std::string holds without an allocation.
const char* const profile = "A profile of Europe";
const char* const otherName = "Another of the same";
const char* const folders = "vornlocal/download/appwrite/NetProfile/";

class Memory : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
        store();
    }

    void store()
    {
        napi.profiles = {{profile, RecordBytes().byte(1, 1).word(4, 0x400).text(8, "a").record()}};
        QDir(root.filePath(folders)).removeRecursively();
        QDir(root.path()).mkpath(QString(folders) + profile);
    }

    bool isFolder(const char* of) const { return QFileInfo(root.filePath(folders) + of).isDir(); }

    static bool isLogged(const char* text)
    {
        const Calls calls = take();
        return std::any_of(calls.begin(), calls.end(), [text](const std::string& call) {
            return call.find(text) != std::string::npos;
        });
    }

    // Calls an entry point with one failing allocation, and cancels what opens after all. Result:
    // that of the entry point, -99 where an exception came instead.
    int openWithout(int number, EntryPoint entry, bool* hasFailed)
    {
        bool isDone = false;
        later([&isDone] {
            isDone = true;
            if (activeLayer())
                cancel();
        });
        failingmemory::failAt(number);
        int result = -99;
        EXPECT_NO_THROW(result = entry(name)) << number;
        *hasFailed = failingmemory::stop();
        EXPECT_TRUE(waitFor([&isDone] { return isDone; }));
        settle();
        return result;
    }

    // Opens a wizard, fills in a row of page 1 and saves it with one failing allocation. Result:
    // that of the wizard.
    int saveWithout(int number, EntryPoint entry, const char* label, const char* text,
                    bool* hasFailed)
    {
        name = profile;
        return run(entry, {[label, text] {
                               editOf(wizardPage(1), "GPRS APN:")->setText("b");
                               editOf(wizardPage(1), label)->setText(text);
                           },
                           opening([number, hasFailed] {
                               failingmemory::failAt(number);
                               save();
                               *hasFailed = failingmemory::stop();
                           }),
                           [] {
                               if (!popupText().empty())
                                   dismiss();
                           }});
    }
};

struct EntryRow
{
    const char* name;
    int (*entry)(QString&);
};

void PrintTo(const EntryRow& row, std::ostream* out)
{
    *out << row.name;
}

class MemoryForOpening : public Memory, public testing::WithParamInterface<EntryRow>
{};

TEST_P(MemoryForOpening, RunsOutAtEachStepAndTheWizardIsClosed)
{
    const int allocations = forEachAllocation([this](int number) {
        name = profile;
        take();
        bool hasFailed = false;
        const int result = openWithout(number, GetParam().entry, &hasFailed);
        // Where only the default name could not be made, the wizard opens without one.
        const bool isOpened = !hasFailed || isLogged("Can not alloc memory for profile.\n");
        EXPECT_EQ(isOpened ? 1 : 2, result) << number;
        EXPECT_EQ(profile, name.toStdString());
        EXPECT_EQ(wizardPageCount(), 0) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 40);
    EXPECT_EQ(napi.profiles.size(), 1u);
}

const EntryRow entries[] = {
    {"Create", createProfilebyUser},
    {"Copy", copyProfilebyUser},
    {"Edit", editProfilebyUser},
};
INSTANTIATE_TEST_SUITE_P(Table, MemoryForOpening, testing::ValuesIn(entries),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(Memory, ThatRunsOutAtEachStepOfCreatingCreatesNothing)
{
    const int allocations = forEachAllocation([this](int number) {
        store();
        bool hasFailed = false;
        const int result =
            saveWithout(number, createProfilebyUser, "Profile Name:*", otherName, &hasFailed);
        EXPECT_EQ(hasFailed ? 2 : 0, result) << number;
        EXPECT_EQ(hasFailed ? 0u : 1u, napi.profiles.count(otherName)) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 2);
    EXPECT_EQ(otherName, name.toStdString());
}

TEST_F(Memory, ThatRunsOutAtEachStepOfChangingChangesNothing)
{
    const int allocations = forEachAllocation([this](int number) {
        store();
        bool hasFailed = false;
        const int result =
            saveWithout(number, editProfilebyUser, "Profile Name:*", otherName, &hasFailed);
        EXPECT_EQ(hasFailed ? 2 : 0, result) << number;
        EXPECT_EQ(hasFailed, isFolder(profile)) << number;
        EXPECT_EQ(!hasFailed, isFolder(otherName)) << number;
        EXPECT_EQ(hasFailed ? 0u : 1u, napi.profiles.count(otherName)) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 4);
}

TEST_F(Memory, ThatRunsOutWhileSavingIsLogged)
{
    bool hasFailed = false;
    take();
    EXPECT_EQ(saveWithout(0, createProfilebyUser, "Profile Name:*", otherName, &hasFailed), 2);
    EXPECT_TRUE(hasFailed);
    EXPECT_EQ(Calls{"log: NSETUP: can not get memory to save profile\nNetwork: Save profile data "
                    "error!\n"},
              take());
}

TEST_F(Memory, ThatRunsOutAtEachStepOfTheNotFoundFlowGivesAResult)
{
    const int allocations = forEachAllocation([this](int number) {
        name = "kept";
        bool hasFailed = false;
        const int result = openWithout(number, getProfileIfNoFound, &hasFailed);
        EXPECT_EQ(hasFailed ? -1 : 1, result) << number;
        EXPECT_EQ(name.toStdString(), "kept");
        return hasFailed;
    });
    EXPECT_GE(allocations, 2);
}

} // namespace
