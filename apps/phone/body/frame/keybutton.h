// A key of the phone.
#ifndef PHONE_FRAME_KEYBUTTON_H
#define PHONE_FRAME_KEYBUTTON_H

#include <QAbstractButton>
#include <QBasicTimer>

#include "phonekeys.h"

namespace phone {

// Says that it goes down and up, and again and again that it goes down while it is held. It takes
// no focus: that stays on the screen.
class KeyButton : public QAbstractButton
{
    Q_OBJECT

public:
    // `entry` outlives the key.
    KeyButton(QWidget* parent, const CaseKey& entry);

    const CaseKey& entry() const { return m_entry; }
    // How much larger than usual its letters are.
    void setScale(double scale);
    // Shows it pressed or not, when the keyboard's key is; sends nothing.
    void setShownPressed(bool pressed);

signals:
    void wentDown(bool repeated);
    void wentUp();

protected:
    bool hitButton(const QPoint& point) const override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void goDown();
    void goUp();
    void paintGround(class QPainter& painter) const;
    void paintFace(class QPainter& painter) const;
    void paintArrow(class QPainter& painter) const;

    const CaseKey& m_entry;
    double m_scale = 1;
    bool m_isHeld = false;
    bool m_isRepeating = false;
    bool m_isShownPressed = false;
    QBasicTimer m_timer;
};

} // namespace phone

#endif
