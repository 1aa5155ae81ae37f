// The stored profiles as a list of cards.
#ifndef PHONE_HOME_PROFILEMODEL_H
#define PHONE_HOME_PROFILEMODEL_H

#include <vector>

#include <QAbstractListModel>
#include <QSet>

#include "cards/card.h"

namespace phone {

// The profiles in the order of the network API, those that cannot be read behind them. A record is
// read when its card is shown first, so that a thousand profiles cost nothing before.
class ProfileModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit ProfileModel(QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // Lists the profiles anew. Result: 0, or that of NAPI_ListAllProfile, and the list is empty.
    int refresh();

    QString name(int row) const;
    // -1 where there is no profile of this name.
    int row(const QString& name) const;
    bool isDamaged(int row) const;

    // The profiles whose link is up, or is being opened.
    void setConnected(const QSet<QString>& names);
    bool isConnected(int row) const;
    void setDefaultName(const QString& name);

private:
    struct Row
    {
        QByteArray name;
        bool isDamaged = false;
        bool isRead = false;
        QStringList lines;
        Sign sign = Sign::None;
    };

    void read(Row& row) const;
    Card card(const Row& row) const;
    void appendDamaged();
    void changed();

    mutable std::vector<Row> m_rows;
    QSet<QString> m_connected;
    QString m_default;
};

} // namespace phone

#endif
