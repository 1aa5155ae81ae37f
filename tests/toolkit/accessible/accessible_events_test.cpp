// What screen readers are told when something changes.
#include <QAccessible>
#include <QListView>

#include <yinputfield.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <yoptionsmenu.h>
#include <ysegmentfield.h>

#include "toolkit/form_page.h"

namespace {

QObject* watched = nullptr;
QStringList told;

QString states(const QAccessible::State& changed)
{
    QStringList names;
    const struct
    {
        quint64 set;
        const char* name;
    } table[] = {{changed.disabled, "disabled"},     {changed.editable, "editable"},
                 {changed.readOnly, "read-only"},    {changed.checked, "checked"},
                 {changed.passwordEdit, "password"}, {changed.busy, "busy"}};
    for (const auto& row : table)
        if (row.set)
            names << row.name;
    return names.join(' ');
}

void note(QAccessibleEvent* event)
{
    if (!watched || event->object() != watched)
        return;
    const QString child = event->child() < 0 ? QString() : QString(" of %1").arg(event->child());
    switch (static_cast<int>(event->type())) {
    case QAccessible::StateChanged:
        told << "state" + child + ": " +
                    states(static_cast<QAccessibleStateChangeEvent*>(event)->changedStates());
        break;
    case QAccessible::ValueChanged:
        told << "value: " + static_cast<QAccessibleValueChangeEvent*>(event)->value().toString();
        break;
    case QAccessible::TextUpdated: {
        const auto* update = static_cast<QAccessibleTextUpdateEvent*>(event);
        told << "text: " + update->textRemoved() + " > " + update->textInserted();
        break;
    }
    case QAccessible::TextCaretMoved:
        told << QString("cursor: %1")
                    .arg(static_cast<QAccessibleTextCursorEvent*>(event)->cursorPosition());
        break;
    case QAccessible::NameChanged:
        told << "name: " + event->accessibleInterface()->text(QAccessible::Name);
        break;
    case QAccessible::DescriptionChanged:
        told << "description: " + event->accessibleInterface()->text(QAccessible::Description);
        break;
    case QAccessible::DialogStart:
        told << "dialog begins";
        break;
    case QAccessible::DialogEnd:
        told << "dialog ends";
        break;
    case QAccessible::PopupMenuStart:
        told << "menu begins";
        break;
    case QAccessible::PopupMenuEnd:
        told << "menu ends";
        break;
    case QAccessible::Alert:
        told << "alert";
        break;
    case QAccessible::Focus:
        told << "focus" + child;
        break;
    }
}

} // namespace

// Where no screen reader runs, Qt tells nobody; these take the place of its functions.
bool QAccessible::isActive()
{
    return watched;
}

void QAccessible::updateAccessibility(QAccessibleEvent* event)
{
    note(event);
}

