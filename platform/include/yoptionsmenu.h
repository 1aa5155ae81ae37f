// The menu of a soft key.
#ifndef YOPTIONSMENU_H
#define YOPTIONSMENU_H

#include <memory>

#include <qrect.h>
#include <qstring.h>

#include "platform_export.h"
#include "ypopup.h"
#include "ytypes.h"

#include "ykeywords_begin.h"

class QListWidgetItem;
class QMouseEvent;
class QObject;
class QPixmap;

// Opened with show(), mostly by YSoftKey::setOptionsMenu(). It stands at the bottom of its
// rectangle and is as high as its items need; its own soft keys take the place of the page's. Up,
// Down and Return, the digits 1 to 9, or a tap choose an item; the right soft key and a tap beside
// the menu close it.
class VORN_PLATFORM_API YOptionsMenu : public YPopup
{
    Q_OBJECT

public:
    // `rect` is the room for the menu in pixels of the screen; what lies outside of it is not used.
    // `parent` is who deletes the menu, or null. `name` is the object name or null, `flags` is 0.
    // `widgetClassId` is YSkinService::OptionsMenu.
    YOptionsMenu(const QRect& rect, QWidget* parent, const char* name, YWidgetFlags flags,
                 int widgetClassId);
    ~YOptionsMenu();

    // Adds an item at `index`; -1 and everything behind the last item mean the end. `picture` is
    // copied; null means none. Choosing the item closes the menu and then calls `member` of
    // `receiver`, written as SLOT() writes it; null for none. A checkable item changes its mark
    // first. `id` is the item's number, -1 to be given one; `reserved` is false. Result: the
    // number.
    int insertItem(const QString& text, const QPixmap* picture, QObject* receiver,
                   const char* member, bool enabled, bool checkable, bool checked, int id,
                   int index, bool reserved);
    void removeItem(int id);
    int count() const;

    // Empty or false for a number that no item has.
    QString text(int id) const;
    void setItemEnabled(int id, bool enabled);
    bool isItemEnabled(int id) const;
    void setItemChecked(int id, bool checked);
    bool isItemChecked(int id) const;

signals:
    // An item was chosen; before its own slot is called. The menu is closed.
    void activated(int id);

protected:
    void layoutContents();
    void showEvent(QShowEvent* event);
    void keyPressEvent(QKeyEvent* event);
    void mousePressEvent(QMouseEvent* event);
    void mouseReleaseEvent(QMouseEvent* event);
    void paintEvent(QPaintEvent* event);

private slots:
    void activate(QListWidgetItem* item);
    void activateCurrent();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
