// Paints the rows of a YListBox.
#ifndef YLISTDELEGATE_H
#define YLISTDELEGATE_H

#include <QStyledItemDelegate>

#include "toolkit/look/yrowfont.h"

class YListBoxItem;
class YListModel;
struct YListSubItem;

// A row is one line high, or as many lines as its text needs: a name is shown whole. The height
// depends on the width, which is the view's unless `setWidth` says otherwise.
class YListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    YListDelegate(QObject* parent, const YListModel& model);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // The row's height at a width in pixels.
    int height(int row, int width) const;

    // The make-up of rows that have none of their own.
    QString listType;

private:
    const YRowFont& fontOf(const YListSubItem& subItem) const;
    bool hasMark(int row) const;
    void paintSubItems(QPainter& painter, const QRect& row, const YListBoxItem& item,
                       QRect place) const;

    const YListModel& m_model;
    // Of the theme in use; another one may have larger letters.
    mutable YRowFont m_plainFont;
    mutable YRowFont m_strongFont;
};

#endif
