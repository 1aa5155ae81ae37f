// The selection dialog on the screen, and a person's ways through it.
#ifndef TESTS_PROFILES_SELECT_DIALOG_H
#define TESTS_PROFILES_SELECT_DIALOG_H

#include <QStringList>

#include "yprofileselectdlg.h"

namespace selectdialog {

// The dialog that is on the screen; null when there is none.
YProfileSelectDlg* shown();

// The names in the rows of a dialog.
QStringList rows(const YProfileSelectDlg& dialog);

// The name in the checked row; null when no row is checked.
QString checkedRow(const YProfileSelectDlg& dialog);

// Touches a row, which is scrolled into sight first, or a soft key (0 left, 1 right).
void tapRow(const YProfileSelectDlg& dialog, int row);
void tapKey(const YProfileSelectDlg& dialog, int key);

} // namespace selectdialog

#endif
