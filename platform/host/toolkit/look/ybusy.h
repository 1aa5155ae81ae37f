// The sign that something is under way.
#ifndef YBUSY_H
#define YBUSY_H

#include <QBasicTimer>
#include <QWidget>

// A ring whose lit part travels. Its timer runs only while the ring is shown.
class YBusy : public QWidget
{
    Q_OBJECT

public:
    explicit YBusy(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void tellBusy();

    QBasicTimer m_timer;
    int m_step = 0;
};

#endif
