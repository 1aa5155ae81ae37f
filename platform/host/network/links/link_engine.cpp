#include "network/links/link_engine.h"

#include <algorithm>

#include <sys/eventfd.h>
#include <sys/socket.h>

#include "base/thread.h"

namespace network {

using Guard = std::lock_guard<std::mutex>;

LinkEngine& LinkEngine::instance()
{
    static LinkEngine* engine = [] {
        auto created = new LinkEngine;
        ::pthread_atfork(beforeFork, afterForkInParent, afterForkInChild);
        return created;
    }();
    return *engine;
}

int LinkEngine::start()
{
    Guard alone(m_lifecycle);
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return NAPI_ERR_RESOURCES;
    base::UniqueFd engineEnd(ends[0]);
    base::UniqueFd receiverEnd(ends[1]);
    {
        Guard guard(m_mutex);
        reserveDescriptors();
        m_channels.emplace_back(std::move(engineEnd));
        wake();
    }
    if (m_users == 0 && begin() != NAPI_OK) {
        end();
        return NAPI_ERR_RESOURCES;
    }
    Guard guard(m_mutex);
    ++m_users;
    return receiverEnd.release();
}

// The thread can refuse nobody, so the memory for one more receiver is asked for here.
void LinkEngine::reserveDescriptors()
{
    size_t needed = 1 + m_bearers.size() + m_channels.size() + 1;
    if (std::max(m_descriptors.capacity(), m_room.capacity()) < needed)
        m_room.reserve(2 * needed);
}

int LinkEngine::startBearers()
{
    for (Bearer* bearer : m_bearers) {
        if (bearer->start() != 0)
            return NAPI_ERR_RESOURCES;
    }
    return NAPI_OK;
}

int LinkEngine::begin()
{
    m_stopping = false;
    m_wake.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!m_wake.isOpen() || startBearers() != NAPI_OK)
        return NAPI_ERR_RESOURCES;
    if (base::createThread(&m_thread, threadMain, this) != 0)
        return NAPI_ERR_RESOURCES;
    ::pthread_setname_np(m_thread, "napi-links");
    return NAPI_OK;
}

void LinkEngine::end()
{
    for (Bearer* bearer : m_bearers)
        bearer->stop();
    m_channels.clear();
    m_wake.reset();
}

int LinkEngine::stop()
{
    Guard alone(m_lifecycle);
    {
        Guard guard(m_mutex);
        if (m_users == 0)
            return NAPI_ERR_NOT_INITIALISED;
        if (--m_users > 0)
            return NAPI_OK;
        giveUpOpenings();
        m_stopping = true;
        wake();
    }
    ::pthread_join(m_thread, nullptr);
    end();
    return NAPI_OK;
}

void LinkEngine::giveUpOpenings()
{
    m_requests.clear();
    for (int id = 0; id < NAPI_MAX_LINKS; ++id) {
        Link* link = find(id);
        if (!link || link->state == State::Up || link->state == State::Broken)
            continue;
        if (link->state == State::Opening)
            link->bearer->close(id);
        m_links[static_cast<size_t>(id)].reset();
    }
}

void LinkEngine::wake()
{
    if (m_wake.isOpen())
        ::eventfd_write(m_wake.get(), 1);
}

bool LinkEngine::running()
{
    Guard guard(m_mutex);
    return m_users > 0;
}

LinkEngine::Link* LinkEngine::find(int link)
{
    bool known = link >= 0 && link < NAPI_MAX_LINKS;
    return known ? m_links[static_cast<size_t>(link)].get() : nullptr;
}

int LinkEngine::freeId() const
{
    for (size_t id = 0; id < m_links.size(); ++id) {
        if (!m_links[id])
            return static_cast<int>(id);
    }
    return NAPI_ERR_TOO_MANY_LINKS;
}

int LinkEngine::open(const std::string& profile, const NetworkProfile& record,
                     std::shared_ptr<const NetworkConfig> config)
{
    auto link = std::make_unique<Link>();
    link->messages.reserve(2); // one when it is up, one when it breaks
    link->opening = {-1, profile, record, std::move(config)};
    bool scenario = link->opening.config->bearer == BearerChoice::Scenario;
    Guard guard(m_mutex);
    if (m_users == 0)
        return NAPI_ERR_NOT_INITIALISED;
    int id = freeId();
    if (id < 0)
        return id;
    link->opening.link = id;
    link->bearer = scenario ? static_cast<Bearer*>(&m_scenario) : &m_machine;
    m_requests.push_back(id);
    m_links[static_cast<size_t>(id)] = std::move(link);
    wake();
    return id;
}

int LinkEngine::close(int id)
{
    Guard guard(m_mutex);
    if (m_users == 0)
        return NAPI_ERR_NOT_INITIALISED;
    Link* link = find(id);
    if (!link)
        return NAPI_ERR_NO_LINK;
    if (link->state == State::Opening || link->state == State::Up)
        link->bearer->close(id);
    for (IndicationChannel& channel : m_channels) {
        for (uint64_t message : link->messages)
            channel.withdraw(message);
    }
    m_links[static_cast<size_t>(id)].reset();
    return NAPI_OK;
}

int LinkEngine::facts(int id, LinkFacts* facts)
{
    Guard guard(m_mutex);
    if (m_users == 0)
        return NAPI_ERR_NOT_INITIALISED;
    Link* link = find(id);
    if (!link)
        return NAPI_ERR_NO_LINK;
    if (link->state != State::Up)
        return NAPI_ERR_LINK_NOT_UP;
    *facts = {link->device, link->opening.profile, link->opening.record};
    return NAPI_OK;
}

// A forked child has none of the threads. Both mutexes are held over the fork, so that the child
// finds whole state, which it then lets go: it begins without the network API and may start its
// own.
void LinkEngine::beforeFork()
{
    instance().m_lifecycle.lock();
    instance().m_mutex.lock();
}

void LinkEngine::afterForkInParent()
{
    instance().m_mutex.unlock();
    instance().m_lifecycle.unlock();
}

void LinkEngine::afterForkInChild()
{
    instance().abandon();
    afterForkInParent();
}

void LinkEngine::abandon()
{
    m_users = 0;
    m_requests.clear();
    for (int id = 0; id < NAPI_MAX_LINKS; ++id) {
        if (Link* link = find(id))
            link->bearer->close(id);
        m_links[static_cast<size_t>(id)].reset();
    }
    end();
}

} // namespace network
