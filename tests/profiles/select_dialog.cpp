#include "profiles/select_dialog.h"

#include <QListView>

#include <ysoftkey.h>

#include "common/gui_test.h"

namespace selectdialog {

YProfileSelectDlg* shown()
{
    const QList<YProfileSelectDlg*> dialogs = GuiTest::screen()->findChildren<YProfileSelectDlg*>();
    return dialogs.isEmpty() ? nullptr : dialogs.first();
}

QStringList rows(const YProfileSelectDlg& dialog)
{
    QStringList names;
    for (int row = 0; row < dialog.getListBox()->count(); ++row)
        names << dialog.getListBox()->item(row)->getSubItemText(1, 0, false);
    return names;
}

QString checkedRow(const YProfileSelectDlg& dialog)
{
    const YListBoxItem* item = dialog.getCheckedItem();
    return item ? item->getSubItemText(1, 0, false) : QString();
}

void tapRow(const YProfileSelectDlg& dialog, int row)
{
    auto* view = dialog.getListBox()->findChild<QListView*>();
    ASSERT_NE(view, nullptr);
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    const QPoint middle = view->visualRect(index).center();
    GuiTest::tap(view->viewport()->mapTo(GuiTest::screen(), middle));
}

void tapKey(const YProfileSelectDlg& dialog, int key)
{
    const YSoftKey* bar = dialog.getSoftKey();
    const int x = bar->width() / 4 + (key == 1 ? bar->width() / 2 : 0);
    GuiTest::tap(bar->mapTo(GuiTest::screen(), QPoint(x, bar->height() / 2)));
}

} // namespace selectdialog
