// The folders and files of one folder as a list of cards.
#ifndef PHONE_EXCHANGE_FILEMODEL_H
#define PHONE_EXCHANGE_FILEMODEL_H

#include <QAbstractListModel>
#include <QDir>
#include <QFileInfoList>

namespace phone {

class FileModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit FileModel(QObject* parent) : QAbstractListModel(parent) {}

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // The folder around it first, then its folders, then its files of exported profiles (.json).
    void setFolder(const QDir& folder);
    const QDir& folder() const { return m_folder; }

    QFileInfo entry(int row) const;

private:
    QDir m_folder;
    QFileInfoList m_entries;
};

} // namespace phone

#endif
