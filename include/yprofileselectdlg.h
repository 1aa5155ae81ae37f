// The popup in which the user picks one of several profile names.
#ifndef YPROFILESELECTDLG_H
#define YPROFILESELECTDLG_H

#include <qstring.h>
#include <qstringlist.h>

#include <ysingleselectdlg.h>

#include "vornqtnapi_export.h"

// A modal list of names with the title "Select Connection", in the order in which they were given.
// Most applications call getProfileNamebySelect() of profilefunctions.h, which fills it with the
// stored profiles; build one yourself to offer names of your own:
//
//     QStringList names;
//     names << "Home" << "Work";
//     YProfileSelectDlg dialog(names, "Work", 0, 0);
//     QString chosen;
//     if (dialog.exec() == 1 && dialog.selectedProfile(chosen) == 0)
//         use(chosen);
//
// It is shown by exec() or show() and deleted by whoever made it. GUI thread only.
class VORNQTNAPI_EXPORT YProfileSelectDlg : public YSingleSelectDlg
{
    Q_OBJECT

public:
    // The row whose name equals `current` exactly is checked and current, the last one where
    // several are equal; the first row where none is, or `current` is empty. Without names the list
    // is empty and can only be cancelled. `names` is not changed. `parent` and `name`, the object
    // name, may be null.
    YProfileSelectDlg(QStringList& names, QString current, QWidget* parent, const char* name);
    ~YProfileSelectDlg();

    // Stores the name of the current row, the one under the cursor, in `out` and returns 0. Without
    // a current row, and without memory for the name, it returns -1 and leaves `out` as it is. May
    // be called before, while and after the popup is shown.
    int selectedProfile(QString& out);
};

#endif
