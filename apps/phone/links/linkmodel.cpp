#include "links/linkmodel.h"

#include <QLocale>

#include <napi.h>

#include "cards/card.h"
#include "links/linkbook.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

Sign signOf(int bearer)
{
    switch (bearer) {
    case NAPI_BEARER_WIFI:
        return Sign::Wifi;
    case NAPI_BEARER_CSD:
        return Sign::Call;
    default:
        return Sign::Cellular;
    }
}

// "0:07:45"
QString lengthText(const QDateTime& since)
{
    const qint64 seconds = std::max<qint64>(0, since.secsTo(QDateTime::currentDateTime()));
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

QString bytesText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QStringList linesOf(const Link& link)
{
    const Traffic traffic = LinkBook::traffic(link);
    const QString servers = link.nameServers.join(QStringLiteral(", "));
    return {link.device + QStringLiteral(" \u00b7 ") +
                (link.address.isEmpty() ? text("TXT_RID_PHONE_LINK_NO_ADDRESS", "no address")
                                        : link.address),
            text("TXT_RID_PHONE_LINK_SERVERS", "Name servers: %1")
                .arg(servers.isEmpty() ? QStringLiteral("\u2013") : servers),
            text("TXT_RID_PHONE_LINK_TIME", "Time: %1").arg(lengthText(link.since)),
            text("TXT_RID_PHONE_LINK_BYTES", "In %1, out %2")
                .arg(bytesText(traffic.received), bytesText(traffic.sent))};
}

Card cardOf(const Link& link)
{
    Card card;
    card.title = link.profile;
    card.sign = signOf(link.bearer);
    card.badge = link.isUp ? text("TXT_RID_PHONE_STATUS_ONLINE", "Connected")
                           : text("TXT_RID_PHONE_LINK_OPENING", "Connecting");
    card.tone = link.isUp ? Tone::Good : Tone::Quiet;
    card.lines = link.isUp ? linesOf(link) : QStringList();
    return card;
}

} // namespace

LinkModel::LinkModel(QObject* parent, LinkBook& book) : QAbstractListModel(parent), m_book(book)
{
    connect(&m_book, SIGNAL(changed()), SLOT(reload()));
}

int LinkModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_book.links().size());
}

QVariant LinkModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const Link& link = m_book.links()[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return link.profile;
    case CardRole:
        return QVariant::fromValue(cardOf(link));
    case Qt::AccessibleTextRole:
        return cardOf(link).spoken();
    default:
        return QVariant();
    }
}

int LinkModel::id(int row) const
{
    return row >= 0 && row < rowCount() ? m_book.links()[std::size_t(row)].id : -1;
}

void LinkModel::reload()
{
    beginResetModel();
    endResetModel();
}

void LinkModel::tick()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

} // namespace phone
