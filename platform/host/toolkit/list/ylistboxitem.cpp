#include <ylistboxitem.h>

#include <algorithm>

#include <QStringList>

#include <ylistbox.h>

#include "toolkit/list/ylistitemdata.h"

QString YListBoxItem::Private::wholeText() const
{
    QStringList texts;
    for (const auto& [number, subItem] : subItems) {
        texts << subItem.first;
        if (!subItem.second.isEmpty())
            texts << subItem.second;
    }
    return texts.join(QStringLiteral(", "));
}

YListBoxItem::YListBoxItem(YListBox* list, QString type) : d(new Private)
{
    d->list = list;
    d->type = type;
    if (list)
        list->adopt(this);
}

YListBoxItem::~YListBoxItem()
{
    if (d->list)
        d->list->release(this);
}

void YListBoxItem::appendSubItem(int number, QString text, bool strong, const QPixmap* picture)
{
    YListSubItem subItem;
    subItem.first = text;
    subItem.strong = strong;
    if (picture)
        subItem.picture = *picture;
    d->subItems[number] = subItem;
    if (d->inserted)
        d->list->changed(this);
}

void YListBoxItem::appendSubItem(int number, QString first, QString second, const QPixmap* picture,
                                 unsigned int share, ShowPriority priority)
{
    YListSubItem subItem;
    subItem.first = first;
    subItem.second = second;
    if (picture)
        subItem.picture = *picture;
    subItem.share = std::clamp(share, 1U, 100U);
    subItem.priority = priority;
    d->subItems[number] = subItem;
    if (d->inserted)
        d->list->changed(this);
}

QString YListBoxItem::getSubItemText(int number, int which, bool /*shown*/) const
{
    const auto found = d->subItems.find(number);
    if (found == d->subItems.end() || which < 0 || which > 1)
        return QString();
    return which == 0 ? found->second.first : found->second.second;
}

void YListBoxItem::setReservedData(unsigned int data)
{
    d->reserved = data;
}

unsigned int YListBoxItem::getReservedData() const
{
    return d->reserved;
}

QString YListBoxItem::type() const
{
    return d->type;
}

bool YListBoxItem::isChecked() const
{
    return d->list && d->list->getCheckedItem() == this;
}
