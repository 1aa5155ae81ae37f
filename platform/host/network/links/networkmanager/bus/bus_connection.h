// Our connection to the machine's bus, for a poll loop that is not sd-bus's own.
#ifndef NETWORK_NETWORKMANAGER_BUS_CONNECTION_H
#define NETWORK_NETWORKMANAGER_BUS_CONNECTION_H

#include <functional>
#include <memory>

#include "network/links/bearer.h"
#include "network/links/networkmanager/bus/bus_message.h"

namespace network {

using BusHandler = std::function<void(BusMessage&)>;

// An answer that is waited for, or a signal that is listened to; with the object it ends, and the
// handler is not called any more; a handler may end its own.
class BusSlot
{
public:
    struct Subscription;

    BusSlot();
    BusSlot(BusSlot&&) noexcept;
    BusSlot& operator=(BusSlot&&) noexcept;
    ~BusSlot();

private:
    friend class BusConnection;
    std::unique_ptr<Subscription> m_subscription;
};

// No call blocks. Handlers are called from within process() only.
class BusConnection
{
public:
    BusConnection() = default;
    ~BusConnection() { close(); }
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    // Result: 0, or an errno: ELIBACC without the library of the bus, ENOENT or ECONNREFUSED where
    // no bus runs. What is called before the bus has greeted us waits for it.
    int open();
    bool isOpen() const { return m_bus != nullptr; }

    // What was called before is sent as far as the bus takes it at once. Slots outlive it.
    void close();

    // In a forked child: lets go of a connection that belongs to the parent.
    void forget();

    int descriptor() const;
    short events() const;
    Clock::time_point nextDeadline() const;

    // Handles what has arrived. Result: 0, or an errno when the bus has gone; ENOMEM when a handler
    // had no memory.
    int process();

    BusCall call(const BusTarget& target) const;

    // Sends a call, at once or, where too many wait for their answers, when it has its turn: after
    // those that were there before, but patient ones are sent last. The answer or an error comes to
    // the handler. There is no time-out of ours.
    // Result: 0 or an errno, and the handler is not called then.
    enum class Turn { Usual, Patient };
    int send(const BusCall& call, BusHandler handler, BusSlot* slot, Turn turn = Turn::Usual);

    // Sends a call that nobody waits for.
    void send(const BusCall& call);

    // Listens to the signals that the rule names, from here on.
    int listen(const std::string& rule, BusHandler handler, BusSlot* slot);

private:
    friend class BusSlot;
    struct State;

    std::unique_ptr<BusSlot::Subscription> subscription(BusHandler handler) const;
    void sendWaiting();

    const SdBus* m_lib = nullptr;
    sd_bus* m_bus = nullptr;
    int m_descriptor = -1;
    std::shared_ptr<State> m_state;
};

} // namespace network

#endif
