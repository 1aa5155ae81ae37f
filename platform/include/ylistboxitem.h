// One row of a list.
#ifndef YLISTBOXITEM_H
#define YLISTBOXITEM_H

#include <memory>

#include <qstring.h>

#include "platform_export.h"

class QPixmap;
class YListBox;

// A row consists of sub-items with numbers of the program's choice; they stand in the row in the
// order of their numbers. Sub-item 0 is the row's mark and is drawn by the list.
class VORN_PLATFORM_API YListBoxItem
{
public:
    // Which of the two texts of a sub-item is kept whole when both together are too wide.
    enum ShowPriority { ShowEvenly = 0, ShowFirst = 1, ShowSecond = 2 };

    // The list owns the item from now on, but does not show it before YListBox::insertItem().
    // `type` is the row's make-up, see YListBox::setItemType(); a null text means the list's.
    YListBoxItem(YListBox* list, QString type);
    // Takes the row out of its list.
    ~YListBoxItem();

    // Adds a sub-item with one text, or replaces the one of that number. `strong` shows it in bold.
    // The picture is copied; null means none.
    void appendSubItem(int number, QString text, bool strong, const QPixmap* picture);
    // The same with a second text at the right edge. `share` is the first text's part of the width
    // in percent (1..100) when both are cut.
    void appendSubItem(int number, QString first, QString second, const QPixmap* picture,
                       unsigned int share, ShowPriority priority);

    // The first (`which` 0) or second (1) text of a sub-item, and an empty text where there is
    // none. `shown` asks for the text as the row shows it, which is the same unless the row cuts
    // it.
    QString getSubItemText(int number, int which, bool shown) const;

    // A number that belongs to the program; 0 until it is set.
    void setReservedData(unsigned int data);
    unsigned int getReservedData() const;

    // The row's make-up as it was given.
    QString type() const;
    // Whether this is the checked row of its list.
    bool isChecked() const;

private:
    YListBoxItem(const YListBoxItem&);
    YListBoxItem& operator=(const YListBoxItem&);

    friend class YListBox;
    friend class YListModel;
    friend class YListDelegate;
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
