#include "network/links/link_engine.h"

#include <utility>

#include <pthread.h>
#include <sys/socket.h>

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
    addReceiver(std::move(engineEnd));
    if (m_users == 0 && begin() != NAPI_OK) {
        end();
        return NAPI_ERR_RESOURCES;
    }
    Guard guard(m_mutex);
    ++m_users;
    return receiverEnd.release();
}

void LinkEngine::addReceiver(base::UniqueFd descriptor)
{
    Guard guard(m_mutex);
    m_thread.reserve(LinkTable::descriptors + m_receivers.count() + 1);
    m_receivers.add(std::move(descriptor));
    m_thread.wake();
}

int LinkEngine::begin()
{
    if (int error = m_links.startBearers())
        return error;
    return m_thread.start("napi-links") == 0 ? NAPI_OK : NAPI_ERR_RESOURCES;
}

void LinkEngine::end()
{
    m_links.stopBearers();
    m_receivers.clear();
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
        m_links.giveUpOpenings();
        m_thread.requestStop();
    }
    m_thread.join();
    end();
    return NAPI_OK;
}

bool LinkEngine::running()
{
    Guard guard(m_mutex);
    return m_users > 0;
}

int LinkEngine::open(const std::string& profile, const NetworkProfile& record,
                     std::shared_ptr<const NetworkConfig> config)
{
    if (config->bearer == BearerChoice::NetworkManager)
        NetworkManagerBearer::prepare();
    Opening opening{-1, profile, record, std::move(config)};
    Guard guard(m_mutex);
    if (m_users == 0)
        return NAPI_ERR_NOT_INITIALISED;
    int link = m_links.open(std::move(opening));
    m_thread.wake();
    return link;
}

int LinkEngine::close(int link)
{
    Guard guard(m_mutex);
    if (m_users == 0)
        return NAPI_ERR_NOT_INITIALISED;
    int result = m_links.close(link);
    m_thread.wake(); // what it waits for may have changed
    return result;
}

int LinkEngine::facts(int link, LinkFacts* facts)
{
    Guard guard(m_mutex);
    return m_users == 0 ? int(NAPI_ERR_NOT_INITIALISED) : m_links.facts(link, facts);
}

int LinkEngine::preferNameServers(int link)
{
    Guard guard(m_mutex);
    int result = m_users == 0 ? int(NAPI_ERR_NOT_INITIALISED) : m_links.preferNameServers(link);
    m_thread.wake();
    return result;
}

int LinkEngine::playBreak(int link)
{
    Guard guard(m_mutex);
    int result = m_users == 0 ? int(NAPI_ERR_NOT_INITIALISED) : m_links.playBreak(link);
    m_thread.wake();
    return result;
}

int LinkEngine::playFailure(NapiCause cause, int detail)
{
    Guard guard(m_mutex);
    m_links.playFailure(cause, detail);
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
    m_links.abandon();
    m_thread.forget();
    end();
}

void LinkEngine::work()
{
    m_links.work();
    m_receivers.flush();
}

void LinkEngine::addDescriptors(std::vector<pollfd>* all) const
{
    m_links.addDescriptors(all);
    m_receivers.addDescriptors(all);
}

// The receivers come first: news of a bearer may let one go when memory is short, and those that
// were polled are to be there still.
void LinkEngine::react(const pollfd* begin, const pollfd* end)
{
    m_receivers.removeGone(begin + LinkTable::descriptors, end);
    m_links.react(begin);
}

} // namespace network
