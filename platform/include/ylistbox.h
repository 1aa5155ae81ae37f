// A list of rows, of which one can be chosen.
#ifndef YLISTBOX_H
#define YLISTBOX_H

#include <memory>

#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"
#include "ylistboxitem.h"
#include "ytypes.h"

#include "ykeywords_begin.h"

class QModelIndex;
class QResizeEvent;

// Rows have an index from 0. The current row is the one under the cursor; Up and Down and the
// finger move it. The checked row, at most one, is the choice. A row that the program checks is
// made current too, so that the cursor starts at the present choice.
class VORN_PLATFORM_API YListBox : public QWidget
{
    Q_OBJECT

public:
    // `name` is the object name or null; `flags` is 0.
    YListBox(QWidget* parent, const char* name, YWidgetFlags flags);
    // Deletes the items.
    ~YListBox();

    // The make-up of rows whose item has none of its own: "%R" a mark that shows the choice,
    // "%M240" a text, with the width that it has on a screen of 240 pixels; the row gives it what
    // it really has.
    void setItemType(QString type);
    QString itemType() const;

    // Shows `item` at `index`; -1 and everything behind the last row mean the end. An item that is
    // in the list already is moved. `repaint` false leaves the painting to the next event.
    void insertItem(YListBoxItem* item, int index, bool repaint);
    // Deletes one row, or all.
    void removeItem(int index);
    void clear();

    // The number of rows.
    int count() const;
    // The row's item, owned by the list; null for an index that is no row.
    YListBoxItem* item(int index) const;
    // The row of an item; -1 when it is not in the list.
    int index(const YListBoxItem* item) const;

    // The current row; -1 when there is none.
    int currentItem() const;
    void setCurrentItem(int index);

    // Makes a row the checked one, or takes its mark away. Rows that do not exist are ignored.
    void checkItem(int index, bool checked);
    void checkItem(YListBoxItem* item, bool checked);
    // The checked row; null when there is none.
    YListBoxItem* getCheckedItem() const;

    // The height in pixels that the first rows need at this width, but no more than `most`.
    int heightOfRows(int width, int most) const;

    QSize sizeHint() const;

signals:
    // The cursor has come to another row; -1 when no row is left.
    void highlighted(int index);
    // A row was chosen, by Return or by the finger; it is current and checked already.
    void selected(int index);

protected:
    void resizeEvent(QResizeEvent* event);

private slots:
    void choose(const QModelIndex& index);
    void moved(const QModelIndex& index);

private:
    friend class YListBoxItem;
    void tellChecked(YListBoxItem* before, YListBoxItem* now);
    void adopt(YListBoxItem* item);
    void release(YListBoxItem* item);
    void changed(YListBoxItem* item);

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
