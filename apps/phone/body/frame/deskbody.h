// The phone on the desk: a case with the display and the keys.
#ifndef PHONE_FRAME_DESKBODY_H
#define PHONE_FRAME_DESKBODY_H

#include <vector>

#include <QEvent>
#include <QWidget>

#include "caselayout.h"

namespace phone {

class KeyButton;

// A window with the whole phone, which grows and shrinks with it. The keys are pressed with the
// mouse, with a finger, or on the keyboard, where they answer just as well.
class DeskBody : public QWidget
{
    Q_OBJECT

public:
    // In a window of its own, or on the whole of a screen that shows nothing else.
    enum class Room { Window, WholeScreen };

    // Owns `display`, whose size hint is that of the usual phone.
    DeskBody(QWidget* display, Room room);

    const CaseLayout& layoutOfCase() const { return m_layout; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void addKeys();
    void send(const KeyButton& key, QEvent::Type type, bool repeated);
    void showPressed(int key, bool pressed);
    void showNonePressed();
    void paintCase(class QPainter& painter) const;

    QWidget* m_display;
    QSize m_usual; // of the display
    CaseLayout::Keys m_keys = CaseLayout::Keys::Below;
    CaseLayout m_layout;
    std::vector<KeyButton*> m_buttons;
};

} // namespace phone

#endif
