#include "toolkit/list/ylistmodel.h"

#include <algorithm>
#include <utility>

#include "toolkit/list/ylistitemdata.h"

YListModel::YListModel(QObject* parent) : QAbstractListModel(parent) {}

YListModel::~YListModel()
{
    clear();
}

int YListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant YListModel::data(const QModelIndex& index, int role) const
{
    const YListBoxItem* at = item(index.row());
    if (!at)
        return QVariant();
    if (role == Qt::DisplayRole)
        return at->d->wholeText();
    if (role == Qt::CheckStateRole)
        return at == m_checkedItem ? Qt::Checked : Qt::Unchecked;
    return QVariant();
}

YListBoxItem* YListModel::item(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)] : nullptr;
}

int YListModel::row(const YListBoxItem* item) const
{
    // The last row is asked for most: rows are added at the end and then checked.
    const auto found = std::find(m_rows.rbegin(), m_rows.rend(), item);
    return found == m_rows.rend() ? -1 : static_cast<int>(m_rows.rend() - found) - 1;
}

void YListModel::insert(int row, YListBoxItem* item)
{
    beginInsertRows(QModelIndex(), row, row);
    m_rows.insert(m_rows.begin() + row, item);
    item->d->inserted = true;
    endInsertRows();
}

void YListModel::take(int row)
{
    YListBoxItem* item = m_rows[static_cast<std::size_t>(row)];
    beginRemoveRows(QModelIndex(), row, row);
    m_rows.erase(m_rows.begin() + row);
    item->d->inserted = false;
    if (m_checkedItem == item)
        m_checkedItem = nullptr;
    endRemoveRows();
}

void YListModel::refresh(int row)
{
    emit dataChanged(index(row), index(row));
}

void YListModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_checkedItem = nullptr;
    const std::unordered_set<YListBoxItem*> items = std::exchange(m_owned, {});
    for (YListBoxItem* item : items) {
        item->d->list = nullptr;
        delete item;
    }
    endResetModel();
}

void YListModel::check(YListBoxItem* item)
{
    if (item == m_checkedItem)
        return;
    const int before = m_checkedItem ? row(m_checkedItem) : -1;
    m_checkedItem = item;
    for (const int changed : {before, item ? row(item) : -1})
        if (changed >= 0)
            refresh(changed);
}
