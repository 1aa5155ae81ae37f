#include "home/profilemodel.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <napi.h>
#include <network/napi_host.h>
#include <vornqtnapi_texts.h>

#include "home/profiletexts.h"
#include "texts/phone_text.h"

namespace phone {

ProfileModel::ProfileModel(QObject* parent) : QAbstractListModel(parent) {}

int ProfileModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ProfileModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    Row& row = m_rows[std::size_t(index.row())];
    if (role == Qt::DisplayRole)
        return QString::fromUtf8(row.name);
    if (role != CardRole && role != Qt::AccessibleTextRole)
        return QVariant();
    if (!row.isRead)
        read(row);
    const Card shown = card(row);
    return role == CardRole ? QVariant::fromValue(shown) : QVariant(shown.spoken());
}

int ProfileModel::refresh()
{
    beginResetModel();
    m_rows.clear();
    // One call: each looks at every profile.
    unsigned int count = NAPI_GetMaxProfiles();
    std::vector<char> names(std::size_t(count) * NAPI_PROFILE_NAME_SLOT);
    const int result = NAPI_ListAllProfile(names.data(), &count);
    if (result >= 0) {
        m_rows.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            m_rows.push_back(
                {QByteArray(&names[i * NAPI_PROFILE_NAME_SLOT]), false, false, {}, {}});
        appendDamaged();
    }
    endResetModel();
    return result;
}

// What has a folder in the store and is not on the list.
void ProfileModel::appendDamaged()
{
    const auto listed = std::ptrdiff_t(m_rows.size());
    const auto before = [](const Row& row, const QByteArray& sought) { return row.name < sought; };
    std::vector<QByteArray> damaged;
    std::error_code error;
    std::filesystem::directory_iterator entry(napihost::profilesFolder(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QByteArray name = QByteArray::fromStdString(entry->path().filename().native());
        const auto end = m_rows.begin() + listed;
        const auto found = std::lower_bound(m_rows.begin(), end, name, before);
        if ((found == end || found->name != name) &&
            NAPI_IsProfileValid(name.constData()) == NAPI_ERR_DAMAGED)
            damaged.push_back(name);
    }
    std::sort(damaged.begin(), damaged.end());
    for (const QByteArray& name : damaged)
        m_rows.push_back({name, true, false, {}, {}});
}

QString ProfileModel::name(int row) const
{
    return row >= 0 && row < rowCount() ? QString::fromUtf8(m_rows[std::size_t(row)].name)
                                        : QString();
}

int ProfileModel::row(const QString& name) const
{
    const QByteArray sought = name.toUtf8();
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&sought](const Row& row) { return row.name == sought; });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

bool ProfileModel::isDamaged(int row) const
{
    return row >= 0 && row < rowCount() && m_rows[std::size_t(row)].isDamaged;
}

void ProfileModel::setConnected(const QSet<QString>& names)
{
    if (m_connected == names)
        return;
    m_connected = names;
    changed();
}

bool ProfileModel::isConnected(int row) const
{
    return m_connected.contains(name(row));
}

void ProfileModel::setDefaultName(const QString& name)
{
    if (m_default == name)
        return;
    m_default = name;
    changed();
}

void ProfileModel::changed()
{
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

void ProfileModel::read(Row& row) const
{
    NetworkProfile record;
    const int result =
        row.isDamaged ? NAPI_ERR_DAMAGED : NAPI_ReadProfile(row.name.constData(), &record, 0, 0);
    row.isRead = true;
    if (result >= 0) {
        row.lines = profileLines(record);
        row.sign = profileSign(record);
        return;
    }
    row.isDamaged = result == NAPI_ERR_DAMAGED;
    row.sign = Sign::Warning;
    row.lines = QStringList{
        row.isDamaged ? text("TXT_RID_PHONE_CARD_DAMAGED", "Damaged, cannot be used")
                      : QString::fromUtf8(vornResultText(result)),
        row.isDamaged ? text("TXT_RID_PHONE_CARD_REMEDY", "Import it again or delete it")
                      : QString()};
}

Card ProfileModel::card(const Row& row) const
{
    Card shown;
    shown.title = QString::fromUtf8(row.name);
    shown.lines = row.lines;
    shown.sign = row.sign;
    if (m_connected.contains(shown.title)) {
        shown.badge = text("TXT_RID_PHONE_STATUS_ONLINE", "Connected");
        shown.tone = Tone::Good;
    }
    shown.isMarked = shown.title == m_default;
    shown.markedAs = text("TXT_RID_PHONE_CARD_DEFAULT", "Default");
    return shown;
}

} // namespace phone
