// What the connection-not-found flow hands to the toolkit, in which order, and what it makes of
// each answer. The functions below stand before the toolkit's own; the dialog is never shown.
#include <cstdio>
#include <functional>
#include <string>

#include <stdio.h>

#include <applog.h>
#include <profilefunctions.h>
#include <ysingleselectdlg.h>

#include "common/gui_test.h"
#include "common/interposed.h"
#include "common/shows_ids.h"

using interposed::Call;
using interposed::callsOf;
using interposed::orNone;
using interposed::quoted;
using interposed::yes;

namespace {

bool hasListBox = true;
std::function<int(YSingleSelectDlg*)> user;
YListBoxItem* checkedItem = nullptr;

} // namespace

#define DIALOG_CONSTRUCTOR _ZN16YSingleSelectDlgC1ERK7QStringS2_P7QWidgetPKcbji
#define DIALOG_DESTRUCTOR _ZN16YSingleSelectDlgD1Ev
#define ITEM_CONSTRUCTOR _ZN12YListBoxItemC1EP8YListBox7QString

extern "C" {

__attribute__((visibility("default"))) void
DIALOG_CONSTRUCTOR(void* dialog, const QString& title, const QString& instruction, QWidget* parent,
                   const char* name, bool modal, unsigned int flags, int last)
{
    const Call call("dialog " + quoted(title) + ' ' + quoted(instruction) +
                    (parent ? " with a parent " : " no parent ") + orNone(name) +
                    (modal ? " modal " : " modeless ") + std::to_string(flags) + ' ' +
                    std::to_string(last));
    nextOf<decltype(&DIALOG_CONSTRUCTOR)>(SYMBOL_TEXT(DIALOG_CONSTRUCTOR))(
        dialog, title, instruction, parent, name, modal, flags, last);
}

__attribute__((visibility("default"))) void DIALOG_DESTRUCTOR(void* dialog)
{
    const Call call("dialog deleted");
    nextOf<decltype(&DIALOG_DESTRUCTOR)>(SYMBOL_TEXT(DIALOG_DESTRUCTOR))(dialog);
}

// A class type is handed over by its address.
__attribute__((visibility("default"))) void ITEM_CONSTRUCTOR(void* item, YListBox* list,
                                                             const QString* type)
{
    const Call call(std::string("item") + (list ? " in its list " : " no list ") + quoted(*type));
    nextOf<decltype(&ITEM_CONSTRUCTOR)>(SYMBOL_TEXT(ITEM_CONSTRUCTOR))(item, list, type);
}

} // extern "C"

YListBox* YSingleSelectDlg::getListBox() const
{
    const Call call("list box");
    const auto itself =
        nextOf<YListBox* (*)(const YSingleSelectDlg*)>("_ZNK16YSingleSelectDlg10getListBoxEv");
    return hasListBox ? itself(this) : nullptr;
}

YListBoxItem* YSingleSelectDlg::getCheckedItem() const
{
    const Call call("checked item");
    return checkedItem;
}

void QWidget::setMinimumWidth(int width)
{
    const Call call("minimum width " + std::to_string(width));
    nextOf<void (*)(QWidget*, int)>("_ZN7QWidget15setMinimumWidthEi")(this, width);
}

void YListBox::setItemType(QString type)
{
    const Call call("item type " + quoted(type));
    nextOf<void (*)(YListBox*, QString)>("_ZN8YListBox11setItemTypeE7QString")(this, type);
}

void YListBox::insertItem(YListBoxItem* item, int index, bool repaint)
{
    const Call call("inserted " + std::to_string(index) + yes(repaint));
    nextOf<void (*)(YListBox*, YListBoxItem*, int, bool)>(
        "_ZN8YListBox10insertItemEP12YListBoxItemib")(this, item, index, repaint);
}

void YListBox::checkItem(int index, bool checked)
{
    const Call call("check " + std::to_string(index) + yes(checked));
    nextOf<void (*)(YListBox*, int, bool)>("_ZN8YListBox9checkItemEib")(this, index, checked);
}

void YListBoxItem::appendSubItem(int number, QString text, QString second, const QPixmap* picture,
                                 unsigned int share, ShowPriority priority)
{
    const Call call("sub-item " + std::to_string(number) + ' ' + quoted(text) + ' ' +
                    quoted(second) + (picture ? " with a picture " : " no picture ") +
                    std::to_string(share) + ' ' + std::to_string(priority));
    nextOf<void (*)(YListBoxItem*, int, QString, QString, const QPixmap*, unsigned int,
                    ShowPriority)>(
        "_ZN12YListBoxItem13appendSubItemEi7QStringS0_PK7QPixmapjNS_12ShowPriorityE")(
        this, number, text, second, picture, share, priority);
}

