#include "network/links/failing_memory.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <new>

#include <semaphore.h>
#include <unistd.h>

namespace linktest {

namespace {

std::atomic<bool> isShort{false};
sem_t refusals;
thread_local int spared = 0;

void* allocate(std::size_t size) noexcept
{
    if (isShort && spared == 0 && gettid() != getpid()) {
        sem_post(&refusals);
        return nullptr;
    }
    return std::malloc(size ? size : 1);
}

} // namespace

ShortMemory::ShortMemory()
{
    sem_init(&refusals, 0, 0);
    isShort = true;
}

ShortMemory::~ShortMemory()
{
    isShort = false;
}

bool ShortMemory::refused()
{
    timespec end;
    clock_gettime(CLOCK_REALTIME, &end);
    end.tv_sec += 60;
    int result;
    do
        result = sem_timedwait(&refusals, &end);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

SparedThread::SparedThread()
{
    ++spared;
}

SparedThread::~SparedThread()
{
    --spared;
}

} // namespace linktest

void* operator new(std::size_t size)
{
    void* place = linktest::allocate(size);
    if (!place)
        throw std::bad_alloc();
    return place;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return linktest::allocate(size);
}

void operator delete(void* place) noexcept
{
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept
{
    std::free(place);
}

void operator delete(void* place, const std::nothrow_t&) noexcept
{
    std::free(place);
}
