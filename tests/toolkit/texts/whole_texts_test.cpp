// Everything that the wizard and its dialogs say stands whole on the screen, in each language.
#include <algorithm>

#include <QAccessible>
#include <QGuiApplication>
#include <QListView>

#include <napi.h>
#include <profilefunctions.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ypressbutton.h>
#include <yseparator.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>

#include "common/rooted_gui_test.h"
#include "toolkit/texts/painted_texts.h"
#include "wizard/world/wizard_driver.h"

namespace {

QRect onScreen(const QWidget* widget)
{
    return QRect(widget->mapTo(GuiTest::screen(), QPoint()), widget->size());
}

// Letters that are read from right to left are painted in the order of the screen, in which numbers
// and names between them stand elsewhere than in the text.
bool holds(const QString& painted, const QString& text)
{
    const QString wanted = withoutBlanks(text);
    if (!QGuiApplication::isRightToLeft())
        return painted.contains(wanted);
    return std::all_of(wanted.begin(), wanted.end(),
                       [&](QChar letter) { return painted.count(letter) >= wanted.count(letter); });
}

// Of what lies below the page or popup on top nothing needs to be whole.
void expectWhole(const QRect& place, const QStringList& texts)
{
    QWidget* layer = GuiTest::activeLayer();
    const PaintedTexts painted(*layer);
    const QRect inLayer = place.translated(-layer->pos());
    EXPECT_EQ(painted.cutIn(inLayer).toStdString(), "") << "is cut off";
    const QString all = painted.in(inLayer);
    for (const QString& text : texts)
        EXPECT_TRUE(holds(all, text)) << text.toStdString() << " is not in " << all.toStdString();
}

void expectNamed(QWidget* widget)
{
    EXPECT_NE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).toStdString(),
              "")
        << widget->metaObject()->className();
}

void expectWholeBars(const YKbMainWidget* page)
{
    expectWhole(QRect(0, 0, page->width(), page->contentWidget()->y()), {page->mainWidgetTitle()});
    expectWhole(onScreen(page->softKey()),
                {page->softKey()->text(YSoftKey::Left), page->softKey()->text(YSoftKey::Right)});
}

// A list may be longer than the screen: it is gone through by keys from its first row.
void expectWholeRows(const YListBox* list)
{
    const auto* view = list->findChild<QListView*>();
    while (list->currentItem() > 0)
        GuiTest::press(Qt::Key_Up);
    for (int row = 0; row < list->count(); ++row) {
        if (row > 0)
            GuiTest::press(Qt::Key_Down);
        ASSERT_EQ(row, list->currentItem());
        const QRect place = view->visualRect(view->currentIndex());
        expectWhole(place.translated(onScreen(view->viewport()).topLeft()),
                    {list->item(row)->getSubItemText(1, 0, false)});
    }
}

// The popup that has the input, with everything it says; a message is not to need scrolling.
void expectWholePopup()
{
    auto* popup = qobject_cast<YPopup*>(GuiTest::activeLayer());
    ASSERT_TRUE(popup);
    expectNamed(popup);
    QRect place = onScreen(popup);
    QStringList texts{popup->title(), popup->instructText()};
    if (const auto* message = qobject_cast<const YMessageDlg*>(popup)) {
        texts << message->text();
    } else if (const auto* notice = qobject_cast<const YNoticeDlg*>(popup)) {
        texts << notice->text();
    } else if (const auto* choice = qobject_cast<const YSingleSelectDlg*>(popup)) {
        expectWholeRows(choice->getListBox());
        place.setBottom(onScreen(choice->getListBox()).top() - 1);
    }
    expectWhole(place, texts);
    expectWhole(onScreen(popup->getSoftKey()), {});
}

