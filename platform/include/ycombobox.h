// A row of a form in which one of several items is chosen.
#ifndef YCOMBOBOX_H
#define YCOMBOBOX_H

#include <memory>

#include <qstring.h>

#include "platform_export.h"
#include "ybutton.h"

#include "ykeywords_begin.h"

class QPaintEvent;

// Shows a title above the current item; pressing it opens a dialog with all items.
class VORN_PLATFORM_API YComboBox : public YButton
{
    Q_OBJECT

public:
    // How the dialog shows the items: with a mark at the current one, or as plain rows, the
    // cursor at the current one.
    enum DlgType { MarkedDlg = 0, PlainDlg = 1 };

    // `name` is the object name or null. With `titled` false the title is not shown above the item;
    // it still names the row for a screen reader and the dialog.
    YComboBox(QWidget* parent, const char* name, bool titled);
    ~YComboBox();

    // The text at the left of the row; the value stands at its right.
    void setTitle(const QString& title);
    QString title() const;

    // The title of the dialog and a DlgType. Unless set, it is the row's title and MarkedDlg.
    void setDlgTitle(const QString& title, int type);
    QString dlgTitle() const;
    int dlgType() const;

    // Outside of a form: whether the row takes the size of the current item with each change.
    void setAutoResize(bool enable);
    bool autoResize() const;

    // Inserts an item at `index`; -1 and everything behind the last item mean the end. The current
    // item stays the same one. The first item inserted becomes current.
    void insertItem(const QString& text, int index = -1);
    void removeItem(int index);
    void clear();
    int count() const;
    // Empty for an index that is no item.
    QString text(int index) const;
    QString currentText() const;

    // The current item's index; -1 while there are no items. An index that is no item changes
    // nothing. Nothing is emitted.
    int currentItem() const;
    void setCurrentItem(int index);

    QSize sizeHint() const;
    int heightForWidth(int width) const;

signals:
    // The user has chosen an item in the dialog, the current one or another; it is current already.
    void activated(int index);

protected:
    void paintEvent(QPaintEvent* event);

private slots:
    void choose();

private:
    void changed();

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
