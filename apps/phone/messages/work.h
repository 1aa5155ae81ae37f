// Long work, which the user can see and cancel.
#ifndef PHONE_MESSAGES_WORK_H
#define PHONE_MESSAGES_WORK_H

#include <atomic>
#include <functional>

#include <QString>

namespace phone {

// How far the work has come; what one of the two threads writes the other one reads.
struct Progress
{
    std::atomic<bool> isCancelled{false}; // set by the user; the work looks at it between its steps
    std::atomic<int> done{0};
    std::atomic<int> all{0}; // 0 where nobody knows
};

// Does `job` on a thread of its own and returns when it has ended; the application's events are
// served meanwhile. Work that takes longer than a moment has a popup with how far it is and a
// Cancel key. A job that throws ends the program, so it throws nothing. When the application quits
// or the popup is closed, the work is cancelled and waited for.
void work(const QString& what, const std::function<void(Progress&)>& job);

} // namespace phone

#endif
