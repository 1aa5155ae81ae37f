// The choice of one row from a list.
#ifndef YSINGLESELECTDLG_H
#define YSINGLESELECTDLG_H

#include <memory>

#include "platform_export.h"
#include "ylistbox.h"
#include "ypopup.h"
#include "ytypes.h"

#include "ykeywords_begin.h"

// A popup with a title, an instruction and a list. Return, the finger and the left soft key accept
// the row under the cursor, which is then current and checked; the right soft key cancels. A list
// without rows can only be cancelled.
class VORN_PLATFORM_API YSingleSelectDlg : public YPopup
{
    Q_OBJECT

public:
    // `flags` is 0.
    YSingleSelectDlg(QWidget* parent, const char* name, bool modal, YWidgetFlags flags);
    // The same with its texts; `reserved` is 0.
    YSingleSelectDlg(const QString& title, const QString& instruction, QWidget* parent,
                     const char* name, bool modal, YWidgetFlags flags, int reserved);
    ~YSingleSelectDlg();

    // Owned by the dialog; never null.
    YListBox* getListBox() const;
    // The checked row; null when there is none.
    YListBoxItem* getCheckedItem() const;

protected:
    int contentsHint(int width, int most) const;
    void layoutContents();
    void showEvent(QShowEvent* event);

private slots:
    void acceptCurrent();

private:
    void build();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
