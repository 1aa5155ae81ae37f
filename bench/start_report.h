// What a program with a list has cost until it is seen, as one line of JSON.
#ifndef START_REPORT_H
#define START_REPORT_H

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>

#include <time.h>

// Milliseconds since the moment that the measuring program has put into VORN_BENCH_START, in
// seconds of CLOCK_MONOTONIC.
inline double sinceStart()
{
    timespec now;
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    const double begin = std::atof(qgetenv("VORN_BENCH_START").constData());
    return (double(now.tv_sec) + double(now.tv_nsec) / 1e9 - begin) * 1000;
}

// KiB of memory that is this process's, shared parts by their share.
inline long memoryShare()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (file.open(QIODevice::ReadOnly))
        for (const QByteArray& line : file.readAll().split('\n'))
            if (line.startsWith("Pss:"))
                return line.simplified().split(' ').value(1).toLong();
    return 0;
}

// Hears that a widget is painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    // Serves the event loop until the widget was painted.
    void wait()
    {
        while (!m_isPainted)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_isPainted = false;
};

// Scrolls through the whole list by a finger's steps; the time that each frame takes, in
// milliseconds, in ascending order.
inline std::vector<double> frameTimes(QAbstractItemView& list)
{
    std::vector<double> times;
    QScrollBar* bar = list.verticalScrollBar();
    const int step = std::max(1, bar->maximum() / 500);
    for (int at = 0; at < bar->maximum(); at += step) {
        QElapsedTimer timer;
        timer.start();
        bar->setValue(at);
        list.viewport()->repaint();
        QApplication::processEvents();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times;
}

inline void report(double seen, QAbstractItemView& list)
{
    const long memory = memoryShare();
    const std::vector<double> frames = frameTimes(list);
    std::printf("{\"seen\": %.2f, \"memory\": %ld, \"frame\": %.3f, \"worst\": %.3f}\n", seen,
                memory, frames.empty() ? 0 : frames[frames.size() / 2],
                frames.empty() ? 0 : frames.back());
}

#endif
