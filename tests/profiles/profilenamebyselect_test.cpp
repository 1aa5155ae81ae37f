// Choosing a profile, with the network API scripted and a person at the screen.
#include "profilefunctions.h"

#include "common/gui_test.h"
#include "profiles/malloc_watch.h"
#include "profiles/platform_hooks.h"
#include "profiles/recorder.h"
#include "profiles/scripted_napi.h"
#include "profiles/select_dialog.h"

using namespace selectdialog;
using recorder::Calls;
using recorder::calls;
using scripted::slot;

namespace {

class SelectProfile : public GuiTest
{
protected:
    typedef std::function<void(YProfileSelectDlg&)> Step;

    void SetUp() override
    {
        GuiTest::SetUp();
        napi.filled = {slot("Home"), slot("Work"), slot("Train")};
        napi.afterLimit = [] { mallocwatch::watchNext(false); };
    }

    void TearDown() override
    {
        hooks::recordLoop(false);
        hooks::hideListBox(false);
        hooks::pretendCurrentItem(-1);
        EXPECT_FALSE(mallocwatch::isHeld());
        GuiTest::TearDown();
    }

    // Calls the function; a person takes the steps one after the other.
    int select(const std::vector<Step>& person)
    {
        scripted::play(napi);
        std::vector<std::function<void()>> steps;
        for (const Step& step : person)
            steps.push_back([step] {
                ASSERT_NE(shown(), nullptr) << "no dialog is shown";
                step(*shown());
            });
        if (!steps.empty())
            later(steps);
        calls().clear();
        return getProfileNamebySelect(name);
    }

    static Step key(Qt::Key which)
    {
        return [which](YProfileSelectDlg&) { press(which); };
    }
    static void accept(YProfileSelectDlg&) { press(Qt::Key_F1); }
    static void cancel(YProfileSelectDlg&) { press(Qt::Key_Escape); }

