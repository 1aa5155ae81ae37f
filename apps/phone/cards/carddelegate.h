// Paints cards.
#ifndef PHONE_CARDS_CARDDELEGATE_H
#define PHONE_CARDS_CARDDELEGATE_H

#include <QStyledItemDelegate>

namespace phone {

struct Card;

class CardDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    CardDelegate(QObject* parent, int lines) : QStyledItemDelegate(parent), m_lines(lines) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    int m_lines;
};

} // namespace phone

#endif
