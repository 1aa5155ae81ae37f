#include "network/links/networkmanager/bus/bus_connection.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <new>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace network {

constexpr uint64_t noTimeout = UINT64_MAX;

// A bus refuses what a program asks with 128 answers outstanding, and those to calls that nobody
// waits for any more count as well.
constexpr int mostPending = 64;

// What a connection shares with its subscriptions.
struct BusConnection::State
{
    int failure = 0;                            // an errno of a handler
    bool foreign = false;                       // it belongs to the process that has forked us
    int pending = 0;                            // calls that were sent and not answered
    std::deque<BusSlot::Subscription*> waiting; // for their turn to be sent
};

struct BusSlot::Subscription
{
    using State = BusConnection::State;

    const SdBus& lib;
    std::shared_ptr<const BusHandler> handler;
    std::shared_ptr<State> state;
    sd_bus_slot* slot = nullptr;
    sd_bus_message* call = nullptr; // that waits for its turn
    bool pending = false;
    bool patient = false;

    ~Subscription()
    {
        answered();
        auto& waiting = state->waiting;
        waiting.erase(std::remove(waiting.begin(), waiting.end(), this), waiting.end());
        if (state->foreign)
            return;
        lib.sd_bus_slot_unref(slot);
        lib.sd_bus_message_unref(call);
    }

    void answered() { state->pending -= std::exchange(pending, false); }

    int send(sd_bus* bus, sd_bus_message* message)
    {
        int result =
            lib.sd_bus_call_async(bus, &slot, message, Subscription::arrived, this, noTimeout);
        pending = result >= 0;
        state->pending += pending;
        return result;
    }

    // Nothing may be thrown through the library, which is C. A handler may end its own slot.
    static int arrived(sd_bus_message* message, void* subscription, sd_bus_error*) noexcept
    {
        auto self = static_cast<Subscription*>(subscription);
        self->answered();
        std::shared_ptr<const BusHandler> running = self->handler;
        std::shared_ptr<State> shared = self->state;
        try {
            BusMessage received(self->lib, message);
            (*running)(received);
        } catch (const std::bad_alloc&) {
            shared->failure = ENOMEM;
        }
        return 0;
    }

    // A rule that the bus refuses would otherwise end the connection.
    static int installed(sd_bus_message*, void*, sd_bus_error*) noexcept { return 0; }
};

BusSlot::BusSlot() = default;
BusSlot::BusSlot(BusSlot&&) noexcept = default;
BusSlot& BusSlot::operator=(BusSlot&&) noexcept = default;
BusSlot::~BusSlot() = default;

using Subscription = BusSlot::Subscription;

std::unique_ptr<Subscription> BusConnection::subscription(BusHandler handler) const
{
    auto shared = std::make_shared<const BusHandler>(std::move(handler));
    return std::unique_ptr<Subscription>(new Subscription{*m_lib, std::move(shared), m_state});
}

int BusConnection::open()
{
    m_lib = sdBus();
    if (!m_lib)
        return ELIBACC;
    m_state = std::make_shared<State>();
    int result = m_lib->sd_bus_open_system(&m_bus);
    m_descriptor = result < 0 ? -1 : m_lib->sd_bus_get_fd(m_bus);
    return result < 0 ? -result : 0;
}

void BusConnection::close()
{
    if (!m_bus)
        return;
    m_lib->sd_bus_close(m_bus);
    m_lib->sd_bus_unref(m_bus);
    m_bus = nullptr;
}

// The library refuses to work in another process than the one that has connected, and leaves the
// socket open, which would keep the parent on the bus beyond its death.
void BusConnection::forget()
{
    if (!m_bus)
        return;
    ::close(m_descriptor);
    m_state->foreign = true;
    m_bus = nullptr;
}

int BusConnection::descriptor() const
{
    return m_bus ? m_descriptor : -1;
}

short BusConnection::events() const
{
    int events = m_bus ? m_lib->sd_bus_get_events(m_bus) : 0;
    return static_cast<short>(events < 0 ? POLLIN : events);
}

Clock::time_point BusConnection::nextDeadline() const
{
    uint64_t microseconds = noTimeout;
    if (m_bus && !m_state->waiting.empty() && m_state->pending < mostPending)
        return Clock::now();
    if (!m_bus || m_lib->sd_bus_get_timeout(m_bus, &microseconds) < 0 || microseconds == noTimeout)
        return never;
    return Clock::time_point(std::chrono::microseconds(microseconds));
}

int BusConnection::process()
{
    int result = 1;
    while (m_bus && result > 0 && m_state->failure == 0)
        result = m_lib->sd_bus_process(m_bus, nullptr);
    if (result >= 0)
        sendWaiting();
    if (m_bus && m_state->failure != 0)
        return std::exchange(m_state->failure, 0);
    return result < 0 ? -result : 0;
}

void BusConnection::sendWaiting()
{
    auto& waiting = m_state->waiting;
    while (m_bus && !waiting.empty() && m_state->pending < mostPending) {
        BusSlot::Subscription* next = waiting.front();
        waiting.pop_front();
        next->send(m_bus, next->call);
    }
}

BusCall BusConnection::call(const BusTarget& target) const
{
    return BusCall(*m_lib, m_bus, target);
}

int BusConnection::send(const BusCall& call, BusHandler handler, BusSlot* slot, Turn turn)
{
    if (int error = call.error())
        return error;
    std::unique_ptr<Subscription> made = subscription(std::move(handler));
    if (m_state->pending < mostPending) {
        if (int result = made->send(m_bus, call.raw()); result < 0)
            return -result;
    } else {
        made->call = m_lib->sd_bus_message_ref(call.raw());
        made->patient = turn == Turn::Patient;
        auto& waiting = m_state->waiting;
        auto place = made->patient
                         ? waiting.end()
                         : std::find_if(waiting.begin(), waiting.end(),
                                        [](const Subscription* one) { return one->patient; });
        waiting.insert(place, made.get());
    }
    slot->m_subscription = std::move(made);
    return 0;
}

void BusConnection::send(const BusCall& call)
{
    if (call.error() == 0)
        m_lib->sd_bus_call_async(m_bus, nullptr, call.raw(), Subscription::installed, nullptr,
                                 noTimeout);
}

int BusConnection::listen(const std::string& rule, BusHandler handler, BusSlot* slot)
{
    std::unique_ptr<Subscription> made = subscription(std::move(handler));
    int result =
        m_lib->sd_bus_add_match_async(m_bus, &made->slot, rule.c_str(), Subscription::arrived,
                                      Subscription::installed, made.get());
    if (result < 0)
        return -result;
    slot->m_subscription = std::move(made);
    return 0;
}

} // namespace network
