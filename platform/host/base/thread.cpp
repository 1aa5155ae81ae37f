#include "base/thread.h"

#include <csignal>

namespace base {

int createThread(pthread_t* thread, void* (*function)(void*), void* argument)
{
    // A thread begins with the mask of the one that starts it, so no signal can come in between.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    int error = pthread_create(thread, nullptr, function, argument);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return error;
}

} // namespace base
