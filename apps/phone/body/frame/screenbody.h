// The whole screen of a real phone.
#ifndef PHONE_FRAME_SCREENBODY_H
#define PHONE_FRAME_SCREENBODY_H

#include <QRectF>
#include <QWidget>

namespace phone {

// Fills the screen in whatever way it is turned, but for what a keyboard on the screen takes.
class ScreenBody : public QWidget
{
    Q_OBJECT

public:
    // Owns `display`.
    explicit ScreenBody(QWidget* display);

public slots:
    // What the keyboard on the screen covers, in this window's pixels; an empty rectangle when it
    // is away.
    void keepClearOf(const QRectF& keyboard);

protected:
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void askForKeyboard();

private:
    void layoutDisplay();

    QWidget* m_display;
    QRectF m_keyboard;
};

} // namespace phone

#endif
