// A panel that shows a part of contents that are higher than itself.
#ifndef YSCROLLPANEL_H
#define YSCROLLPANEL_H

#include <memory>

#include <qwidget.h>

#include "platform_export.h"

#include "ykeywords_begin.h"

class QHideEvent;
class QKeyEvent;
class QResizeEvent;
class QShowEvent;

// The contents are the children of viewport(), and as wide as the panel. Keys, wheel and finger
// move them; a thin bar at the right shows the part that is in sight, and takes no room where all
// is. The widget that gets the focus comes whole into sight. Positions are in pixels from the
// contents' top-left corner, and are kept between hide() and show().
class VORN_PLATFORM_API YScrollPanel : public QWidget
{
    Q_OBJECT

public:
    // `name` is the object name or null.
    YScrollPanel(QWidget* parent, const char* name, int widgetClassId);
    ~YScrollPanel();

    // The parent of all that is to be scrolled; never null.
    QWidget* viewport() const;

    // What is at the panel's top-left corner at present. Contents are never wider than the panel,
    // so that contentsX() is 0.
    int contentsX() const;
    int contentsY() const;
    int contentsHeight() const;

    // Where a child of viewport() lies in the contents, whether in sight or not; 0 for another
    // widget.
    int childX(QWidget* child) const;
    int childY(QWidget* child) const;

    // Moves the contents so that this place is at the top-left corner, as far as they reach.
    void setContentsPos(int x, int y);

    // Moves the contents no further than it takes to show a child of viewport() whole.
    virtual void ensureChildVisible(QWidget* child);

signals:
    // The contents are at another place.
    void contentsMoving(int x, int y);

protected:
    // Places the children of viewport() for this width and gives the height of the contents. Here:
    // leaves them where the program has put them.
    virtual int layoutContents(int width);
    // A key that no child has taken. Here: Up and Down scroll.
    virtual void contentsKeyPressEvent(QKeyEvent* event);
    // A child of viewport() that is being deleted or has moved to another parent.
    virtual void contentsChildRemoved(QObject* child);

    // The height of the part that is in sight.
    int visibleHeight() const;
    // Moves the contents so that the lines from `top` to below `bottom` are in sight; the upper
    // ones where there is no room for all.
    void ensureRangeVisible(int top, int bottom);
    // Lays the contents out again, at once.
    void updateContents();

    void resizeEvent(QResizeEvent* event);
    void showEvent(QShowEvent* event);
    void hideEvent(QHideEvent* event);

private:
    friend class YScrollContents;
    void applyPosition();
    void followFocus(QWidget* now);

    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
