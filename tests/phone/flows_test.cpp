// What a person does with connections, by keys, by clicks and by touch.
#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include <network/napi_host.h>
#include <toolkit/yscreen.h>

#include "display/statusbar.h"
#include "phone/phone_fixture.h"

using phone::Person;

namespace {

class Flow : public PhoneTest, public ::testing::WithParamInterface<Way>
{
protected:
    Person person;
    Hand hand{person, GetParam()};
};

INSTANTIATE_TEST_SUITE_P(By, Flow, ::testing::Values(Way::Keys, Way::Clicks, Way::Touch),
                         [](const auto& way) { return nameOf(way.param); });

TEST_P(Flow, ConnectsTheChosenCardAndClosesItAgain)
{
    store("Home");
    store("Work", "work.example");
    start();
    hand.row("Work");
    person.see("YNoticeDlg");
    person.act([this] {
        EXPECT_EQ(card("Work"), "Work, Connected, work.example, Cellular Only");
        EXPECT_EQ(card("Home"), "Home, internet, Cellular Only");
        EXPECT_EQ(display->statusBar()->signs().bearer, int(NAPI_BEARER_GPRS));
    });
    person.press(Qt::Key_Return);
    person.see("home");
    hand.menu(0, "Disconnect");
    person.await("be offline", [this] { return program->links().links().empty(); });
    live(person);
    EXPECT_EQ(card("Work"), "Work, work.example, Cellular Only");
    EXPECT_EQ(display->statusBar()->signs().bearer, -1);
}

TEST_P(Flow, TellsWhyALinkDoesNotOpenAndWhatToDo)
{
    store("Fails");
    start();
    hand.row("Fails");
    answer(person, "User name or password refused. Edit the connection and check its values. "
                   "(Detail 17)");
    live(person);
    EXPECT_TRUE(program->links().links().empty());
}

TEST_P(Flow, GivesAnOpeningUp)
{
    store("Never");
    start();
    hand.row("Never");
    person.see("YStateDialog");
    hand.softKey(1);
    person.see("home");
    live(person);
    EXPECT_TRUE(program->links().links().empty());
}

TEST_P(Flow, ChoosesFromTheLibrarysListAndConnects)
{
    store("Home");
    store("Work");
    start();
    hand.menu(0, "Choose and connect");
    person.see("YProfileSelectDlg");
    hand.row("Work");
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    live(person);
    EXPECT_TRUE(program->links().profiles().contains("Work"));
}

TEST_P(Flow, MakesAConnectionWithTheWizard)
{
    start();
    hand.menu(0, "New");
    person.see("DataConnection_NewWiz1");
    person.press(Qt::Key_Down, 4);
    person.type("new.example");
    hand.softKey(1);
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    live(person);
    EXPECT_EQ(card("Profile1"), "Profile1, new.example, Cellular Only");
}

TEST_P(Flow, EditsAndCopiesAConnection)
{
    store("Home");
    start();
    hand.menu(0, "Edit");
    person.see("DataConnection_NewWiz1");
    person.press(Qt::Key_Down, 4);
    person.type("x");
    hand.softKey(1);
    person.see("home");
    hand.menu(0, "Copy");
    person.see("DataConnection_NewWiz1");
    person.press(Qt::Key_Down, 4);
    person.type("y");
    hand.softKey(1);
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    live(person);
    EXPECT_EQ(card("Home"), "Home, internetx, Cellular Only");
    EXPECT_EQ(program->home().profiles().rowCount(), 2);
}

TEST_P(Flow, DeletesOnlyAfterYes)
{
    store("Home");
    start();
    hand.menu(0, "Delete");
    person.see("YMessageDlg");
    hand.softKey(1);
    person.see("home");
    person.act([] { EXPECT_EQ(NAPI_IsProfileValid("Home"), 0); });
    hand.menu(0, "Delete");
    person.see("YMessageDlg");
    hand.softKey(0);
    person.await("be gone", [] { return NAPI_IsProfileValid("Home") == NAPI_ERR_NO_PROFILE; });
    person.see("home");
    live(person);
    EXPECT_EQ(program->home().profiles().rowCount(), 0);
}

TEST_P(Flow, MarksTheDefaultConnectionAndBeginsWithIt)
{
    store("Home");
    store("Work");
    start();
    hand.point("Work");
    hand.menu(0, "Make default");
    person.await("be marked", [this] { return card("Work").startsWith("Work, Default"); });
    live(person);
    settings->flush();
    phone::Settings again;
    EXPECT_EQ(again.text(phone::settingnames::chosen), "Work");
    EXPECT_EQ(card("Home"), "Home, internet, Cellular Only");
}

TEST_P(Flow, AsksBeforeItExitsWithALinkOpen)
{
    store("Home");
    start();
    hand.row("Home");
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    hand.menu(1, "Exit");
    person.await("be asked", [] { return message() == "Open links are closed. Exit?"; });
    hand.softKey(1);
    person.see("home");
    live(person);
    EXPECT_FALSE(program->links().links().empty());
}

class Home : public PhoneTest
{};

TEST_F(Home, SaysWhatToDoWithoutAnyConnection)
{
    start();
    QWidget* shown = YScreen::instance()->focusWidget();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->accessibleName(), "No connections yet");
    EXPECT_EQ(shown->accessibleDescription(), "Press Options and choose New to make one.");
}

