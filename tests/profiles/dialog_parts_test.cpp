// What the selection dialog hands to the toolkit, in which order. The functions below stand before
// the toolkit's own, note their arguments, and go on to them.
#include <new>
#include <string>
#include <vector>

#include "common/gui_test.h"
#include "common/interposed.h"
#include "common/shows_ids.h"
#include "yprofileselectdlg.h"

using interposed::Call;
using interposed::callsOf;
using interposed::orNone;
using interposed::quoted;
using interposed::yes;

namespace {

// Whether the next text that is asked for finds no memory.
bool withoutMemory = false;

// By number, as they were made.
std::vector<const void*> items;

std::string row(const void* item)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i] == item)
            return "row " + std::to_string(i);
    return item ? "unknown row" : "no row";
}

} // namespace

#define DIALOG_CONSTRUCTOR _ZN16YSingleSelectDlgC2EP7QWidgetPKcbj
#define ITEM_CONSTRUCTOR _ZN12YListBoxItemC1EP8YListBox7QString

extern "C" {

__attribute__((visibility("default"))) void
DIALOG_CONSTRUCTOR(void* dialog, QWidget* parent, const char* name, bool modal, unsigned int flags)
{
    const Call call(std::string("dialog") + (parent ? " with a parent " : " no parent ") +
                    orNone(name) + (modal ? " modal " : " modeless ") + std::to_string(flags));
    nextOf<decltype(&DIALOG_CONSTRUCTOR)>(SYMBOL_TEXT(DIALOG_CONSTRUCTOR))(dialog, parent, name,
                                                                           modal, flags);
}

// A class type is handed over by its address.
__attribute__((visibility("default"))) void ITEM_CONSTRUCTOR(void* item, YListBox* list,
                                                             const QString* type)
{
    items.push_back(item);
    const Call call(row(item) + " made" + (list ? " in its list " : " no list ") + quoted(*type));
    nextOf<decltype(&ITEM_CONSTRUCTOR)>(SYMBOL_TEXT(ITEM_CONSTRUCTOR))(item, list, type);
}

} // extern "C"

void YPopup::setTitle(const QString& title)
{
    const Call call("title " + quoted(title));
    nextOf<void (*)(YPopup*, const QString&)>("_ZN6YPopup8setTitleERK7QString")(this, title);
}

void YPopup::setInstructText(const QString& text)
{
    const Call call("instruction " + quoted(text));
    nextOf<void (*)(YPopup*, const QString&)>("_ZN6YPopup15setInstructTextERK7QString")(this, text);
}

YListBox* YSingleSelectDlg::getListBox() const
{
    const Call call("list box");
    return nextOf<YListBox* (*)(const YSingleSelectDlg*)>("_ZNK16YSingleSelectDlg10getListBoxEv")(
        this);
}

void YListBox::setItemType(QString type)
{
    const Call call("item type " + quoted(type));
    nextOf<void (*)(YListBox*, QString)>("_ZN8YListBox11setItemTypeE7QString")(this, type);
}

void YListBox::insertItem(YListBoxItem* item, int index, bool repaint)
{
    const Call call(row(item) + " inserted " + std::to_string(index) + yes(repaint));
    nextOf<void (*)(YListBox*, YListBoxItem*, int, bool)>(
        "_ZN8YListBox10insertItemEP12YListBoxItemib")(this, item, index, repaint);
}

void YListBox::checkItem(YListBoxItem* item, bool checked)
{
    const Call call(row(item) + " checked" + yes(checked));
    nextOf<void (*)(YListBox*, YListBoxItem*, bool)>("_ZN8YListBox9checkItemEP12YListBoxItemb")(
        this, item, checked);
}

int YListBox::currentItem() const
{
    const Call call("current item");
    return nextOf<int (*)(const YListBox*)>("_ZNK8YListBox11currentItemEv")(this);
}

YListBoxItem* YListBox::item(int index) const
{
    const Call call("item " + std::to_string(index));
    return nextOf<YListBoxItem* (*)(const YListBox*, int)>("_ZNK8YListBox4itemEi")(this, index);
}

