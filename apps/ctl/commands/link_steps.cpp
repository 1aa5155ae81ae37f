#include "commands/link_steps.h"

#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

#include "network/napi_host.h"
#include "profile/store.h"

namespace ctl {

LinkSteps::~LinkSteps()
{
    if (m_wake.isOpen())
        napihost::watchLinkSteps({});
}

void LinkSteps::watch()
{
    m_wake.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK | EFD_SEMAPHORE));
    if (!m_wake.isOpen())
        failNapi(NAPI_ERR_RESOURCES, "watch the steps of the link", nullptr);
    napihost::watchLinkSteps([this](int, const std::string& step) { add(step); });
}

bool LinkSteps::take(std::string* step)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (m_steps.empty())
        return false;
    uint64_t count = 0;
    [[maybe_unused]] const ssize_t ignored = ::read(m_wake.get(), &count, sizeof count);
    *step = std::move(m_steps.front());
    m_steps.pop_front();
    return true;
}

// The network API waits meanwhile, so nothing is printed here.
void LinkSteps::add(const std::string& step)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_steps.push_back(step);
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t ignored = ::write(m_wake.get(), &one, sizeof one);
}

} // namespace ctl
