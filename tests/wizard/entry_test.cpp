// The entry points and the nested loop.

#include <cstdio>
#include <cstdlib>
#include <malloc.h>

#include <QApplication>
#include <QDir>
#include <QTimer>

#include <profilefunctions.h>
#include <ycombobox.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>

#include "wizard/record_bytes.h"
#include "wizard/wizard_fixture.h"

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
};

TEST_F(Entry, CreateThenCancelLeavesTheName)
{
    name = "kept";
    EXPECT_EQ(1, create({cancel}));
    EXPECT_EQ("kept", name.toStdString());
    EXPECT_EQ(Calls(), take());
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(Entry, CopyOfWhatIsNoProfileReturnsAtOnce)
{
    name = "No such";
    EXPECT_EQ(0, copyProfilebyUser(name));
    EXPECT_EQ((Calls{"valid No such", "log: This profile is invalid.\n"}), take());
    EXPECT_EQ(0, wizardPageCount());
    EXPECT_EQ("No such", name.toStdString());
}

TEST_F(Entry, EditOfWhatIsNoProfileReturnsAtOnce)
{
    for (const char* other : {"No such", "", "../Old", "old"}) {
        name = other;
        EXPECT_EQ(0, editProfilebyUser(name));
        EXPECT_EQ((Calls{std::string("valid ") + other, "log: This profile is invalid.\n"}),
                  take());
    }
}

TEST_F(Entry, CancelOfAnEditedProfileStoresNothing)
{
    EXPECT_EQ(1, edit("Old", {[] {
                                  type("x");
                                  press(Qt::Key_F1);
                              },
                              [] { press(Qt::Key_Return); }}));
    EXPECT_EQ((Calls{"valid Old", "read Old"}), take());
}

TEST_F(Entry, ThePageHiddenByOthersEndsTheWizardAsClosed)
{
    EXPECT_EQ(2, create({[] { wizardPage(1)->hide(); }}));
}

TEST_F(Entry, TheScreensWindowClosedEndsTheWizardAsClosed)
{
    EXPECT_EQ(2, create({[] { screen()->window()->close(); }}));
    EXPECT_EQ(2, create({openPage2, [] { screen()->window()->close(); }}));
}

TEST_F(Entry, ThePageDeletedByOthersEndsTheLoop)
{
    name = "kept";
    EXPECT_EQ(2, create({[] { delete wizardPage(1); }}));
    EXPECT_EQ("kept", name.toStdString());
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(Entry, ThePageMayBeDeletedWhileTheNoticeIsRead)
{
    EXPECT_EQ(2, edit("Old", {[] {
                                  type("x");
                                  press(Qt::Key_Backspace);
                              },
                              opening(save), [] { delete wizardPage(1); }, dismiss}));
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(Entry, ThePageMayBeDeletedWhileAFaultIsRead)
{
    EXPECT_EQ(2, create({[] { type("1"); }, opening(save), [] { delete wizardPage(1); }, dismiss}));
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(Entry, TheCallersWindowMayBeDeletedMeanwhile)
{
    QWidget* window = new QWidget;
    window->show();
    EXPECT_EQ(1, create({[window] { delete window; }, cancel}));
}

TEST_F(Entry, ASecondWizardRunsInsideTheFirst)
{
    QString inner("Old");
    int innerResult = -1;
    EXPECT_EQ(1, create({opening([&] { innerResult = editProfilebyUser(inner); }),
                         [] { EXPECT_EQ("Old", titleOf(wizardPage(1))); },
                         [] {
                             walkTo(wizardPage(1), "Proxy 1:");
                             type("p");
                         },
                         opening(save), dismiss,
                         [&innerResult] {
                             EXPECT_EQ(0, innerResult);
                             EXPECT_EQ("Connection Setup", titleOf(wizardPage(1)));
                             cancel();
                         }}));
    EXPECT_EQ("p", RecordBytes(napi.profiles["Old"]).part(760, 1));
}

TEST_F(Entry, TheFirstWizardHiddenInsideTheSecondEndsBoth)
{
    QString inner("Old");
    int innerResult = -1;
    YKbMainWidget* first = nullptr;
    EXPECT_EQ(2, create({opening([&] {
                             first = wizardPage(1);
                             innerResult = editProfilebyUser(inner);
                         }),
                         [&first] { first->hide(); }}));
    EXPECT_EQ(2, innerResult);
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(Entry, TwoWizardsHiddenInOneGoBothEnd)
{
    QString inner("Old");
    int innerResult = -1;
    YKbMainWidget* first = nullptr;
    EXPECT_EQ(2, create({opening([&] {
                             first = wizardPage(1);
                             innerResult = editProfilebyUser(inner);
                         }),
                         [&first] {
                             wizardPage(1)->hide();
                             first->hide();
                         }}));
    EXPECT_EQ(2, innerResult);
    EXPECT_EQ(0, wizardPageCount());
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

// VORN_CYCLES=1000 for more of them.
int cycles()
{
    const char* given = std::getenv("VORN_CYCLES");
    return given ? std::atoi(given) : 50;
}

TEST_F(Entry, ManyWizardsLeaveNothingBehind)
{
    for (int i = 0; i < 10; ++i)
        create({cancel});
    const int descriptors = openDescriptors();
    const auto widgets = QApplication::allWidgets().size();
    const auto heap = ::mallinfo2().uordblks;
    for (int i = 0; i < cycles(); ++i)
        ASSERT_EQ(1, create({cancel}));
    EXPECT_EQ(descriptors, openDescriptors());
    EXPECT_EQ(widgets, QApplication::allWidgets().size());
    // The caches of letters and pictures fill in the course of the first few hundred; a page that
    // stays behind takes more than 20,000 bytes each time.
    const auto growth = static_cast<long>(::mallinfo2().uordblks - heap);
    std::printf("the heap has grown by %ld bytes in %d wizards\n", growth, cycles());
    EXPECT_LT(growth, 100000L + 60L * cycles());
}

class NotFound : public Entry
{};

const char* const question = "Data Connection|Internet connection not found.";

TEST_F(NotFound, ReturnOpensTheWizard)
{
    name = "kept";
    EXPECT_EQ(1, run(getProfileIfNoFound, {[] {
                                               EXPECT_EQ(question, popupText());
                                               press(Qt::Key_Return);
                                           },
                                           [] {},
                                           [] {
                                               EXPECT_EQ("Connection Setup",
                                                         titleOf(wizardPage(1)));
                                               cancel();
                                           }}));
    EXPECT_EQ("kept", name.toStdString());
}

TEST_F(NotFound, AStoredProfileComesBackWithItsName)
{
    EXPECT_EQ(0, run(getProfileIfNoFound, {[] { press(Qt::Key_Return); }, [] {},
                                           [] {
                                               walkTo(wizardPage(1), "GPRS APN:");
                                               type("a");
                                           },
                                           opening(save), dismiss}));
    EXPECT_EQ("Profile1", name.toStdString());
}

TEST_F(NotFound, CancelGivesOne)
{
    EXPECT_EQ(1, run(getProfileIfNoFound, {[] { press(Qt::Key_Escape); }}));
    EXPECT_EQ(Calls(), take());
}

TEST_F(NotFound, TheSecondRowLetsTheUserChoose)
{
    EXPECT_EQ(0, run(getProfileIfNoFound, {[] {
                                               press(Qt::Key_Down);
                                               press(Qt::Key_Return);
                                           },
                                           [] {}, [] { press(Qt::Key_Return); }}));
    EXPECT_EQ("Old", name.toStdString());
    EXPECT_EQ(0, wizardPageCount());
}

TEST_F(NotFound, ACancelledChoiceIsHandedBack)
{
    EXPECT_EQ(-100, run(getProfileIfNoFound, {[] {
                                                  press(Qt::Key_Down);
                                                  press(Qt::Key_Return);
                                              },
                                              [] {}, [] { press(Qt::Key_Escape); }}));
}

TEST_F(NotFound, WithoutProfilesTheChoiceFailsWithoutADialog)
{
    napi.profiles.clear();
    EXPECT_EQ(-100, run(getProfileIfNoFound, {[] {
                            press(Qt::Key_Down);
                            press(Qt::Key_Return);
                        }}));
    EXPECT_EQ(Calls{"log: No profile exists.\n"}, take());
}

} // namespace
