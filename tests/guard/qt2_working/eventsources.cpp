#include "eventsources.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <qevent.h>
#include <qguardedptr.h>
#include <qobject.h>

typedef std::chrono::steady_clock Clock;

namespace {

struct Timer
{
    int id;
    QObject* receiver;
    Clock::time_point due;
    std::chrono::milliseconds interval;
};

struct Watch
{
    QObject* notifier;
    int descriptor;
};

struct WakePipe
{
    WakePipe()
    {
        if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0)
            qFatal("no pipe");
    }

    int ends[2];
};

std::vector<Timer> timers;
std::vector<Watch> watches;
int lastId = 0;
std::atomic<int> waitCount = 0;

int wakeEnd(int end)
{
    static const WakePipe pipe;
    return pipe.ends[end];
}

int waitingTime()
{
    if (timers.empty())
        return -1;
    const auto first = std::min_element(
        timers.begin(), timers.end(), [](const Timer& a, const Timer& b) { return a.due < b.due; });
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(first->due - Clock::now());
    return std::max(0, static_cast<int>(left.count()));
}

// Receivers are guarded: one of them may delete another.
std::vector<QGuardedPtr<QObject>> readyNotifiers(bool wait)
{
    std::vector<pollfd> polled;
    polled.push_back({wakeEnd(0), POLLIN, 0});
    for (const Watch& watch : watches)
        polled.push_back({watch.descriptor, POLLIN, 0});
    poll(polled.data(), polled.size(), wait ? waitingTime() : 0);

    char bytes[64];
    while (polled[0].revents && read(wakeEnd(0), bytes, sizeof bytes) > 0) {
    }
    std::vector<QGuardedPtr<QObject>> ready;
    for (std::size_t i = 1; i < polled.size(); ++i) {
        if (polled[i].revents)
            ready.push_back(QGuardedPtr<QObject>(watches[i - 1].notifier));
    }
    return ready;
}

std::vector<QGuardedPtr<QObject>> dueReceivers()
{
    const Clock::time_point now = Clock::now();
    std::stable_sort(timers.begin(), timers.end(),
                     [](const Timer& a, const Timer& b) { return a.due < b.due; });
    std::vector<QGuardedPtr<QObject>> due;
    for (Timer& timer : timers) {
        if (timer.due > now)
            continue;
        due.push_back(QGuardedPtr<QObject>(timer.receiver));
        timer.due = now + timer.interval;
    }
    return due;
}

} // namespace

int eventsources::startTimer(QObject* receiver, int milliseconds)
{
    const std::chrono::milliseconds interval(milliseconds);
    timers.push_back({++lastId, receiver, Clock::now() + interval, interval});
    return lastId;
}

void eventsources::watch(QObject* notifier, int descriptor)
{
    watches.push_back({notifier, descriptor});
}

void eventsources::forget(const QObject* object)
{
    timers.erase(std::remove_if(timers.begin(), timers.end(),
                                [object](const Timer& timer) { return timer.receiver == object; }),
                 timers.end());
    watches.erase(std::remove_if(watches.begin(), watches.end(),
                                 [object](const Watch& watch) { return watch.notifier == object; }),
                  watches.end());
}

bool eventsources::pass(bool wait)
{
    waitCount += wait;
    bool sent = false;
    for (const QGuardedPtr<QObject>& notifier : readyNotifiers(wait)) {
        QEvent event(QEvent::SockAct);
        sent = (notifier && notifier->event(&event)) || sent;
    }
    for (const QGuardedPtr<QObject>& receiver : dueReceivers()) {
        QTimerEvent event(0);
        sent = (receiver && receiver->event(&event)) || sent;
    }
    return sent;
}

int eventsources::waits()
{
    return waitCount;
}

void eventsources::wake()
{
    const char byte = 0;
    if (write(wakeEnd(1), &byte, 1) < 0)
        return; // the pipe is full: the loop wakes anyway
}
