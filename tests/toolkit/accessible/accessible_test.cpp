// What a screen reader learns of the dialogs.
#include <QAccessible>
#include <QListView>
#include <QPushButton>

#include <ylabel.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

QAccessibleInterface* of(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString name(QObject* object)
{
    return of(object)->text(QAccessible::Name);
}

class Accessible : public GuiTest
{};

TEST_F(Accessible, APopupIsAModalDialogWithItsTexts)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    popup.setTitle("Data Connection");
    popup.setInstructText("Internet connection not found.");
    EXPECT_EQ(of(&popup)->role(), QAccessible::Dialog);
    EXPECT_TRUE(of(&popup)->state().modal);
    EXPECT_EQ(name(&popup), "Data Connection");
    EXPECT_EQ(of(&popup)->text(QAccessible::Description), "Internet connection not found.");
}

TEST_F(Accessible, APopupWithoutATitleIsNamedByWhatItSays)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    QCoreApplication::setApplicationName("Browser");
    EXPECT_EQ(name(&popup), "Browser");
    auto* label = new YLabel(&popup, nullptr, 0, 86);
    EXPECT_EQ(name(&popup), "Browser") << "an empty label says nothing";
    label->setText("Connecting");
    EXPECT_EQ(name(&popup), "Connecting");
    popup.setInstructText("Wait.");
    EXPECT_EQ(name(&popup), "Wait.");
    popup.setTitle("Data Connection");
    EXPECT_EQ(name(&popup), "Data Connection");
}

TEST_F(Accessible, APopupThatBlocksNothingIsNotModal)
{
    YPopup popup(0, nullptr, nullptr, false, YPopup::PlainStyle, 0);
    EXPECT_FALSE(of(&popup)->state().modal);
}

TEST_F(Accessible, AProgressPopupIsBusyWhileItIsShown)
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    auto* ring = popup.findChild<QWidget*>("busy");
    EXPECT_EQ(of(ring)->role(), QAccessible::Animation);
    EXPECT_FALSE(of(ring)->state().busy);
    popup.show();
    EXPECT_TRUE(of(ring)->state().busy);
}

TEST_F(Accessible, AMessageTellsItsTitleAndText)
{
    YMessageDlg message("Memory Full", "There is no room.", 2, 0, nullptr, nullptr, true, 0);
    EXPECT_EQ(of(&message)->role(), QAccessible::Dialog);
    EXPECT_EQ(name(&message), "Memory Full");
    EXPECT_EQ(of(&message)->text(QAccessible::Description), "There is no room.");
}

TEST_F(Accessible, ANoticeWithoutATitleIsAnAlertNamedByItsText)
{
    YNoticeDlg notice(YNoticeDlg::Success, QString(), "Saved.", nullptr, nullptr, true, 0);
    EXPECT_EQ(of(&notice)->role(), QAccessible::AlertMessage);
    EXPECT_EQ(name(&notice), "Saved.");
}

TEST_F(Accessible, SoftKeysAreButtonsWithTheirTexts)
{
    YMessageDlg message("Title", "Text", 1, 0, nullptr, nullptr, true, 0);
    QStringList names;
    for (QPushButton* button : message.getSoftKey()->findChildren<QPushButton*>()) {
        EXPECT_EQ(of(button)->role(), QAccessible::Button);
        names << name(button);
    }
    EXPECT_EQ(names, (QStringList{"Yes", "No"}));
}

TEST_F(Accessible, ARowTellsItsTextAndWhetherItIsTheChoice)
{
    YSingleSelectDlg dialog("Select Connection", QString(), nullptr, nullptr, true, 0, 0);
    for (const char* text : {"Home", "Work"}) {
        auto* item = new YListBoxItem(dialog.getListBox(), "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.getListBox()->checkItem(1, true);
    dialog.show();
    auto* view = dialog.findChild<QListView*>();
    QAccessibleInterface* list = of(view);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(name(view), "Select Connection");
    ASSERT_EQ(list->childCount(), 2);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), "Home");
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "Work");
    EXPECT_FALSE(list->child(0)->state().checked);
    EXPECT_TRUE(list->child(1)->state().checked);
    EXPECT_TRUE(list->child(1)->state().selected);
}

} // namespace
