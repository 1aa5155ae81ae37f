// The sign that something is under way.
#ifndef YBUSY_H
#define YBUSY_H

#include <QBasicTimer>
#include <QWidget>

// A ring whose lit part travels, and breathes. Its timer runs only while the ring is shown; with
// reduced motion the ring stands still.
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
    double m_turned = 0.25; // turns, of two
};

#endif
