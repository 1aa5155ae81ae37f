// The entry points and the nested loop.

#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QThread>
#include <QTimer>

#include <profilefunctions.h>
#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <ypressbutton.h>
#include <ysingleselectdlg.h>

#include "wizard/world/heap.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/wizard_fixture.h"

namespace {

using recorder::Calls;

class Entry : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("0");
        napi.profiles["Old"] = RecordBytes().word(4, 0x400).text(8, "a").record();
    }

    // Opens a wizard inside another and has both hidden; `hide` is told the outer one's page.
    void expectBothEnd(const std::function<void(YKbMainWidget*)>& hide)
    {
        QString inner("Old");
        int innerResult = -1;
        YKbMainWidget* first = nullptr;
        const auto open = [&] {
            first = wizardPage(1);
            innerResult = editProfilebyUser(inner);
        };
        EXPECT_EQ(create({opening(open), [&] { hide(first); }}), 2);
        EXPECT_EQ(innerResult, 2);
        EXPECT_EQ(wizardPageCount(), 0);
    }
};

TEST_F(Entry, CreateThenCancelLeavesTheName)
{
    name = "kept";
    EXPECT_EQ(create({cancel}), 1);
    EXPECT_EQ(name.toStdString(), "kept");
    EXPECT_EQ(Calls(), take());
    EXPECT_EQ(wizardPageCount(), 0);
}

TEST_F(Entry, CopyOfWhatIsNoProfileReturnsAtOnce)
{
    name = "No such";
    EXPECT_EQ(copyProfilebyUser(name), 0);
    EXPECT_EQ((Calls{"valid No such", "log: This profile is invalid.\n"}), take());
    EXPECT_EQ(wizardPageCount(), 0);
    EXPECT_EQ(name.toStdString(), "No such");
}

TEST_F(Entry, EditOfWhatIsNoProfileReturnsAtOnce)
{
    for (const char* other : {"No such", "", "../Old", "old"}) {
        name = other;
        EXPECT_EQ(editProfilebyUser(name), 0);
        EXPECT_EQ((Calls{std::string("valid ") + other, "log: This profile is invalid.\n"}),
                  take());
    }
}

TEST_F(Entry, CancelOfAnEditedProfileStoresNothing)
{
    EXPECT_EQ(edit("Old", {[] {
                               type("x");
                               press(Qt::Key_F1);
                           },
                           [] { press(Qt::Key_Return); }}),
              1);
    EXPECT_EQ((Calls{"valid Old", "read Old"}), take());
}

TEST_F(Entry, ThePageHiddenByOthersEndsTheWizardAsClosed)
{
    EXPECT_EQ(create({[] { wizardPage(1)->hide(); }}), 2);
}

TEST_F(Entry, TheScreensWindowClosedEndsTheWizardAsClosed)
{
    EXPECT_EQ(create({[] { screen()->window()->close(); }}), 2);
    EXPECT_EQ(create({openPage2, [] { screen()->window()->close(); }}), 2);
}

TEST_F(Entry, ThePageDeletedByOthersEndsTheLoop)
{
    name = "kept";
    EXPECT_EQ(create({[] { delete wizardPage(1); }}), 2);
    EXPECT_EQ(name.toStdString(), "kept");
    EXPECT_EQ(wizardPageCount(), 0);
}

TEST_F(Entry, ThePageMayBeDeletedWhileTheNoticeIsRead)
{
    EXPECT_EQ(edit("Old", {[] {
                               type("x");
                               press(Qt::Key_Backspace);
                           },
                           opening(save), [] { delete wizardPage(1); }, dismiss}),
              2);
    EXPECT_EQ(wizardPageCount(), 0);
}

TEST_F(Entry, ThePageMayBeDeletedWhileAFaultIsRead)
{
    EXPECT_EQ(create({[] { type("1"); }, opening(save), [] { delete wizardPage(1); }, dismiss}), 2);
    EXPECT_EQ(wizardPageCount(), 0);
}

