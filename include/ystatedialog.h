// The popup that is shown while a link is being opened.
#ifndef YSTATEDIALOG_H
#define YSTATEDIALOG_H

#include <ypopup.h>

#include "vornqtnapi_export.h"

class YLabel;
class YSoftKey;

// A small modal popup with room for an icon, a text and one soft key, Cancel (button 1). The
// session manager shows one by itself; an application may build its own, set a text and connect the
// key:
//
//     #include <ysoftkey.h>
//
//     YStateDialog* popup = new YStateDialog;
//     popup->setStateString("Signing in");
//     popup->getSoftKey()->setClickedSlot(1, this, SLOT(cancel()));
//     popup->show();
//
// Whoever creates the popup deletes it, also from inside the key's slot. GUI thread only.
class VORNQTNAPI_EXPORT YStateDialog : public YPopup
{
    Q_OBJECT

public:
    // Built but not shown.
    YStateDialog(QWidget* parent = 0);
    ~YStateDialog();

    // Sets the text beside the icon area; at first there is none. It is broken into lines as
    // needed. Where memory runs out it may stay as it was; no exception comes.
    void setStateString(const QString& text);

private:
    YSoftKey* softKey;
    YLabel* stateLabel;
};

#endif
