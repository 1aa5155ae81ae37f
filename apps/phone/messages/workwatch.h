// The popup of long work.
#ifndef PHONE_MESSAGES_WORKWATCH_H
#define PHONE_MESSAGES_WORKWATCH_H

#include <memory>

#include <QBasicTimer>
#include <QObject>

#include "messages/work.h"

class YStateDialog;

namespace phone {

class WorkWatch : public QObject
{
    Q_OBJECT

public:
    WorkWatch(const QString& what, Progress& progress);
    ~WorkWatch() override;

protected:
    void timerEvent(QTimerEvent* event) override;

private slots:
    void cancel();

private:
    QString state() const;

    QString m_what;
    Progress& m_progress;
    QBasicTimer m_moment;
    std::unique_ptr<YStateDialog> m_popup;
};

} // namespace phone

#endif