void YListBoxItem::setReservedData(unsigned int data)
{
    const Call call("reserved " + std::to_string(data));
    nextOf<void (*)(YListBoxItem*, unsigned int)>("_ZN12YListBoxItem15setReservedDataEj")(this,
                                                                                          data);
}

int YPopup::exec()
{
    const Call call("exec");
    return user(static_cast<YSingleSelectDlg*>(this));
}

namespace {

typedef std::vector<std::string> Calls;

class NotFoundParts : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        hasListBox = true;
        checkedItem = nullptr;
        user = [](YSingleSelectDlg*) { return 0; };
    }

    int ask()
    {
        QString name = "kept";
        int result = -99;
        calls = callsOf([&] { result = getProfileIfNoFound(name); });
        EXPECT_EQ(name.toStdString(), "kept");
        return result;
    }

    // The user checks a row with this code, and the dialog ends with `result`.
    static void checkRow(unsigned int code, int result)
    {
        user = [code, result](YSingleSelectDlg* dialog) {
            checkedItem = dialog->getListBox()->item(0);
            checkedItem->setReservedData(code);
            return result;
        };
    }

    Calls calls;
};

TEST_F(NotFoundParts, AreMadeInTheirOrderWithTheToolkitsValues)
{
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(
        (Calls{"dialog \"Data Connection\" \"Internet connection not found.\" no parent "
               "none modal 0 0",
               "list box", "item type \"%R%M200\"", "minimum width 200", "item in its list null",
               "sub-item 1 \"Create New Connection\" \"\" no picture 50 2", "reserved 769",
               "inserted -1 yes", "item in its list null",
               "sub-item 1 \"Choose Connection\" \"\" no picture 50 2", "reserved 770",
               "inserted -1 yes", "check 0 yes", "exec", "dialog deleted"}),
        calls);
}

TEST_F(NotFoundParts, AreLookedUpByTheirIds)
{
    const ShowsIds translator;
    EXPECT_EQ(ask(), 1);
    EXPECT_EQ(
        calls[0],
        "dialog \"HEADER_DATA_CONNECTION=Data Connection\" "
        "\"INSTRUCTIONALTXT_INTERNET_CONNECTION_NOT_FOUND=Internet connection not found.\" no "
        "parent none modal 0 0");
    EXPECT_EQ(calls[5],
              "sub-item 1 \"LIST_A_CREATE_NEW_CONNECTION=Create New Connection\" \"\" no picture "
              "50 2");
    EXPECT_EQ(calls[9],
              "sub-item 1 \"LIST_A_CHOOSE_CONNECTION=Choose Connection\" \"\" no picture 50 2");
}

TEST_F(NotFoundParts, WithoutAListBoxGiveMinusOneAndShowNothing)
{
    hasListBox = false;
    EXPECT_EQ(ask(), -1);
    EXPECT_EQ((Calls{"dialog \"Data Connection\" \"Internet connection not found.\" no parent "
                     "none modal 0 0",
                     "list box", "dialog deleted"}),
              calls);
}

TEST_F(NotFoundParts, AcceptedWithoutACheckedRowGiveMinusOne)
{
    user = [](YSingleSelectDlg*) { return 1; };
    EXPECT_EQ(ask(), -1);
    EXPECT_EQ((Calls{"exec", "checked item", "dialog deleted"}),
              Calls(calls.end() - 3, calls.end()));
}

TEST_F(NotFoundParts, ThatEndWithAnythingButOneAreCancelled)
{
    for (int result : {0, -1, 2, 100}) {
        checkRow(0x301, result);
        EXPECT_EQ(ask(), 1) << result;
        EXPECT_EQ(calls[calls.size() - 2], "exec") << "the checked row is not asked for";
    }
}

TEST_F(NotFoundParts, WithACheckedRowOfAnUnknownCodeLogThatAndGiveOne)
{
    for (unsigned int code : {0u, 0x300u, 0x303u, 0xFFFFFFFFu}) {
        checkRow(code, 1);
        char* text = nullptr;
        std::size_t size = 0;
        FILE* log = ::open_memstream(&text, &size);
        APPLOG_ModuleStream = log;
        EXPECT_EQ(ask(), 1) << code;
        APPLOG_ModuleStream = nullptr;
        std::fclose(log);
        EXPECT_STREQ(text, "The error select item.\n") << code;
        std::free(text);
    }
}

} // namespace
