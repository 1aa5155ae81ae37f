// What a row of a list consists of; shared by the item, its list and the delegate that paints it.
#ifndef YLISTITEMDATA_H
#define YLISTITEMDATA_H

#include <map>

#include <QPixmap>
#include <QString>

#include <ylistboxitem.h>

struct YListSubItem
{
    QString first;
    QString second;
    QPixmap picture;
    bool strong = false;
    unsigned int share = 100; // of the width, for the first text, in percent
    YListBoxItem::ShowPriority priority = YListBoxItem::ShowEvenly;
};

struct YListBoxItem::Private
{
    YListBox* list = nullptr;
    QString type;
    std::map<int, YListSubItem> subItems; // by number
    unsigned int reserved = 0;
    bool inserted = false;

    // Everything that the row says, for accessibility and for choosing a row by typing.
    QString wholeText() const;
};

#endif
