// Settings, import, export, the log; names for screen readers; and a monkey.
#include <random>

#include <QAbstractItemView>
#include <QAccessible>
#include <QFileInfo>

#include <applog.h>
#include <setuputility.h>
#include <toolkit/look/ytheme.h>
#include <toolkit/yscreen.h>

#include "phone/phone_fixture.h"

using phone::Person;

namespace {

class Pages : public PhoneTest
{
protected:
    // Opens a page of the menu and leaves the person there.
    void open(const QString& item, const QString& page)
    {
        hand.menu(1, item);
        person.see(page);
    }

    void goHome()
    {
        person.act([] {
            while (YScreen::instance()->activeLayer()->objectName() != QLatin1String("home"))
                YScreen::instance()->activeLayer()->hide();
        });
    }

    // Goes down to a row of the form and chooses an item of its dialog.
    void choose(int row, const QString& item)
    {
        person.press(Qt::Key_Down, row);
        person.press(Qt::Key_Return);
        person.see("YSingleSelectDlg");
        hand.row(item);
    }

    Person person;
    Hand hand{person, Way::Keys};
};

TEST_F(Pages, TheThemeIsChosenAndKept)
{
    start();
    open("Settings", "settings");
    choose(1, "Dark");
    person.await("be dark", [] { return YTheme::current().scheme == YTheme::Scheme::Dark; });
    goHome();
    live(person);
    settings->flush();
    EXPECT_EQ(phone::Settings().text(phone::settingnames::theme), "dark");
}

TEST_F(Pages, TheLanguageIsChosenAndThePagesFollow)
{
    start();
    open("Settings", "settings");
    choose(0, "Deutsch");
    person.see("home");
    live(person);
    EXPECT_EQ(settings->text(phone::settingnames::language), "de");
    EXPECT_EQ(qgetenv("VORN_LANG"), "de");
}

TEST_F(Pages, TheWifiFeatureAndTheDefaultPreferenceAreThoseOfThePhone)
{
    start();
    open("Settings", "settings");
    choose(6, "On");
    person.see("settings");
    choose(1, "Cellular Only");
    person.see("settings");
    goHome();
    live(person);
    settings->flush();
    EXPECT_NE(SETUP_Utility().isFeatureAvailable(SETUP_FEATURE_WIFI), 0);
    EXPECT_EQ(phone::Settings().integer(phone::settingnames::preference, 0), 2);
}

TEST_F(Pages, AnImportStoresAndAsksBeforeItReplaces)
{
    const char file[] = R"({"format": "vorn-profiles", "version": 1, "profiles": [
        {"name": "One", "fields": {"apn": "one.example"}},
        {"name": "Two", "fields": {"apn": "two.example"}}]})";
    writeFile("some.json", file);
    start();
    open("Import", "import");
    hand.row("some.json");
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("home");
    open("Import", "import");
    hand.row("some.json");
    answer(person, "Connections of the same name are replaced (2). Go on?", Qt::Key_F2);
    person.see("import");
    goHome();
    live(person);
    EXPECT_TRUE(card("One").startsWith("One, one.example")) << card("One").toStdString();
    EXPECT_EQ(program->home().profiles().rowCount(), 2);
}

TEST_F(Pages, AnImportThatHasNoRoomSaysSoAndLosesNothing)
{
    writeFile("etc/network.json", R"({"bearer": "scenario", "maxProfiles": 1})");
    writeFile("some.json", R"({"format": "vorn-profiles", "version": 1, "profiles": [
        {"name": "One", "fields": {"apn": "one.example"}}]})");
    store("Home");
    start();
    open("Import", "import");
    hand.row("some.json");
    answer(person, "Delete something, then try again.\nNothing was imported.");
    goHome();
    live(person);
    EXPECT_EQ(program->home().profiles().rowCount(), 1);
    EXPECT_EQ(NAPI_IsProfileValid("Home"), 0);
}

TEST_F(Pages, AFileThatIsNoExportIsToldWithWhatIsWrong)
{
    writeFile("some.json", "{\"format\": \"else\"}");
    start();
    open("Import", "import");
    hand.row("some.json");
    answer(person, "Nothing was imported.");
    goHome();
    live(person);
}

TEST_F(Pages, AnExportIsForItsOwnerOnlyAndCanBeImported)
{
    store("Home");
    start();
    open("Export", "export");
    hand.softKey(0);
    person.see("YNoticeDlg");
    person.press(Qt::Key_Return);
    person.see("export");
    goHome();
    live(person);
    EXPECT_TRUE(readFile("connections.json").contains("\"apn\": \"internet\""));
    EXPECT_EQ(QFileInfo(below("connections.json")).permissions() &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
}

TEST_F(Pages, AnExportToNowhereSaysWhy)
{
    store("Home");
    start();
    open("Export", "export");
    person.press(Qt::Key_Down, 2);
    person.type("/missing/file");
    hand.softKey(0);
    answer(person, "cannot write");
    goHome();
    live(person);
}

// Every widget that takes the focus, and every row of a list, has a name for a screen reader.
void expectNames(const QString& page)
{
    QWidget* layer = YScreen::instance()->activeLayer();
    EXPECT_FALSE(layer->accessibleName().isEmpty()) << page.toStdString();
    for (QWidget* widget : layer->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus)
            continue;
        const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(!told || told->text(QAccessible::Name).isEmpty())
            << page.toStdString() << ": " << widget->metaObject()->className() << " "
            << widget->objectName().toStdString();
        const auto* list = qobject_cast<QAbstractItemView*>(widget);
        for (int row = 0; list && row < list->model()->rowCount(); ++row)
            EXPECT_FALSE(
                list->model()->index(row, 0).data(Qt::AccessibleTextRole).toString().isEmpty());
    }
}

TEST_F(Pages, HaveNamesForScreenReaders)
{
    store("Home");
    start();
    struct Place
    {
        const char* item;
        const char* page;
    };
    const Place places[] = {{"Links", "links"},
                            {"Import", "import"},
                            {"Export", "export"},
                            {"Settings", "settings"},
                            {"Log", "log"}};
    person.act([] { expectNames("home"); });
    for (const Place& place : places) {
        open(place.item, place.page);
        person.act([place] { expectNames(place.page); });
        goHome();
        person.see("home");
    }
    live(person);
}

// What hangs in a dialog is closed; nothing else is done for the phone.
TEST_F(Pages, OutliveAMonkey)
{
    // What is touched may go while the finger is on it.
    allowWarnings("no target window");
    for (const char* name : {"Fails", "Home", "Never", "Work"})
        store(name);
    damage("Work");
    start();
    std::mt19937 chance(20);
    const int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_F1,     Qt::Key_F2,
                        Qt::Key_1,  Qt::Key_5,    Qt::Key_A,      Qt::Key_Escape, Qt::Key_Tab};
    for (int i = 0; i < 600; ++i) {
        const auto deed = static_cast<unsigned int>(chance());
        if (deed % 3 != 0) {
            person.press(keys[deed / 3 % std::size(keys)]);
            continue;
        }
        person.act([this, deed] {
            // Beside Exit, which would end the tests.
            const QSize size = YScreen::instance()->size();
            tapScreen(deed % 2 ? Way::Touch : Way::Clicks,
                      QPoint(int(deed / 7 % unsigned(size.width())),
                             int(deed / 4096 % unsigned(size.height()))));
        });
    }
    for (int i = 0; i < 20; ++i)
        person.press(Qt::Key_Escape);
    goHome();
    live(person);
    EXPECT_TRUE(Person::isSeen("home"));
}

} // namespace
