// Memory that runs out while a profile is chosen or named, at each allocation in turn.

#include <new>

#include <QApplication>
#include <QStringList>

#include <profilefunctions.h>
#include <ykbmainwidget.h>
#include <yprofileselectdlg.h>

#include "common/failing_memory.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using failingmemory::forEachAllocation;
using failingmemory::Of;
using recorder::Calls;

class ProfilesMemory : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        napi.profiles = {{"Profile1", {}}, {"A name that no text holds by itself", {}}};
        name = "kept";
        widgetsBefore = QApplication::allWidgets().size();
    }

    // Calls a function with one failing allocation, and cancels what opens after all. Result: that
    // of the function, -99 where an exception came instead.
    int callWithout(int number, EntryPoint function, bool* hasFailed)
    {
        bool isDone = false;
        later([&isDone] {
            failingmemory::stop();
            isDone = true;
            if (activeLayer())
                cancel();
        });
        failingmemory::failAt(number);
        int result = -99;
        EXPECT_NO_THROW(result = function(name)) << number;
        *hasFailed = failingmemory::stop();
        EXPECT_TRUE(waitFor([&isDone] { return isDone; }));
        settle();
        EXPECT_EQ(widgetsBefore, QApplication::allWidgets().size()) << number;
        return result;
    }

    int callWithoutFailure()
    {
        later([] { press(Qt::Key_F1); });
        return getProfileNamebySelect(name);
    }

    qsizetype widgetsBefore = 0;
};

TEST_F(ProfilesMemory, ThatRunsOutAtEachStepOfChoosingGivesTheResult)
{
    const int allocations = forEachAllocation([this](int number) {
        bool hasFailed = false;
        take();
        EXPECT_EQ(callWithout(number, getProfileNamebySelect, &hasFailed), -100);
        EXPECT_EQ(hasFailed ? Calls{"log: Can not malloc memory for profiles.\n"} : Calls(), take())
            << number;
        EXPECT_EQ(name.toStdString(), "kept");
        return hasFailed;
    });
    EXPECT_GE(allocations, 8);
    EXPECT_EQ(callWithoutFailure(), 0);
    EXPECT_EQ(name.toStdString(), "A name that no text holds by itself");
}

template <class Layer> bool isBuiltWithout(int number, bool* hasFailed)
{
    failingmemory::failAt(number, Of::Toolkit);
    bool isBuilt = true;
    try {
        Layer layer;
        *hasFailed = failingmemory::stop();
    } catch (const std::bad_alloc&) {
        *hasFailed = failingmemory::stop();
        isBuilt = false;
    }
    return isBuilt;
}

struct SelectDialog : YProfileSelectDlg
{
    SelectDialog() : YProfileSelectDlg(names(), "Work", nullptr, nullptr) {}
    static QStringList& names()
    {
        static QStringList list = {"Home", "Work"};
        return list;
    }
};

struct PlainPage : YKbMainWidget
{
    PlainPage() : YKbMainWidget(nullptr, "page", 0) {}
};

// What is left on the screen of a layer that was not finished would be used with the next one.
TEST_F(ProfilesMemory, ThatRunsOutInTheToolkitLeavesNoHalfOfADialogOrAPage)
{
    for (const auto build : {isBuiltWithout<SelectDialog>, isBuiltWithout<PlainPage>}) {
        const int allocations = forEachAllocation([this, build](int number) {
            bool hasFailed = false;
            const bool isBuilt = build(number, &hasFailed);
            // Screen readers are done without.
            EXPECT_TRUE(isBuilt || hasFailed) << number;
            settle();
            EXPECT_EQ(QApplication::allWidgets().size(), widgetsBefore) << number;
            EXPECT_EQ(callWithoutFailure(), 0) << number;
            return hasFailed;
        });
        EXPECT_GE(allocations, 2);
    }
}

// The not-found flow tells what the choosing behind it has told.
TEST_F(ProfilesMemory, ThatRunsOutWhileChoosingBehindTheQuestionGivesTheResultOfChoosing)
{
    const int allocations = forEachAllocation([this](int number) {
        bool hasFailed = false;
        bool isDone = false;
        perform({[] { press(Qt::Key_Down); },
                 [number] {
                     failingmemory::failAt(number);
                     press(Qt::Key_F1);
                 },
                 [&hasFailed, &isDone] {
                     hasFailed = failingmemory::stop();
                     isDone = true;
                     if (activeLayer())
                         cancel();
                 }});
        int result = -99;
        EXPECT_NO_THROW(result = getProfileIfNoFound(name)) << number;
        EXPECT_TRUE(waitFor([&isDone] { return isDone; }));
        settle();
        EXPECT_EQ(result, -100) << number;
        EXPECT_EQ(widgetsBefore, QApplication::allWidgets().size()) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 8);
}

TEST_F(ProfilesMemory, ThatRunsOutAtEachStepOfNamingLeavesTheName)
{
    const int allocations = forEachAllocation([this](int number) {
        take();
        name = "kept";
        failingmemory::failAt(number, Of::Everybody);
        EXPECT_NO_THROW(getDefaultProfileName(name)) << number;
        const bool hasFailed = failingmemory::stop();
        EXPECT_EQ(hasFailed ? "kept" : "Profile2", name.toStdString()) << number;
        EXPECT_EQ(hasFailed ? Calls{"log: Can not alloc memory for profile.\n"} : Calls(), take())
            << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 4);
}

} // namespace