TEST_F(Entry, TheCallersWindowMayBeDeletedMeanwhile)
{
    QWidget* window = new QWidget;
    window->show();
    EXPECT_EQ(create({[window] { delete window; }, cancel}), 1);
}

// A page of an application, with a button that opens the wizard.
class CallersPage : public YKbMainWidget
{
public:
    CallersPage()
        : YKbMainWidget(nullptr, nullptr, 0), button(this, nullptr, YSkinService::FormPressButton)
    {
        setContentWidget(&button);
    }

    YPressButton button;
};

class Caller : public Entry, public testing::WithParamInterface<const char*>
{};

TEST_P(Caller, MayDeleteItsPageWhileTheWizardRunsFromItsButton)
{
    const bool saves = GetParam() == std::string("Save");
    auto* page = new CallersPage;
    page->show();
    int result = -1;
    QObject::connect(&page->button, &YPressButton::clicked,
                     [&] { result = createProfilebyUser(name); });
    const Steps end = saves ? Steps{[] {
                                        walkTo(wizardPage(1), "GPRS APN:");
                                        type("a");
                                    },
                                    opening(save), dismiss}
                            : Steps(cancel);
    bool isOver = false;
    perform({opening([page] { tap(&page->button); }), [page] { delete page; }, end, closeWhatIsOpen,
             [&isOver] { isOver = true; }});
    EXPECT_TRUE(waitFor([&] { return result >= 0 && isOver; }));
    EXPECT_EQ(saves ? 0 : 1, result);
    EXPECT_EQ(saves ? "Profile1" : "", name.toStdString());
    EXPECT_EQ(wizardPageCount(), 0);
    settle();
}

INSTANTIATE_TEST_SUITE_P(Ends, Caller, testing::Values("Save", "Cancel"),
                         [](const auto& test) { return std::string(test.param); });

TEST_F(Entry, ASecondWizardRunsInsideTheFirst)
{
    QString inner("Old");
    int innerResult = -1;
    EXPECT_EQ(create({opening([&] { innerResult = editProfilebyUser(inner); }),
                      [] { EXPECT_EQ(titleOf(wizardPage(1)), "Old"); },
                      [] {
                          walkTo(wizardPage(1), "Proxy 1:");
                          type("p");
                      },
                      opening(save), dismiss,
                      [&innerResult] {
                          EXPECT_EQ(innerResult, 0);
                          EXPECT_EQ(titleOf(wizardPage(1)), "Connection Setup");
                          cancel();
                      }}),
              1);
    EXPECT_EQ(RecordBytes(napi.profiles["Old"]).part(760, 1), "p");
}

TEST_F(Entry, TheFirstWizardHiddenInsideTheSecondEndsBoth)
{
    expectBothEnd([](YKbMainWidget* first) { first->hide(); });
}

TEST_F(Entry, TwoWizardsHiddenInOneGoBothEnd)
{
    expectBothEnd([](YKbMainWidget* first) {
        wizardPage(1)->hide();
        first->hide();
    });
}

TEST_F(Entry, TheApplicationThatQuitsEndsEachWizardAsClosed)
{
    QString inner("Old");
    int outerResult = -1;
    int innerResult = -1;
    perform({opening([&] { outerResult = createProfilebyUser(name); }),
             opening([&] { innerResult = editProfilebyUser(inner); }), [] { qApp->exit(5); }});
    EXPECT_EQ(qApp->exec(), 5);
    EXPECT_EQ(innerResult, 2);
    EXPECT_EQ(outerResult, 2);
    EXPECT_EQ(wizardPageCount(), 0);
    EXPECT_EQ(create({cancel}), 1) << "the next one runs as ever";
}

TEST_F(Entry, TimersOfTheCallerRunMeanwhile)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(1);
    create({[&ticks] { EXPECT_TRUE(waitFor([&ticks] { return ticks > 3; })); }, cancel});
}

int openDescriptors()
{
    return static_cast<int>(QDir("/proc/self/fd")
                                .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                                .size());
}

// What a wizard could leave behind.
struct Footprint
{
    long heap = heap::liveBytes();
    qsizetype widgets = QApplication::allWidgets().size();
    int descriptors = openDescriptors();
    int loopLevel = QThread::currentThread()->loopLevel();
};

