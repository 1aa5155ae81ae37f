// The links as a list of cards.
#ifndef PHONE_LINKS_LINKMODEL_H
#define PHONE_LINKS_LINKMODEL_H

#include <QAbstractListModel>

namespace phone {

class LinkBook;
struct Link;

class LinkModel : public QAbstractListModel
{
    Q_OBJECT

public:
    // How many lines a card has below its title.
    static constexpr int lines = 4;

    LinkModel(QObject* parent, LinkBook& book);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // The id of the link in a row; -1 where there is none.
    int id(int row) const;

public slots:
    // Links have come or gone.
    void reload();
    // Time has passed and bytes have come.
    void tick();

private:
    LinkBook& m_book;
};

} // namespace phone

#endif
