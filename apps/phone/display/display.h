// The phone's display.
#ifndef PHONE_DISPLAY_DISPLAY_H
#define PHONE_DISPLAY_DISPLAY_H

#include <QWidget>

namespace phone {

class StatusBar;

// The status bar above the screen on which every page and popup lies. Its usual size is that of the
// screen and the bar together; whatever size it is given, the screen gets all but the bar.
class Display : public QWidget
{
    Q_OBJECT

public:
    explicit Display(QWidget* parent = nullptr);
    // The screen goes on without it, as a window of its own.
    ~Display() override;

    StatusBar* statusBar() const { return m_bar; }

    // The screen's usual size from now on, as "480x800"; a text of another kind changes nothing.
    void setScreenSize(const QString& size);

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    StatusBar* m_bar;
    QSize m_usual; // of the screen
};

} // namespace phone

#endif