// The row with the focus, with each of its items.
void expectWholeRow(QWidget* row)
{
    expectNamed(row);
    if (auto* edit = qobject_cast<YLineEdit*>(row)) {
        expectWhole(onScreen(row), {edit->label(), edit->text()});
    } else if (auto* combo = qobject_cast<YComboBox*>(row)) {
        const int current = combo->currentItem();
        for (int item = 0; item < combo->count(); ++item) {
            combo->setCurrentItem(item);
            GuiTest::settle();
            expectWhole(onScreen(row), {combo->title(), combo->currentText()});
        }
        combo->setCurrentItem(current);
        GuiTest::settle();
    } else if (auto* button = qobject_cast<YPressButton*>(row)) {
        expectWhole(onScreen(row), {button->text()});
    } else {
        FAIL() << row->metaObject()->className();
    }
}

// Goes through a page by keys; what takes no focus is in sight with the row below it.
void walkThrough(int number)
{
    YKbMainWidget* page = wizardPage(number);
    YFormContainer* form = formOf(page);
    expectWholeBars(page);
    YSeparator* separator = nullptr;
    int rows = 0;
    for (QWidget* row = form->getFirstChild(); row; row = form->getNextChild(row)) {
        if (auto* line = qobject_cast<YSeparator*>(row)) {
            separator = line;
            continue;
        }
        if (rows++ > 0)
            GuiTest::press(Qt::Key_Down);
        ASSERT_TRUE(row->hasFocus()) << rows;
        expectWholeRow(row);
        if (separator)
            expectWhole(onScreen(separator), {separator->label()->text()});
        separator = nullptr;
    }
    EXPECT_GT(rows, 10);
}

// The keys below the first soft key and the second one, in the direction of reading.
Qt::Key first()
{
    return QGuiApplication::isRightToLeft() ? Qt::Key_F2 : Qt::Key_F1;
}

Qt::Key second()
{
    return QGuiApplication::isRightToLeft() ? Qt::Key_F1 : Qt::Key_F2;
}

class WholeTexts : public RootedGuiTest
{
protected:
    void SetUp() override
    {
        RootedGuiTest::SetUp();
        write("etc/features.json", "{\"431\": true}");
        write("etc/settings.json", "{\"DefConnPrefer\": 0}");
    }

    static void store(const QString& profile)
    {
        const NetworkProfile record = {};
        ASSERT_EQ(NAPI_CreateProfile(profile.toUtf8(), &record, 0, 0), 0);
    }

    void run(int (*entry)(QString&), const Steps& steps)
    {
        bool hasEnded = false;
        perform({steps, [&hasEnded] { hasEnded = true; }});
        entry(name);
        EXPECT_TRUE(waitFor([&hasEnded] { return hasEnded; }));
        settle();
    }

    static QString label(const char* id, const char* english) { return YLabel::tr(id, english); }
    static QString apn() { return label("TXT_RID_LABEL_FORMITEM_GPRS_APN_COLON", "GPRS APN:"); }
    static QString profileName()
    {
        return label("TXT_RID_LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK", "Profile Name:*");
    }
    static Steps typing(const QString& row, const QString& text)
    {
        return Steps([row, text] {
            walkTo(wizardPage(1), row);
            retype(text);
        });
    }

    static void openPage2()
    {
        walkTo(wizardPage(1), label("TXT_RID_BUTTON_ADDITIONAL_SETTINGS", "Additional settings:"));
        press(Qt::Key_Return);
    }

    // Opens the dialog of a page's choice, counted from the top.
    static void openChoice(int page, int number)
    {
        const auto choices = wizardPage(page)->findChildren<YComboBox*>();
        walkTo(wizardPage(page), choices[number]->title());
        press(Qt::Key_Return);
    }

    // What a save that is refused says, and the way out.
    static Steps refusedSave()
    {
        return {opening(save), expectWholePopup, dismiss, cancelByMenu, dismiss};
    }

    static void save() { press(second()); }
    static void cancel() { press(second()); }
    static void cancelByMenu() { press(first()); }
    static void dismiss() { press(Qt::Key_Return); }

    QString name;
};

TEST_F(WholeTexts, BothPages)
{
    run(createProfilebyUser,
        {[] { walkThrough(1); }, dismiss, [] { walkThrough(2); }, cancel, cancel});
}

