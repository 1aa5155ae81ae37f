// What a screen reader learns of pages and the rows of forms.
#include <QAccessible>
#include <QSignalSpy>

#include <yinputfield.h>
#include <yoptionsmenu.h>
#include <ysegmentfield.h>

#include "toolkit/form_page.h"

namespace {

QAccessibleInterface* of(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString text(QObject* object, QAccessible::Text what)
{
    return of(object)->text(what);
}

class AccessibleRows : public FormTest
{};

TEST_F(AccessibleRows, HaveTheirRoleNameAndValue)
{
    YLineEdit* edit = addEdit("GPRS APN:");
    edit->setText("internet");
    YLineEdit* password = addEdit("Password:");
    password->setText("secret");
    password->setEchoMode(QLineEdit::Password);
    YComboBox* combo = addCombo();
    combo->setCurrentItem(1);
    const QString dots(6, password->getInputField()->displayText()[0]);
    const struct
    {
        QWidget* row;
        QAccessible::Role role;
        QString name;
        QString value;
    } rows[] = {{edit, QAccessible::EditableText, "GPRS APN:", "internet"},
                {password, QAccessible::EditableText, "Password:", dots},
                {combo, QAccessible::ComboBox, "Timeout:", "15 min"},
                {addButton(), QAccessible::Button, "Additional settings:", ""},
                {addSeparator(), QAccessible::Separator, "Cellular Connection Settings:", ""}};
    for (const auto& row : rows) {
        EXPECT_EQ(of(row.row)->role(), row.role) << row.name.toStdString();
        EXPECT_EQ(text(row.row, QAccessible::Name), row.name);
        EXPECT_EQ(text(row.row, QAccessible::Value), row.value);
        EXPECT_FALSE(of(row.row)->state().disabled);
    }
    EXPECT_TRUE(of(password)->state().passwordEdit);
    EXPECT_FALSE(of(edit)->state().passwordEdit);
    EXPECT_NE(dots[0], 's');
}

TEST_F(AccessibleRows, SayThatTheyAreSwitchedOff)
{
    YLineEdit* edit = addEdit();
    YComboBox* combo = addCombo();
    YPressButton* button = addButton();
    YSeparator* line = addSeparator();
    edit->setEnabled(false);
    combo->setEnabled(false);
    button->setEnabled(false);
    line->setEnabled(false);
    for (QWidget* row : std::initializer_list<QWidget*>{edit, combo, button, line})
        EXPECT_TRUE(of(row)->state().disabled) << row->metaObject()->className();
    EXPECT_TRUE(of(edit)->state().focusable);
    EXPECT_FALSE(of(edit)->state().editable);
    edit->setEnabled(true);
    EXPECT_TRUE(of(edit)->state().editable);
    edit->setReadOnly(true);
    EXPECT_TRUE(of(edit)->state().readOnly);
}

TEST_F(AccessibleRows, ArePressedByAScreenReader)
{
    YPressButton* button = addButton();
    QSignalSpy clicks(button, SIGNAL(clicked()));
    open();
    QAccessibleActionInterface* actions = of(button)->actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(clicks.count(), 1);
    button->setEnabled(false);
    actions->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(AccessibleRows, AreWrittenByAScreenReaderUnlessSwitchedOff)
{
    YLineEdit* edit = addEdit();
    of(edit)->setText(QAccessible::Value, "typed");
    EXPECT_EQ(edit->text(), "typed");
    edit->setEnabled(false);
    of(edit)->setText(QAccessible::Value, "other");
    EXPECT_EQ(edit->text(), "typed");
}

TEST_F(AccessibleRows, LetTheCursorBeFollowed)
{
    YLineEdit* edit = addEdit();
    edit->setText("abc");
    edit->setCursorPosition(2);
    QAccessibleTextInterface* field = of(edit)->textInterface();
    ASSERT_TRUE(field);
    EXPECT_EQ(field->cursorPosition(), 2);
    EXPECT_EQ(field->characterCount(), 3);
    EXPECT_EQ(of(edit)->childCount(), 0);
}

TEST_F(AccessibleRows, SegmentsHaveTheirFieldsNameAndTheirPlace)
{
    auto* field = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    field->setNumSegments(4);
    field->setLabel("Address");
    EXPECT_EQ(of(field)->role(), QAccessible::Grouping);
    EXPECT_EQ(text(field, QAccessible::Name), "Address");
    EXPECT_EQ(text(field, QAccessible::Value), "");
    for (int i = 0; i < 4; ++i)
        field->getField(i)->setText(QString::number(10 * i));
    EXPECT_EQ(text(field, QAccessible::Value), "0.10.20.30");
    EXPECT_EQ(text(field->getField(2), QAccessible::Name), "Address 3/4");
    field->setEnabled(false);
    EXPECT_TRUE(of(field)->state().disabled);
    EXPECT_TRUE(of(field->getField(2))->state().disabled);
}

TEST_F(AccessibleRows, PagesAndMenusHaveTheirTitles)
{
    page->setMainWidgetTitle("Connection Setup");
    EXPECT_EQ(of(page.get())->role(), QAccessible::Window);
    EXPECT_EQ(text(page.get(), QAccessible::Name), "Connection Setup");
    EXPECT_EQ(of(form)->role(), QAccessible::Form);
    YOptionsMenu menu(QRect(0, 0, 200, 286), nullptr, nullptr, 0, YSkinService::OptionsMenu);
    EXPECT_EQ(of(&menu)->role(), QAccessible::PopupMenu);
    EXPECT_EQ(text(&menu, QAccessible::Name), "Options");
}

} // namespace
