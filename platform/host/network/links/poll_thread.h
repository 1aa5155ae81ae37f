// A thread that sleeps until a descriptor, a deadline or somebody's call wants something.
#ifndef NETWORK_POLL_THREAD_H
#define NETWORK_POLL_THREAD_H

#include <cstddef>
#include <mutex>
#include <vector>

#include <poll.h>
#include <pthread.h>

#include "base/unique_fd.h"
#include "network/links/bearer.h"

namespace network {

// What such a thread works for. Every call is made on the thread with its mutex held; none of them
// waits, and none throws.
class PollClient
{
public:
    // Does what is due: what calls have left behind, and what deadlines have passed for.
    virtual void work() = 0;

    // When work() is to be called next although no descriptor has said anything.
    virtual Clock::time_point nextDeadline() const = 0;

    // Appends what is to be waited for; a descriptor of -1 is waited for in vain. There is room for
    // as many as PollThread::reserve has asked for.
    virtual void addDescriptors(std::vector<pollfd>* all) const = 0;

    // At least one descriptor has something to say: those that addDescriptors has appended, in the
    // same order, with what happened to each.
    virtual void react(const pollfd* begin, const pollfd* end) = 0;

protected:
    ~PollClient() = default;
};

// The mutex is the client's own, and it is free while the thread sleeps. The functions are called
// one at a time; start and join with the mutex free, all others with the mutex held.
class PollThread
{
public:
    PollThread(std::mutex& mutex, PollClient& client) : m_mutex(mutex), m_client(client) {}

    // Starts the thread, under a name of at most 15 bytes. Result: 0 or an errno, with nothing left
    // running.
    int start(const char* name);

    // Ends it: tells it to stop, then waits for its end.
    void requestStop();
    void join();

    // Makes it look around once more before it sleeps. Without a thread there is nobody to wake.
    void wake();

    // Asks for the memory that so many descriptors of the client take, for the thread itself could
    // refuse nobody. May throw std::bad_alloc, with nothing changed.
    void reserve(std::size_t descriptors);

    // In a forked child, which has no such thread: releases what belongs to it.
    void forget() { m_wake.reset(); }

private:
    static void* main(void* thread);
    void run();
    void collect();
    int sleepUntil(Clock::time_point deadline);
    void react();

    std::mutex& m_mutex;
    PollClient& m_client;
    pthread_t m_thread = {};
    bool m_stopping = false;
    base::UniqueFd m_wake;             // readable when the thread is to look around
    std::vector<pollfd> m_descriptors; // what the thread waits for; the kernel's while it does
    std::vector<pollfd> m_room;        // takes their place once they are too many for it
};

} // namespace network

#endif
