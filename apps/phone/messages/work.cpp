#include "messages/work.h"

#include <memory>

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <ysoftkey.h>
#include <ystatedialog.h>

#include "messages/workwatch.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

constexpr int momentMs = 300;
constexpr int lookMs = 200;

} // namespace

WorkWatch::WorkWatch(const QString& what, Progress& progress) : m_what(what), m_progress(progress)
{
    m_moment.start(momentMs, this);
}

WorkWatch::~WorkWatch() = default;

void WorkWatch::timerEvent(QTimerEvent*)
{
    if (!m_popup) {
        m_moment.start(lookMs, this);
        m_popup = std::make_unique<YStateDialog>();
        m_popup->getSoftKey()->setClickedSlot(YSoftKey::Right, this, SLOT(cancel()));
        m_popup->show();
    }
    // Somebody has closed the screen.
    if (!m_popup->isVisible())
        cancel();
    m_popup->setStateString(state());
}

QString WorkWatch::state() const
{
    if (m_progress.isCancelled)
        return text("TXT_RID_PHONE_WORK_CANCELLING", "Cancelling");
    const int all = m_progress.all;
    if (all == 0)
        return m_what;
    return text("TXT_RID_PHONE_WORK_PROGRESS", "%1: %2 of %3")
        .arg(m_what)
        .arg(m_progress.done.load())
        .arg(all);
}

void WorkWatch::cancel()
{
    m_progress.isCancelled = true;
}

void work(const QString& what, const std::function<void(Progress&)>& job)
{
    Progress progress;
    const std::unique_ptr<QThread> thread(QThread::create([&] { job(progress); }));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    WorkWatch watch(what, progress);
    thread->start();
    loop.exec();
    if (!thread->isFinished())
        progress.isCancelled = true;
    thread->wait();
}

} // namespace phone
