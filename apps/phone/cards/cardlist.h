// A list of cards.
#ifndef PHONE_CARDS_CARDLIST_H
#define PHONE_CARDS_CARDLIST_H

#include <QListView>

namespace phone {

// Up and Down and the finger move the current card, around at the ends; Return and a tap choose
// one, which is activated(). All cards have the same number of lines, so that a thousand of them
// are as quick as ten.
class CardList : public QListView
{
    Q_OBJECT

public:
    // `lines` is how many lines a card has below its title.
    CardList(QWidget* parent, int lines);

    // The current row, -1 when there is none.
    int currentRow() const { return currentIndex().row(); }
    void setCurrentRow(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace phone

#endif