TEST_F(Entry, ManyWizardsLeaveNothingBehind)
{
    int levelInside = 0;
    const auto openAndCancel = [this, &levelInside](int times) {
        for (int i = 0; i < times; ++i) {
            later([&levelInside] {
                levelInside = QThread::currentThread()->loopLevel();
                cancel();
            });
            ASSERT_EQ(createProfilebyUser(name), 1);
            settle();
        }
    };
    constexpr int times = 1000;
    openAndCancel(20);
    const int firstLevelInside = levelInside;
    const Footprint before;
    openAndCancel(times);
    const Footprint after;
    std::printf("the heap has grown by %ld bytes in %d wizards\n", after.heap - before.heap, times);
    // The same request gets a few bytes more or less from time to time.
    EXPECT_LT(after.heap - before.heap, times);
    EXPECT_EQ(before.widgets, after.widgets);
    // What an earlier test had open may be closed meanwhile.
    EXPECT_LE(after.descriptors, before.descriptors);
    EXPECT_EQ(before.loopLevel, after.loopLevel);
    EXPECT_EQ(firstLevelInside, levelInside);
}

// The single-select dialogs that there are, open ones or closed ones.
int dialogs(bool open)
{
    int count = 0;
    for (QWidget* widget : QApplication::allWidgets())
        count += qobject_cast<YSingleSelectDlg*>(widget) && widget->isVisible() == open;
    return count;
}

class NotFound : public Entry
{};

const char* const question = "Data Connection|Internet connection not found.";

TEST_F(NotFound, ReturnOpensTheWizard)
{
    name = "kept";
    EXPECT_EQ(run(getProfileIfNoFound, {[] {
                                            EXPECT_EQ(question, popupText());
                                            press(Qt::Key_Return);
                                        },
                                        [] {},
                                        [] {
                                            EXPECT_EQ(titleOf(wizardPage(1)), "Connection Setup");
                                            EXPECT_EQ(dialogs(false), 1);
                                            EXPECT_EQ(dialogs(true), 0);
                                            cancel();
                                        }}),
              1);
    EXPECT_EQ(name.toStdString(), "kept");
}

TEST_F(NotFound, AStoredProfileComesBackWithItsName)
{
    EXPECT_EQ(run(getProfileIfNoFound, {[] { press(Qt::Key_Return); }, [] {},
                                        [] {
                                            walkTo(wizardPage(1), "GPRS APN:");
                                            type("a");
                                        },
                                        opening(save), dismiss}),
              0);
    EXPECT_EQ(name.toStdString(), "Profile1");
}

TEST_F(NotFound, CancelGivesOne)
{
    EXPECT_EQ(run(getProfileIfNoFound, {[] { press(Qt::Key_Escape); }}), 1);
    EXPECT_EQ(Calls(), take());
}

TEST_F(NotFound, TheSecondRowLetsTheUserChoose)
{
    EXPECT_EQ(run(getProfileIfNoFound, {[] {
                                            press(Qt::Key_Down);
                                            press(Qt::Key_Return);
                                        },
                                        [] {}, [] { press(Qt::Key_Return); }}),
              0);
    EXPECT_EQ(name.toStdString(), "Old");
    EXPECT_EQ(wizardPageCount(), 0);
}

TEST_F(NotFound, ACancelledChoiceIsHandedBack)
{
    EXPECT_EQ(run(getProfileIfNoFound, {[] {
                                            press(Qt::Key_Down);
                                            press(Qt::Key_Return);
                                        },
                                        [] {}, [] { press(Qt::Key_Escape); }}),
              -100);
}

TEST_F(NotFound, WithoutProfilesTheChoiceFailsWithoutADialog)
{
    napi.profiles.clear();
    EXPECT_EQ(run(getProfileIfNoFound, {[] {
                      press(Qt::Key_Down);
                      press(Qt::Key_Return);
                  }}),
              -100);
    EXPECT_EQ(Calls{"log: No profile exists.\n"}, take());
}

} // namespace
