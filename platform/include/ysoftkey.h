// The bar of soft keys at the bottom of a page or popup.
#ifndef YSOFTKEY_H
#define YSOFTKEY_H

#include <memory>

#include <qstring.h>
#include <qwidget.h>

#include "platform_export.h"

class QEvent;
class QResizeEvent;
class QPaintEvent;
class YOptionsMenu;

// Two keys: button 0 on the left (F1) and button 1 on the right (F2), worked by the phone's keys
// and by the finger alike. A key that repeats because it is held acts once.
//
// Escape is the button that offers the way out, and nothing where none does, so that it never
// saves: the right one, else the left one, whose slot is reject() of a popup or one of whose texts
// is that of Cancel, Back, Close or No.
class VORN_PLATFORM_API YSoftKey : public QWidget
{
    Q_OBJECT

public:
    // The keys of the bar.
    enum Button { Left = 0, Right = 1 };

    // `layout` names the arrangement of the bar; "CST_2A", two keys, is the only one. `keyReceiver`
    // is the page or popup whose keys the bar hears; it may be the parent.
    YSoftKey(const char* layout, QWidget* parent, QWidget* keyReceiver);
    ~YSoftKey();

    // Shows or hides one button; a hidden one does not answer to its key either.
    void showButton(int button, bool visible);
    bool isButtonVisible(int button) const;

    // Sets the text of one button. Texts of several priorities are alternatives: the one with the
    // lowest number that fits the button is shown. An empty text takes the alternative away.
    void setText(int button, const QString& text, int priority);
    // The text shown.
    QString text(int button) const;

    // Calls `member`, written as SLOT() writes it, when the button is clicked. It takes the place
    // of the slot set before; a null receiver leaves the button without one.
    void setClickedSlot(int button, QObject* receiver, const char* member);

    // Makes the button open a menu, in the place of its slot.
    void setOptionsMenu(int button, YOptionsMenu* menu);

    // What a click on the button does; nothing while it is hidden. The bar may be deleted by it.
    void click(int button);

    QSize sizeHint() const;
    bool eventFilter(QObject* watched, QEvent* event);

protected:
    void paintEvent(QPaintEvent* event);
    void resizeEvent(QResizeEvent* event);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
