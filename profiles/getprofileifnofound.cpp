#include <qstring.h>

#include <ysingleselectdlg.h>

#include "profilefunctions.h"
#include "support/log.h"
#include "support/loop.h"
#include "support/memory.h"
#include "support/toolkitnumbers.h"
#include "support/translate.h"
#include "vornqtnapi_texts.h"

using support::translate;

enum ItemCode : unsigned int { CreateConnection = 0x301, ChooseConnection = 0x302 };

// What the user may choose, by row.
struct Way
{
    ItemCode code;
    const char* id;
    const char* text;
};

namespace {

const Way ways[] = {
    {CreateConnection, "TXT_RID_LIST_A_CREATE_NEW_CONNECTION", "Create New Connection"},
    {ChooseConnection, "TXT_RID_LIST_A_CHOOSE_CONNECTION", "Choose Connection"},
};

const int cancelled = 1;

const int listWidth = 200;

// The toolkit knows what the letters mean.
const char rowType[] = "%R%M200";

void addRow(YListBox* list, const Way& way, const QString& text)
{
    YListBoxItem* item = new YListBoxItem(list, QString());
    item->appendSubItem(toolkit::TextSubItem, text, "", nullptr, toolkit::HalfOfTheRow,
                        YListBoxItem::ShowSecond);
    item->setReservedData(way.code);
    list->insertItem(item, -1, true);
}

int actOn(unsigned int code, QString& name)
{
    if (code == CreateConnection)
        return createProfilebyUser(name);
    if (code == ChooseConnection)
        return getProfileNamebySelect(name);
    support::logPrint(support::LogError, "The error select item.\n");
    return cancelled;
}

int askUser(QString& name)
{
    YSingleSelectDlg dialog(translate("TXT_RID_HEADER_DATA_CONNECTION", "Data Connection"),
                            translate("TXT_RID_INSTRUCTIONALTXT_INTERNET_CONNECTION_NOT_FOUND",
                                      "Internet connection not found."),
                            nullptr, nullptr, true, 0, 0);
    YListBox* list = dialog.getListBox();
    if (!list)
        return VORN_ERR_NO_DIALOG;
    list->setItemType(rowType);
    list->setMinimumWidth(listWidth);
    for (const Way& way : ways)
        addRow(list, way, translate(way.id, way.text));
    list->checkItem(0, true);
    if (support::runDialog(dialog) != toolkit::Accepted)
        return cancelled;
    const YListBoxItem* item = dialog.getCheckedItem();
    return item ? actOn(item->getReservedData(), name) : int(VORN_ERR_NO_DIALOG);
}

} // namespace

int getProfileIfNoFound(QString& name)
{
    return support::withMemory([&name] { return askUser(name); },
                               [] { return int(VORN_ERR_NO_DIALOG); });
}
