// Texts without blanks, longer than any line, in every place that shows texts of programs and
// users.
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <yoptionsmenu.h>

#include "toolkit/form_page.h"
#include "toolkit/texts/painted_texts.h"

namespace {

// As long as a profile's name can get, and wider than the screen twice.
const QString& longWord()
{
    static const QString word = QString("W").repeated(40) + "end";
    return word;
}

class LongWord : public FormTest
{
protected:
    // The word stands whole where it is shown.
    static void expectWhole()
    {
        settle();
        const PaintedTexts painted(*screen());
        const QRect all = activeLayer()->geometry();
        EXPECT_EQ(painted.cutIn(all).toStdString(), "");
        EXPECT_TRUE(painted.in(all).contains(longWord())) << painted.in(all).toStdString();
    }
};

TEST_F(LongWord, LabelOfARow)
{
    addEdit(longWord());
    open();
    expectWhole();
}

TEST_F(LongWord, ButtonOfAForm)
{
    addButton()->setText(longWord());
    open();
    expectWhole();
}

TEST_F(LongWord, CurrentItemOfAChoice)
{
    YComboBox* combo = addCombo();
    combo->insertItem(longWord());
    open();
    combo->setCurrentItem(3);
    expectWhole();
    addEdit("Below");
    settle();
    EXPECT_EQ(form->childY(row(1)), combo->height()) << "the rows move with the item";
}

TEST_F(LongWord, CaptionOfASeparator)
{
    addSeparator()->label()->setText(longWord());
    addEdit();
    open();
    expectWhole();
}

TEST_F(LongWord, TitleOfAPage)
{
    page->setMainWidgetTitle(longWord().right(32));
    open();
    const PaintedTexts painted(*screen());
    EXPECT_EQ(painted.cutIn(QRect(0, 0, 240, 32)).toStdString(), "");
    EXPECT_TRUE(painted.in(QRect(0, 0, 240, 32)).contains(longWord().right(32)));
}

TEST_F(LongWord, TitleAndInstructionOfAPopup)
{
    YSingleSelectDlg dialog(longWord(), QString(), nullptr, nullptr, true, 0, 0);
    dialog.show();
    expectWhole();
    dialog.setTitle("Title");
    dialog.setInstructText(longWord());
    expectWhole();
}

TEST_F(LongWord, RowOfAList)
{
    YSingleSelectDlg dialog("Title", QString(), nullptr, nullptr, true, 0, 0);
    auto* item = new YListBoxItem(dialog.getListBox(), "%R%M240");
    item->appendSubItem(1, longWord(), true, nullptr);
    dialog.getListBox()->insertItem(item, -1, true);
    dialog.show();
    expectWhole();
}

TEST_F(LongWord, Message)
{
    YMessageDlg message("Title", longWord() + " and more", 2, 0, nullptr, nullptr, true, 0);
    message.show();
    expectWhole();
}

TEST_F(LongWord, Notice)
{
    YNoticeDlg notice(YNoticeDlg::Success, QString(), longWord(), nullptr, nullptr, true, 0);
    notice.show();
    expectWhole();
}

TEST_F(LongWord, ItemOfAMenu)
{
    YOptionsMenu menu(QRect(0, 0, 200, 286), nullptr, nullptr, 0, YSkinService::OptionsMenu);
    menu.insertItem(longWord(), nullptr, nullptr, nullptr, true, true, true, -1, -1, false);
    menu.show();
    expectWhole();
}

TEST_F(LongWord, LabelOfAPopup)
{
    YPopup popup(YPopup::UsualType, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    YLabel label(&popup, nullptr, 0, YSkinService::PlainLabel);
    label.setGeometry(0, 0, 120, 160);
    label.setText(longWord());
    popup.setGeometry(screen()->rect());
    popup.show();
    expectWhole();
}

} // namespace
