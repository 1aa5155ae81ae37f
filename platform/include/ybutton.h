// The base of everything that is pressed.
#ifndef YBUTTON_H
#define YBUTTON_H

#include <memory>

#include <qpushbutton.h>
#include <qstring.h>

#include "platform_export.h"

#include "ykeywords_begin.h"

class QKeyEvent;
class QMouseEvent;
class QPaintEvent;

// Return, Enter, the blank and a tap press it: clicked() is emitted once, however long the key is
// held. Up and Down are left to the form.
class VORN_PLATFORM_API YButton : public QPushButton
{
    Q_OBJECT

public:
    // `name` is the object name or null. `widgetClassId` is one of YSkinService::WidgetClsID.
    YButton(QWidget* parent, const char* name, int widgetClassId);
    ~YButton();

    // False once the button is switched off. It then takes the focus and the keys as before but
    // does nothing with them; a tap on it comes as Return.
    bool isYEnabled() const;

    QSize sizeHint() const;
    QSize minimumSizeHint() const;
    int heightForWidth(int width) const;

public slots:
    void setEnabled(bool enabled);
    // The text on the button, in which "&" is a letter like any other.
    void setText(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event);
    void keyReleaseEvent(QKeyEvent* event);
    void mousePressEvent(QMouseEvent* event);
    void mouseMoveEvent(QMouseEvent* event);
    void mouseReleaseEvent(QMouseEvent* event);
    void paintEvent(QPaintEvent* event);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#include "ykeywords_end.h"

#endif
