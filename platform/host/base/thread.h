// Threads of the host libraries' own, in programs that know nothing of them.
#ifndef BASE_THREAD_H
#define BASE_THREAD_H

#include <pthread.h>

namespace base {

// Starts a thread that blocks every signal: the application's signals are for the application's
// threads. The caller joins it (pthread_join). Result: 0, or an errno as pthread_create gives it;
// EAGAIN where the process may have no more threads. Thread-safe.
int createThread(pthread_t* thread, void* (*function)(void*), void* argument);

} // namespace base

#endif
