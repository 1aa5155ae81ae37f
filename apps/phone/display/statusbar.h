// The line above the screen: what carries data now, and the time.
#ifndef PHONE_DISPLAY_STATUSBAR_H
#define PHONE_DISPLAY_STATUSBAR_H

#include <QBasicTimer>
#include <QWidget>

namespace phone {

// What the bar tells beside the time.
struct LinkSigns
{
    int bearer = -1;       // a NapiBearerKind; -1 while no link is up
    int signal = -1;       // percent; -1 where nothing is known
    bool isActive = false; // bytes come or go
    int count = 0;         // of links that are up
};

// Wakes up once a minute, when the time that it shows changes, and for nothing else.
class StatusBar : public QWidget
{
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent);

    void setSigns(const LinkSigns& signs);
    const LinkSigns& signs() const { return m_signs; }

    static int barHeight();

signals:
    // The minute has changed.
    void minutePassed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void startTimer();
    void tell();

    LinkSigns m_signs;
    QBasicTimer m_minute;
    QString m_time;
};

} // namespace phone

#endif