namespace {

// What is told of `object` by `act`.
QString toldOf(QObject* object, const std::function<void()>& act)
{
    watched = object;
    told.clear();
    act();
    watched = nullptr;
    return told.join(", ");
}

class AccessibleEvents : public FormTest
{};

TEST_F(AccessibleEvents, RowsTellThatTheyAreSwitchedOffAndOn)
{
    YLineEdit* edit = addEdit();
    YComboBox* combo = addCombo();
    YPressButton* button = addButton();
    YSeparator* line = addSeparator();
    auto* field = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    field->setNumSegments(2);
    for (const bool on : {false, true}) {
        EXPECT_EQ(toldOf(edit, [&] { edit->setEnabled(on); }), "state: disabled editable");
        EXPECT_EQ(toldOf(combo, [&] { combo->setEnabled(on); }), "state: disabled");
        EXPECT_EQ(toldOf(button, [&] { button->setEnabled(on); }), "state: disabled");
        EXPECT_EQ(toldOf(line, [&] { line->setEnabled(on); }), "state: disabled");
        EXPECT_EQ(toldOf(field, [&] { field->setEnabled(on); }), "state: disabled");
    }
    YLineEdit* segment = field->getField(1);
    EXPECT_EQ(toldOf(segment, [&] { field->setEnabled(false); }), "state: disabled editable");
    EXPECT_EQ(toldOf(field, [&] { field->setEnabled(false); }), "") << "nothing new";
}

TEST_F(AccessibleEvents, ALineEditTellsThatItIsReadOnlyOrAPassword)
{
    YLineEdit* edit = addEdit();
    EXPECT_EQ(toldOf(edit, [&] { edit->setReadOnly(true); }), "state: editable read-only");
    EXPECT_EQ(toldOf(edit, [&] { edit->setReadOnly(true); }), "");
    EXPECT_EQ(toldOf(edit, [&] { edit->setEnabled(false); }), "state: disabled");
    EXPECT_EQ(toldOf(edit, [&] { edit->setReadOnly(false); }), "state: read-only");
    EXPECT_EQ(toldOf(edit, [&] { edit->setEchoMode(QLineEdit::Password); }), "state: password");
    EXPECT_EQ(toldOf(edit, [&] { edit->setEchoMode(QLineEdit::Password); }), "");
    EXPECT_EQ(toldOf(edit, [&] { edit->setEchoMode(QLineEdit::Normal); }), "state: password");
}

TEST_F(AccessibleEvents, ALineEditTellsItsText)
{
    YLineEdit* edit = addEdit();
    open();
    EXPECT_EQ(toldOf(edit, [&] { edit->setText("ab"); }), "text:  > ab, cursor: 2");
    EXPECT_EQ(toldOf(edit, [] { type("c"); }), "text: ab > abc, cursor: 3");
    EXPECT_EQ(toldOf(edit, [] { press(Qt::Key_Left); }), "cursor: 2");
    EXPECT_EQ(toldOf(edit, [&] { edit->clear(); }), "text: abc > , cursor: 0");
}

TEST_F(AccessibleEvents, AHiddenPasswordTellsDotsOnly)
{
    YLineEdit* edit = addEdit();
    edit->setEchoMode(QLineEdit::Password);
    open();
    const QString dots = [&] {
        edit->setText("secret");
        return edit->getInputField()->displayText();
    }();
    ASSERT_FALSE(dots.contains('s'));
    EXPECT_EQ(toldOf(edit, [&] { edit->setText("secre"); }),
              "text: " + dots + " > " + dots.left(5) + ", cursor: 5");
    EXPECT_EQ(toldOf(edit, [] { press(Qt::Key_Right); }), "");
    EXPECT_EQ(toldOf(edit, [] { press(Qt::Key_Return); }), "text: " + dots.left(5) + " > secre");
    EXPECT_EQ(toldOf(edit, [] { press(Qt::Key_Return); }), "text: secre > " + dots.left(5));
}

TEST_F(AccessibleEvents, AComboBoxTellsItsItemHoweverItComes)
{
    YComboBox* combo = addCombo();
    combo->clear();
    EXPECT_EQ(toldOf(combo, [&] { combo->insertItem("Off"); }), "value: Off");
    EXPECT_EQ(toldOf(combo, [&] { combo->insertItem("15 min"); }), "");
    EXPECT_EQ(toldOf(combo, [&] { combo->insertItem("1 min", 0); }), "") << "still the same";
    EXPECT_EQ(toldOf(combo, [&] { combo->setCurrentItem(2); }), "value: 15 min");
    EXPECT_EQ(toldOf(combo, [&] { combo->removeItem(2); }), "value: Off");
    EXPECT_EQ(toldOf(combo, [&] { combo->clear(); }), "value: ");
}

TEST_F(AccessibleEvents, AComboBoxTellsWhatTheUserHasChosen)
{
    YComboBox* combo = addCombo();
    open();
    later({[] { press(Qt::Key_Down); }, [] { press(Qt::Key_Return); }});
    const QString all = toldOf(combo, [&] { combo->click(); });
    EXPECT_TRUE(all.startsWith("focus")) << all.toStdString();
    EXPECT_TRUE(all.endsWith(", value: 15 min")) << all.toStdString();
}

TEST_F(AccessibleEvents, ASegmentFieldTellsTheWholeAddress)
{
    auto* field = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    field->setNumSegments(4);
    EXPECT_EQ(toldOf(field, [&] { field->getField(0)->setText("10"); }), "value: 10...");
    EXPECT_EQ(toldOf(field, [&] { field->getField(3)->setText("1"); }), "value: 10...1");
    field->getField(3)->clear();
    EXPECT_EQ(toldOf(field, [&] { field->getField(0)->clear(); }), "value: ");
}

TEST_F(AccessibleEvents, TheFocusIsTold)
{
    addEdit();
    YComboBox* combo = addCombo();
    open();
    EXPECT_EQ(toldOf(combo, [] { press(Qt::Key_Down); }), "focus");
}

TEST_F(AccessibleEvents, NamesAreTold)
{
    YLineEdit* edit = addEdit();
    YComboBox* combo = addCombo();
    YPressButton* button = addButton();
    YSeparator* line = addSeparator();
    open();
    EXPECT_EQ(toldOf(edit, [&] { edit->setLabel("Proxy 2:"); }), "name: Proxy 2:");
    EXPECT_EQ(toldOf(combo, [&] { combo->setTitle("Speed:"); }), "name: Speed:");
    EXPECT_EQ(toldOf(button, [&] { button->setText("More"); }), "name: More");
    EXPECT_EQ(toldOf(line,
                     [&] {
                         line->label()->setText("WiFi:");
                         settle();
                     }),
              "name: WiFi:");
    EXPECT_EQ(toldOf(page.get(), [this] { page->setMainWidgetTitle("Setup"); }), "name: Setup");
    EXPECT_EQ(toldOf(form, [] {}), "");
}

TEST_F(AccessibleEvents, DialogsTellThatTheyComeAndGo)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    EXPECT_EQ(toldOf(&popup, [&] { popup.show(); }), "dialog begins");
    EXPECT_EQ(toldOf(&popup, [&] { popup.setTitle("A"); }), "name: A");
    EXPECT_EQ(toldOf(&popup, [&] { popup.setInstructText("B"); }), "description: B");
    EXPECT_EQ(toldOf(&popup, [&] { popup.hide(); }), "dialog ends");
    auto* deleted = new YPopup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    deleted->show();
    EXPECT_EQ(toldOf(deleted, [&] { delete deleted; }), "dialog ends");
}

