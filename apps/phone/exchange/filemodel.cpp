#include "exchange/filemodel.h"

#include <QLocale>

#include "cards/card.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

Card cardOf(const QFileInfo& entry)
{
    Card card;
    card.sign = entry.isDir() ? Sign::Folder : Sign::File;
    card.title = entry.fileName();
    if (card.title == QLatin1String(".."))
        card.title = text("TXT_RID_PHONE_FILE_UP", "Up");
    card.lines =
        QStringList{entry.isDir() ? text("TXT_RID_PHONE_FILE_FOLDER", "Folder")
                                  : QLocale().toString(entry.lastModified(), QLocale::ShortFormat)};
    return card;
}

} // namespace

int FileModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant FileModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const QFileInfo& entry = m_entries[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return entry.fileName();
    case CardRole:
        return QVariant::fromValue(cardOf(entry));
    case Qt::AccessibleTextRole:
        return cardOf(entry).spoken();
    default:
        return QVariant();
    }
}

void FileModel::setFolder(const QDir& folder)
{
    beginResetModel();
    m_folder = folder;
    m_entries.clear();
    if (!folder.isRoot())
        m_entries << QFileInfo(folder, QStringLiteral(".."));
    m_entries << folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    m_entries << folder.entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    endResetModel();
}

QFileInfo FileModel::entry(int row) const
{
    return row >= 0 && row < rowCount() ? m_entries[row] : QFileInfo();
}

} // namespace phone
