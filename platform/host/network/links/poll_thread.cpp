#include "network/links/poll_thread.h"

#include <algorithm>
#include <cerrno>

#include <sys/eventfd.h>

#include "base/thread.h"

namespace network {

int PollThread::start(const char* name)
{
    m_stopping = false;
    m_wake.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!m_wake.isOpen())
        return errno;
    if (int error = base::createThread(&m_thread, main, this)) {
        m_wake.reset();
        return error;
    }
    ::pthread_setname_np(m_thread, name);
    return 0;
}

void PollThread::requestStop()
{
    m_stopping = true;
    wake();
}

void PollThread::join()
{
    ::pthread_join(m_thread, nullptr);
    m_wake.reset();
}

void PollThread::wake()
{
    if (m_wake.isOpen())
        ::eventfd_write(m_wake.get(), 1);
}

// The thread reads what it waits for while calls are made, so the room grows beside it.
void PollThread::reserve(std::size_t descriptors)
{
    std::size_t needed = 1 + descriptors;
    if (std::max(m_descriptors.capacity(), m_room.capacity()) < needed)
        m_room.reserve(2 * needed);
}

void* PollThread::main(void* thread)
{
    static_cast<PollThread*>(thread)->run();
    return nullptr;
}

void PollThread::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stopping) {
        m_client.work();
        collect();
        Clock::time_point deadline = m_client.nextDeadline();
        lock.unlock();
        int ready = sleepUntil(deadline);
        lock.lock();
        if (ready > 0)
            react();
    }
}

void PollThread::collect()
{
    if (m_room.capacity() > m_descriptors.capacity())
        m_descriptors.swap(m_room);
    m_descriptors.clear();
    m_descriptors.push_back({m_wake.get(), POLLIN, 0});
    m_client.addDescriptors(&m_descriptors);
}

namespace {

timespec timeLeft(Clock::time_point deadline)
{
    auto left = std::max(deadline - Clock::now(), Clock::duration::zero());
    auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    return {seconds.count(), std::chrono::nanoseconds(left - seconds).count()};
}

} // namespace

// Without a deadline an idle process stays asleep.
int PollThread::sleepUntil(Clock::time_point deadline)
{
    timespec timeout = deadline == never ? timespec{} : timeLeft(deadline);
    return ::ppoll(m_descriptors.data(), m_descriptors.size(),
                   deadline == never ? nullptr : &timeout, nullptr);
}

void PollThread::react()
{
    eventfd_t count;
    if (m_descriptors.front().revents != 0)
        ::eventfd_read(m_wake.get(), &count);
    m_client.react(m_descriptors.data() + 1, m_descriptors.data() + m_descriptors.size());
}

} // namespace network
