// The list of a menu's items.
#ifndef YOPTIONSLIST_H
#define YOPTIONSLIST_H

#include <QListWidget>

class QAction;

// A row for each item, painted as the menu's. Its digits choose an item rather than search for one.
class YOptionsList : public QListWidget
{
public:
    explicit YOptionsList(QWidget* parent);

    // A row that shows an item as its action is now.
    void insert(int row, const QAction& action);
    void refresh(int row, const QAction& action);

    // Gives each row the height of its text in a list of this width. Result: the sum.
    int layoutRows(int width);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#endif