TEST_F(AccessibleEvents, NoticesAreAlertsAndMenusAreMenus)
{
    YNoticeDlg notice(YNoticeDlg::Success, QString(), "Saved.", nullptr, nullptr, true, 0);
    EXPECT_EQ(toldOf(&notice, [&] { notice.show(); }), "alert");
    notice.hide();
    YOptionsMenu menu(QRect(0, 0, 200, 286), nullptr, nullptr, 0, YSkinService::OptionsMenu);
    EXPECT_EQ(toldOf(&menu, [&] { menu.show(); }), "menu begins");
    EXPECT_EQ(toldOf(&menu, [&] { menu.hide(); }), "menu ends");
}

TEST_F(AccessibleEvents, MenuItemsTellTheirStates)
{
    YOptionsMenu menu(QRect(0, 0, 200, 286), nullptr, nullptr, 0, YSkinService::OptionsMenu);
    menu.insertItem("Save", nullptr, nullptr, nullptr, true, false, false, 7, -1, false);
    menu.insertItem("Keep", nullptr, nullptr, nullptr, true, true, false, 8, -1, false);
    menu.show();
    auto* list = menu.findChild<QListView*>();
    EXPECT_EQ(toldOf(list, [&] { menu.setItemEnabled(7, false); }), "state of 0: disabled");
    EXPECT_EQ(toldOf(list, [&] { menu.setItemEnabled(7, false); }), "");
    EXPECT_EQ(toldOf(list, [&] { menu.setItemChecked(8, true); }), "state of 1: checked");
    EXPECT_EQ(toldOf(list, [&] { menu.setItemChecked(7, true); }), "") << "not checkable";
}

TEST_F(AccessibleEvents, RowsOfListsTellWhichIsChecked)
{
    YListBox list(page.get(), nullptr, 0);
    for (const char* text : {"Home", "Work"}) {
        auto* item = new YListBoxItem(&list, "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        list.insertItem(item, -1, true);
    }
    list.checkItem(0, true);
    auto* view = list.findChild<QListView*>();
    EXPECT_EQ(toldOf(view, [&] { list.checkItem(1, true); }),
              "focus of 1, state of 0: checked, state of 1: checked");
    EXPECT_EQ(toldOf(view, [&] { list.checkItem(1, true); }), "");
    EXPECT_EQ(toldOf(view, [&] { list.checkItem(1, false); }), "state of 1: checked");
}

TEST_F(AccessibleEvents, AProgressPopupTellsThatItIsBusyAndWhatItsTextSays)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    auto* label = new YLabel(&popup, nullptr, 0, YSkinService::PlainLabel);
    auto* ring = popup.findChild<QWidget*>("busy");
    EXPECT_EQ(toldOf(ring, [&] { popup.show(); }), "state: busy");
    settle();
    EXPECT_EQ(toldOf(&popup,
                     [&] {
                         label->setText("Connecting");
                         settle();
                     }),
              "name: Connecting");
    EXPECT_EQ(toldOf(ring, [&] { popup.hide(); }), "state: busy");
}

} // namespace