void YListBoxItem::appendSubItem(int number, QString text, bool strong, const QPixmap* picture)
{
    const Call call(row(this) + " sub-item " + std::to_string(number) + ' ' + quoted(text) +
                    yes(strong) + (picture ? " with a picture" : " no picture"));
    nextOf<void (*)(YListBoxItem*, int, QString, bool, const QPixmap*)>(
        "_ZN12YListBoxItem13appendSubItemEi7QStringbPK7QPixmap")(this, number, text, strong,
                                                                 picture);
}

QString YListBoxItem::getSubItemText(int number, int which, bool shown) const
{
    if (withoutMemory)
        throw std::bad_alloc();
    const Call call(row(this) + " text " + std::to_string(number) + ' ' + std::to_string(which) +
                    yes(shown));
    return nextOf<QString (*)(const YListBoxItem*, int, int, bool)>(
        "_ZNK12YListBoxItem14getSubItemTextEiib")(this, number, which, shown);
}

namespace {

typedef std::vector<std::string> Calls;

class DialogParts : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        items.clear();
    }
};

TEST_F(DialogParts, AreMadeInTheirOrderWithTheToolkitsValues)
{
    QStringList names = {"Work", "Home"};
    EXPECT_EQ(
        callsOf([&] { const YProfileSelectDlg dialog(names, "Home", nullptr, nullptr); }),
        (Calls{"dialog no parent none modal 0", "title \"Select Connection\"", "instruction \"\"",
               "list box", "item type \"%R%M240\"", "row 0 made in its list \"%R%M240\"",
               "row 0 sub-item 1 \"Work\" no no picture", "row 0 inserted -1 yes",
               "row 1 made in its list \"%R%M240\"", "row 1 sub-item 1 \"Home\" no no picture",
               "row 1 inserted -1 yes", "row 1 checked yes"}));
}

TEST_F(DialogParts, AreLookedUpByTheirIds)
{
    const ShowsIds translator;
    QStringList names;
    EXPECT_EQ(callsOf([&] { const YProfileSelectDlg dialog(names, "Home", nullptr, nullptr); })[1],
              "title \"HEADER_SELECT_CONNECTION=Select Connection\"");
}

TEST_F(DialogParts, EndAtTheListBoxWithoutNames)
{
    QWidget parent;
    QStringList names;
    EXPECT_EQ(callsOf([&] { const YProfileSelectDlg dialog(names, "Home", &parent, "chooser"); }),
              (Calls{"dialog with a parent chooser modal 0", "title \"Select Connection\"",
                     "instruction \"\"", "list box"}));
}

TEST_F(DialogParts, AreAskedForTheSubItemThatWasFilled)
{
    QStringList names = {"Work", "Home"};
    YProfileSelectDlg dialog(names, "Home", nullptr, nullptr);
    QString selected;
    EXPECT_EQ(callsOf([&] { dialog.selectedProfile(selected); }),
              (Calls{"list box", "current item", "item 1", "row 1 text 1 0 no"}));
}

TEST_F(DialogParts, AreNotAskedFurtherWithoutACurrentItem)
{
    QStringList names = {"Work"};
    YProfileSelectDlg dialog(names, "", nullptr, nullptr);
    dialog.getListBox()->clear();
    QString selected;
    EXPECT_EQ(callsOf([&] { dialog.selectedProfile(selected); }),
              (Calls{"list box", "current item"}));
}

// The phone's toolkit copies the text; the host's shares it and asks for nothing.
TEST_F(DialogParts, ThatFindNoMemoryForTheTextSelectNothing)
{
    QStringList names = {"Work"};
    YProfileSelectDlg dialog(names, "", nullptr, nullptr);
    QString selected("kept");
    withoutMemory = true;
    int result = 0;
    EXPECT_NO_THROW(result = dialog.selectedProfile(selected));
    withoutMemory = false;
    EXPECT_EQ(result, -1);
    EXPECT_EQ(selected.toStdString(), "kept");
}

} // namespace