TEST_F(Home, OffersTheNotFoundFlowWhenThereIsNoConnection)
{
    start();
    Person person;
    Hand hand(person, Way::Keys);
    hand.menu(0, "Connect");
    person.see("YSingleSelectDlg");
    person.press(Qt::Key_Return);
    person.see("DataConnection_NewWiz1");
    person.press(Qt::Key_Down, 4);
    person.type("internet");
    person.press(Qt::Key_F2);
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.await("be connected", [this] { return card("Profile1").contains("Connected"); });
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    live(person);
}

TEST_F(Home, ShowsADamagedRecordAndWhatToDo)
{
    store("Good");
    store("Bad");
    damage("Bad");
    start();
    EXPECT_EQ(card("Bad"), "Bad, Damaged, cannot be used, Import it again or delete it");
    Person person;
    Hand hand(person, Way::Keys);
    hand.row("Bad");
    answer(person, "The stored profile is damaged. Import it again, or delete it.");
    person.see("home");
    hand.menu(0, "Delete");
    answer(person, "Delete Bad?");
    person.await("be gone", [] { return NAPI_IsProfileValid("Bad") == NAPI_ERR_NO_PROFILE; });
    person.see("home");
    live(person);
    EXPECT_EQ(program->home().profiles().rowCount(), 1);
}

TEST_F(Home, TellsThatAProfileWasDeletedUnderTheOpenEditor)
{
    store("Home");
    start();
    Person person;
    Hand hand(person, Way::Keys);
    hand.menu(0, "Edit");
    person.see("DataConnection_NewWiz1");
    person.press(Qt::Key_Down, 4);
    person.type("x");
    person.act([] { EXPECT_EQ(napihost::deleteProfile("Home"), 0); });
    person.press(Qt::Key_F2);
    answer(person, "No such profile.");
    person.see("home");
    live(person);
    EXPECT_EQ(program->home().profiles().rowCount(), 0);
}

TEST_F(Home, HearsOfProfilesThatOtherProgramsMake)
{
    store("Home");
    start();
    store("Other");
    EXPECT_TRUE(waitFor([this] { return program->home().profiles().rowCount() == 2; }));
}

TEST_F(Home, SleepsWhileALinkIsUpAndNobodyUsesIt)
{
    store("Home");
    start();
    Person person;
    Hand hand(person, Way::Keys);
    hand.row("Home");
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    live(person);
    int wakings = 0;
    const auto counting = QObject::connect(QAbstractEventDispatcher::instance(),
                                           &QAbstractEventDispatcher::awake, [&] { ++wakings; });
    QEventLoop loop;
    QTimer::singleShot(3000, &loop, &QEventLoop::quit);
    loop.exec();
    QObject::disconnect(counting);
    // That of the end, and of the clock when the minute changes meanwhile; each may count twice.
    EXPECT_LE(wakings, 4);
    EXPECT_EQ(program->links().links().size(), 1u);
}

TEST_F(Home, SaysWhenTheProfilesCannotBeListed)
{
    qputenv("VORN_ROOT", "relative");
    start();
    EXPECT_EQ(YScreen::instance()->focusWidget()->accessibleName(), "Connections cannot be listed");
}

} // namespace