    scripted::Napi napi;
    QString name = "before";
    recorder::Log log;
};

struct Way
{
    const char* name;
    std::vector<std::function<void(YProfileSelectDlg&)>> steps;
    int result;
    const char* chosen;
};

void PrintTo(const Way& row, std::ostream* out)
{
    *out << row.name;
}

class WayThroughTheDialog : public SelectProfile, public testing::WithParamInterface<Way>
{};

TEST_P(WayThroughTheDialog, EndsAsItShould)
{
    name = "Work";
    EXPECT_EQ(select(GetParam().steps), GetParam().result);
    EXPECT_EQ(name, GetParam().chosen);
    EXPECT_EQ(shown(), nullptr);
}

template <Qt::Key which> void press(YProfileSelectDlg&)
{
    GuiTest::press(which);
}

template <int row> void touchRow(YProfileSelectDlg& dialog)
{
    tapRow(dialog, row);
}

template <int key> void touchKey(YProfileSelectDlg& dialog)
{
    tapKey(dialog, key);
}

void touchBeside(YProfileSelectDlg&)
{
    GuiTest::tap(QPoint(2, 2));
}

INSTANTIATE_TEST_SUITE_P(
    ByKeys, WayThroughTheDialog,
    testing::Values(Way{"LeftKeyTakesTheCheckedRow", {press<Qt::Key_F1>}, 0, "Work"},
                    Way{"ReturnTakesTheCheckedRow", {press<Qt::Key_Return>}, 0, "Work"},
                    Way{"DownAndReturn", {press<Qt::Key_Down>, press<Qt::Key_Return>}, 0, "Train"},
                    Way{"UpAndLeftKey", {press<Qt::Key_Up>, press<Qt::Key_F1>}, 0, "Home"},
                    Way{"Escape", {press<Qt::Key_Escape>}, -100, "Work"},
                    Way{"DownAndRightKey", {press<Qt::Key_Down>, press<Qt::Key_F2>}, -100, "Work"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    ByFinger, WayThroughTheDialog,
    testing::Values(Way{"FirstRow", {touchRow<0>}, 0, "Home"},
                    Way{"LastRow", {touchRow<2>}, 0, "Train"},
                    Way{"LeftKeyTakesTheCheckedRow", {touchKey<0>}, 0, "Work"},
                    Way{"RightKeyCancels", {touchKey<1>}, -100, "Work"},
                    Way{"BesideTheDialogDoesNothing", {touchBeside, touchKey<1>}, -100, "Work"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SelectProfile, ShowsTheNamesInTheOrderOfTheNetworkApi)
{
    QStringList names;
    select({[&](YProfileSelectDlg& dialog) {
        names = rows(dialog);
        press(Qt::Key_Escape);
    }});
    EXPECT_EQ(names, (QStringList{"Home", "Work", "Train"}));
}

struct Preset
{
    const char* name;
    QString given;
    const char* checked;
};

void PrintTo(const Preset& row, std::ostream* out)
{
    *out << row.name;
}

class GivenName : public SelectProfile, public testing::WithParamInterface<Preset>
{};

TEST_P(GivenName, DecidesWhichRowIsCheckedAndIsChangedOnSuccessOnly)
{
    name = GetParam().given;
    QString checked;
    EXPECT_EQ(select({[&](YProfileSelectDlg& dialog) {
                  checked = checkedRow(dialog);
                  press(Qt::Key_Escape);
              }}),
              -100);
    EXPECT_EQ(checked, GetParam().checked);
    EXPECT_EQ(name, GetParam().given);
    EXPECT_EQ(select({accept}), 0);
    EXPECT_EQ(name, GetParam().checked);
}

INSTANTIATE_TEST_SUITE_P(Names, GivenName,
                         testing::Values(Preset{"Empty", "", "Home"}, Preset{"Null", {}, "Home"},
                                         Preset{"Stored", "Train", "Train"},
                                         Preset{"OtherCase", "train", "Home"},
                                         Preset{"NotStored", "Boat", "Home"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SelectProfile, ShowsANameOf63BytesWhole)
{
    const std::string longest(63, 'w');
    napi.filled = {slot(longest)};
    std::string shownText;
    EXPECT_EQ(select({[&](YProfileSelectDlg& dialog) {
                  shownText =
                      dialog.getListBox()->item(0)->getSubItemText(1, 0, true).toStdString();
                  press(Qt::Key_F1);
              }}),
              0);
    EXPECT_EQ(shownText, longest);
    EXPECT_EQ(name.toStdString(), longest);
}

TEST_F(SelectProfile, ReadsASlotWithoutNulToItsEnd)
{
    napi.filled = {std::string(64, 'a'), slot("b"), std::string(64, 'c')};
    QStringList names;
    select({[&](YProfileSelectDlg& dialog) {
        names = rows(dialog);
        press(Qt::Key_Escape);
    }});
    EXPECT_EQ(names, (QStringList{QString(64, 'a'), "b", QString(64, 'c')}));
}

TEST_F(SelectProfile, ShowsBrokenUtf8WithReplacementCharacters)
{
    napi.filled = {slot("a\xff"
                        "b\xe7\xbd"),
                   slot("\xe7\xbd\x91")};
    EXPECT_EQ(select({accept}), 0);
    EXPECT_EQ(name, QString("a") + QChar(0xfffd) + "b" + QChar(0xfffd) + QChar(0xfffd));
}

TEST_F(SelectProfile, FreesTheNamesBeforeItShowsThemAndPaintsBeforeItReturns)
{
    napi.afterLimit = [] {
        mallocwatch::watchNext(false);
        hooks::recordLoop(true);
    };
    EXPECT_EQ(select({accept}), 0);
    EXPECT_EQ(calls(), (Calls{"list count 0", "limit 100", "malloc 192", "list names 3",
                              "dialog made", "free", "wake", "exec", "exec ends", "dialog deleted",
                              "process events, dialog gone"}));
}

TEST_F(SelectProfile, PaintsBeforeItReturnsWhenCancelledToo)
{
    napi.afterLimit = [] { hooks::recordLoop(true); };
    EXPECT_EQ(select({cancel}), -100);
    EXPECT_EQ(calls(),
              (Calls{"list count 0", "limit 100", "list names 3", "dialog made", "wake", "exec",
                     "exec ends", "dialog deleted", "process events, dialog gone"}));
}

struct Limit
{
    const char* name;
    std::vector<unsigned int> answers;
    Calls calls;
    QStringList rows;
};

void PrintTo(const Limit& row, std::ostream* out)
{
    *out << row.name;
}

class ProfileLimit : public SelectProfile, public testing::WithParamInterface<Limit>
{};

TEST_P(ProfileLimit, BoundsTheList)
{
    napi.limits = GetParam().answers;
    QStringList names;
    EXPECT_EQ(select({[&](YProfileSelectDlg& dialog) {
                  names = rows(dialog);
                  press(Qt::Key_Escape);
              }}),
              -100);
    EXPECT_EQ(names, GetParam().rows);
    EXPECT_EQ(calls(), GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ProfileLimit,
    testing::Values(
        Limit{"AtTheCount",
              {3},
              {"list count 0", "limit 3", "malloc 192", "list names 3", "free"},
              {"Home", "Work", "Train"}},
        Limit{"BelowTheCountIsAskedTwice",
              {2},
              {"list count 0", "limit 2", "limit 2", "malloc 128", "list names 2", "free"},
              {"Home", "Work"}},
        Limit{"SecondAnswerCounts",
              {2, 1},
              {"list count 0", "limit 2", "limit 1", "malloc 64", "list names 1", "free"},
              {"Home"}},
        Limit{"SecondAnswerAboveTheCount",
              {2, 5},
              {"list count 0", "limit 2", "limit 5", "malloc 320", "list names 5", "free"},
              {"Home", "Work", "Train"}},
        Limit{"ComparedUnsigned",
              {0x80000000U},
              {"list count 0", "limit 2147483648", "malloc 192", "list names 3", "free"},
              {"Home", "Work", "Train"}},
        Limit{"Zero",
              {0},
              {"list count 0", "limit 0", "limit 0", "malloc 0", "list names 0", "free"},
              {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SelectProfile, ShowsAsManyNamesAsTheListingHasFilled)
{
    napi.secondCount = 2;
    QStringList names;
    select({[&](YProfileSelectDlg& dialog) {
        names = rows(dialog);
        press(Qt::Key_Escape);
    }});
    EXPECT_EQ(names, (QStringList{"Home", "Work"}));
}

TEST_F(SelectProfile, ShowsNoMoreNamesThanItsBufferHas)
{
    napi.secondCount = 4000;
    QStringList names;
    select({[&](YProfileSelectDlg& dialog) {
        names = rows(dialog);
        press(Qt::Key_Escape);
    }});
    EXPECT_EQ(names, (QStringList{"Home", "Work", "Train"}));
}

TEST_F(SelectProfile, ShowsAnEmptyNameForASlotThatIsCountedAndNotFilled)
{
    napi.firstCount = 5;
    napi.secondCount = 5;
    QStringList names;
    select({[&](YProfileSelectDlg& dialog) {
        names = rows(dialog);
        press(Qt::Key_Escape);
    }});
    EXPECT_EQ(names, (QStringList{"Home", "Work", "Train", "", ""}));
}

TEST_F(SelectProfile, HandsOverABufferThatBeginsWithFourZeros)
{
    select({cancel});
    EXPECT_TRUE(scripted::beganWithZeros());
}

TEST_F(SelectProfile, ShowsAnEmptyListWhenTheListingFillsNothing)
{
    napi.secondCount = 0;
    EXPECT_EQ(select({cancel}), -100);
    EXPECT_EQ(name, "before");
}

TEST_F(SelectProfile, ShowsNothingWithoutProfiles)
{
    napi.filled.clear();
    EXPECT_EQ(select({}), -100);
    EXPECT_EQ(name, "before");
    EXPECT_EQ(calls(), (Calls{"list count 0", "log: No profile exists.\n"}));
}

TEST_F(SelectProfile, PassesOnThatTheCountFails)
{
    napi.firstResult = -209;
    EXPECT_EQ(select({}), -209);
    EXPECT_EQ(name, "before");
    EXPECT_EQ(calls(), (Calls{"list count 0", "log: NAPI_ListAllProfile return error\n"}));
}

TEST_F(SelectProfile, PassesOnThatTheListingFails)
{
    napi.secondResult = -1;
    EXPECT_EQ(select({}), -1);
    EXPECT_EQ(name, "before");
    EXPECT_EQ(calls(), (Calls{"list count 0", "limit 100", "malloc 192", "list names 3",
                              "log: NAPI_ListAllProfile return error\n", "free"}));
}

TEST_F(SelectProfile, TakesPositiveResultsForSuccess)
{
    napi.firstResult = 1;
    napi.secondResult = 2;
    EXPECT_EQ(select({accept}), 0);
    EXPECT_EQ(name, "Home");
}

TEST_F(SelectProfile, SaysThatMemoryHasRunOut)
{
    napi.afterLimit = [] { mallocwatch::watchNext(true); };
    EXPECT_EQ(select({}), -100);
    EXPECT_EQ(name, "before");
    EXPECT_EQ(calls(), (Calls{"list count 0", "limit 100", "malloc 192",
                              "log: Can not malloc memory for profiles.\n"}));
}

TEST_F(SelectProfile, SelectsNothingWhenAcceptedWithoutACurrentRow)
{
    EXPECT_EQ(select({[](YProfileSelectDlg& dialog) {
                  dialog.getListBox()->clear();
                  dialog.accept();
              }}),
              -100);
    EXPECT_EQ(name, "before");
}

TEST_F(SelectProfile, SelectsNothingWhenTheCurrentRowIsNone)
{
    EXPECT_EQ(select({[](YProfileSelectDlg& dialog) {
                  hooks::pretendCurrentItem(99);
                  dialog.accept();
              }}),
              -100);
    EXPECT_EQ(name, "before");
}

TEST_F(SelectProfile, SelectsNothingFromADialogWithoutAList)
{
    napi.afterLimit = [] { hooks::hideListBox(true); };
    EXPECT_EQ(select({[](YProfileSelectDlg& dialog) { dialog.accept(); }}), -100);
    EXPECT_EQ(name, "before");
}

TEST_F(SelectProfile, OutlivesThatItsDialogIsDeletedMeanwhile)
{
    EXPECT_EQ(select({[](YProfileSelectDlg& dialog) { delete &dialog; }}), -100);
    EXPECT_EQ(name, "before");
}

TEST_F(SelectProfile, MayBeCalledFromInsideItself)
{
    QString inner;
    EXPECT_EQ(select({[&](YProfileSelectDlg&) {
                  later([] { press(Qt::Key_Escape); });
                  EXPECT_EQ(getProfileNamebySelect(inner), -100);
                  press(Qt::Key_F1);
              }}),
              0);
    EXPECT_EQ(name, "Home");
}

TEST_F(SelectProfile, LeavesNothingBehindAfterManyCalls)
{
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(select({i % 2 ? accept : cancel}), i % 2 ? 0 : -100);
        EXPECT_EQ(shown(), nullptr);
    }
}

} // namespace
