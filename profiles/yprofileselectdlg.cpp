#include "yprofileselectdlg.h"

#include "support/memory.h"
#include "support/text.h"
#include "support/toolkitnumbers.h"

namespace {

// One mark and one text; the toolkit knows what the letters mean.
const char rowType[] = "%R%M240";

YListBoxItem* appendRow(YListBox* list, const QString& name)
{
    YListBoxItem* row = new YListBoxItem(list, rowType);
    row->appendSubItem(toolkit::TextSubItem, name, false, nullptr);
    list->insertItem(row, -1, true);
    return row;
}

} // namespace

YProfileSelectDlg::YProfileSelectDlg(QStringList& names, QString current, QWidget* parent,
                                     const char* name)
    : YSingleSelectDlg(parent, name, true, 0)
{
    setTitle(tr("TXT_RID_HEADER_SELECT_CONNECTION", "Select Connection"));
    setInstructText("");
    YListBox* list = getListBox();
    if (!list || names.isEmpty())
        return;
    list->setItemType(rowType);
    YListBoxItem* toCheck = nullptr;
    for (int i = 0; i < int(names.count()); ++i) {
        YListBoxItem* row = appendRow(list, names[i]);
        const bool isCurrent = !current.isEmpty() && support::compare(names[i], current) == 0;
        if (!toCheck || isCurrent)
            toCheck = row;
    }
    list->checkItem(toCheck, true);
}

YProfileSelectDlg::~YProfileSelectDlg() {}

int YProfileSelectDlg::selectedProfile(QString& out)
{
    YListBox* list = getListBox();
    const int current = list ? list->currentItem() : -1;
    YListBoxItem* row = current == -1 ? nullptr : list->item(current);
    if (!row)
        return -1;
    return support::withMemory(
        [row, &out] {
            out = row->getSubItemText(toolkit::TextSubItem, 0, false);
            return 0;
        },
        [] { return -1; });
}
