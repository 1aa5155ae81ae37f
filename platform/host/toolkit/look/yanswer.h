// A button that is pressed by a key answers as one that is touched.
#ifndef YANSWER_H
#define YANSWER_H

#include <QBasicTimer>
#include <QObject>
#include <QPointer>

class QAbstractButton;

// Lets a button look pressed for a moment; with reduced motion nothing happens.
class YAnswer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    void press(QAbstractButton* button);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void release();

    QBasicTimer m_timer;
    QPointer<QAbstractButton> m_button;
};

#endif
