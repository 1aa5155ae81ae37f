#include <qstringlist.h>

#include <ysingleselectdlg.h>

#include "profilefunctions.h"
#include "support/log.h"
#include "support/loop.h"
#include "support/memory.h"
#include "support/translate.h"

using support::translate;

enum ItemCode : unsigned int { CreateConnection = 0x301, ChooseConnection = 0x302 };

// By row.
static const unsigned int itemCodes[] = {CreateConnection, ChooseConnection, 0};

enum { noListBox = -1, nothingChecked = -1, cancelled = 1 };

// What the toolkit gives a meaning to.
static const int accepted = 1;
static const int textItem = 1;
static const unsigned int textShare = 50;
static const int listWidth = 200;
static const char rowType[] = "%R%M200";

static void addRows(YListBox* list, const QStringList& texts)
{
    int row = 0;
    for (const QString& text : texts) {
        YListBoxItem* item = new YListBoxItem(list, QString());
        item->appendSubItem(textItem, text, "", nullptr, textShare, YListBoxItem::ShowSecond);
        item->setReservedData(itemCodes[row++]);
        list->insertItem(item, -1, true);
    }
}

static int actOn(unsigned int code, QString& name)
{
    if (code == CreateConnection)
        return createProfilebyUser(name);
    if (code == ChooseConnection)
        return getProfileNamebySelect(name);
    support::logPrint(4, "The error select item.\n");
    return cancelled;
}

static int askUser(QString& name)
{
    YSingleSelectDlg dialog(translate("TXT_RID_HEADER_DATA_CONNECTION", "Data Connection"),
                            translate("TXT_RID_INSTRUCTIONALTXT_INTERNET_CONNECTION_NOT_FOUND",
                                      "Internet connection not found."),
                            nullptr, nullptr, true, 0, 0);
    YListBox* list = dialog.getListBox();
    QStringList texts;
    texts << translate("TXT_RID_LIST_A_CREATE_NEW_CONNECTION", "Create New Connection")
          << translate("TXT_RID_LIST_A_CHOOSE_CONNECTION", "Choose Connection");
    if (!list)
        return noListBox;
    list->setItemType(rowType);
    list->setMinimumWidth(listWidth);
    addRows(list, texts);
    list->checkItem(0, true);
    if (support::runDialog(dialog) != accepted)
        return cancelled;
    const YListBoxItem* item = dialog.getCheckedItem();
    return item ? actOn(item->getReservedData(), name) : int(nothingChecked);
}

int getProfileIfNoFound(QString& name)
{
    return support::withMemory([&name] { return askUser(name); }, [] { return int(noListBox); });
}
