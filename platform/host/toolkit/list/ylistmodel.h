// The rows of a YListBox as Qt's list view reads them.
#ifndef YLISTMODEL_H
#define YLISTMODEL_H

#include <unordered_set>
#include <vector>

#include <QAbstractListModel>

class YListBoxItem;

// Owns the items, those that are not shown yet too. A row is one pointer, so that ten thousand rows
// cost no more than their texts.
class YListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit YListModel(QObject* parent);
    ~YListModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    YListBoxItem* item(int row) const;
    int row(const YListBoxItem* item) const;
    void insert(int row, YListBoxItem* item);
    // Takes the row out; the item stays owned.
    void take(int row);
    void refresh(int row);
    // Deletes all items.
    void clear();

    void adopt(YListBoxItem* item) { m_owned.insert(item); }
    void disown(YListBoxItem* item) { m_owned.erase(item); }

    YListBoxItem* checked() const { return m_checkedItem; }
    void check(YListBoxItem* item);

private:
    std::vector<YListBoxItem*> m_rows;
    std::unordered_set<YListBoxItem*> m_owned;
    YListBoxItem* m_checkedItem = nullptr;
};

#endif