TEST_F(WholeTexts, ChoiceDialogs)
{
    const auto dialogs = [](int page, int count) {
        Steps steps{[] {}};
        for (int i = 0; i < count; ++i)
            steps = {steps, opening([page, i] { openChoice(page, i); }), expectWholePopup, cancel};
        return steps;
    };
    // The last choice but one of page 2 is switched off.
    run(createProfilebyUser,
        {dialogs(1, 3), openPage2, dialogs(2, 1), opening([] { openChoice(2, 2); }),
         expectWholePopup, cancel, cancel, cancel});
}

TEST_F(WholeTexts, OptionsMenus)
{
    const auto check = [](const char* id, const char* english) {
        return [id, english] {
            expectWhole(onScreen(activeLayer()),
                        {label(id, english), label("TXT_RID_SOFTKEY_SELECT", "Select")});
        };
    };
    const auto open = [] { press(first()); };
    run(createProfilebyUser,
        {opening(open), check("TXT_RID_OPTION_CANCEL_PROFILE", "Cancel Profile"), cancel, openPage2,
         opening(open), check("TXT_RID_OPTION_CANCEL", "Cancel"), cancel, cancel, cancel});
    store("Old");
    name = "Old";
    run(editProfilebyUser,
        {opening(open), check("TXT_RID_OPTION_CANCEL_EDIT", "Cancel Edit"), cancel, cancel});
}

TEST_F(WholeTexts, SoftKeysAfterAChange)
{
    run(createProfilebyUser,
        {typing(apn(), "a"), [] { expectWholeBars(wizardPage(1)); }, cancelByMenu, dismiss});
}

class WholeNames : public WholeTexts, public ::testing::WithParamInterface<char16_t>
{};

TEST_P(WholeNames, AreTitlesToo)
{
    name = QString(20, QChar(GetParam()));
    store(name);
    run(editProfilebyUser, {[] { expectWholeBars(wizardPage(1)); }, cancel});
}

TEST_P(WholeNames, AreListedAndToldOf)
{
    const QString stored(20, QChar(GetParam()));
    store(stored);
    run(getProfileNamebySelect, {expectWholePopup, cancel});
    run(createProfilebyUser, {typing(profileName(), stored), refusedSave()});
    run(createProfilebyUser, {typing(profileName(), stored.left(19)), typing(apn(), "a"),
                              opening(save), expectWholePopup, dismiss});
}

INSTANTIATE_TEST_SUITE_P(Letters, WholeNames, ::testing::Values(u'W', u'n', u'\u4E2D'));

TEST_F(WholeTexts, NothingFound)
{
    run(getProfileIfNoFound, {expectWholePopup, cancel});
}

TEST_F(WholeTexts, WifiOnly)
{
    run(createProfilebyUser,
        {chooseByKeys(1,
                      label("TXT_RID_LABEL_FORMITEM_CONNECTION_PREFERENCE_COLON_ASTERISK",
                            "Connection Preference:*"),
                      1),
         opening([] {
             walkTo(wizardPage(1), apn());
             press(Qt::Key_Return);
         }),
         expectWholePopup, dismiss, cancelByMenu, dismiss});
}

TEST_F(WholeTexts, NameMissing)
{
    run(createProfilebyUser, {typing(profileName(), " "), refusedSave()});
}

TEST_F(WholeTexts, NameWithADotInFront)
{
    run(createProfilebyUser, {typing(profileName(), ".x"), refusedSave()});
}

TEST_F(WholeTexts, AccessPointMissing)
{
    run(createProfilebyUser, {typing(profileName(), "New"), refusedSave()});
}

TEST_F(WholeTexts, WrongNameServer)
{
    run(createProfilebyUser,
        {typing(apn(), "a"),
         typing(label("TXT_RID_LABEL_FORMITEM_GPRS_DNS1_COLON", "GPRS DNS 1:"), "x"),
         refusedSave()});
}

TEST_F(WholeTexts, StoreFull)
{
    write("etc/network.json", "{\"maxProfiles\": 1}");
    store("Only");
    run(createProfilebyUser, {typing(apn(), "a"), opening(save), expectWholePopup, dismiss});
}

} // namespace
