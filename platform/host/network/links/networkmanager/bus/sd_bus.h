// The functions of libsystemd that are used here. The library is loaded with the first link that
// needs a bus, for a program without such a link is not to pay for it.
#ifndef NETWORK_NETWORKMANAGER_SD_BUS_H
#define NETWORK_NETWORKMANAGER_SD_BUS_H

#include <systemd/sd-bus.h>

namespace network {

#define NETWORK_SD_BUS_FUNCTIONS(F)                                                                \
    F(sd_bus_open_system)                                                                          \
    F(sd_bus_close)                                                                                \
    F(sd_bus_unref)                                                                                \
    F(sd_bus_get_fd)                                                                               \
    F(sd_bus_get_events)                                                                           \
    F(sd_bus_get_timeout)                                                                          \
    F(sd_bus_process)                                                                              \
    F(sd_bus_call_async)                                                                           \
    F(sd_bus_add_match_async)                                                                      \
    F(sd_bus_slot_unref)                                                                           \
    F(sd_bus_message_new_method_call)                                                              \
    F(sd_bus_message_set_auto_start)                                                               \
    F(sd_bus_message_sensitive)                                                                    \
    F(sd_bus_message_ref)                                                                          \
    F(sd_bus_message_unref)                                                                        \
    F(sd_bus_message_append_basic)                                                                 \
    F(sd_bus_message_append_array)                                                                 \
    F(sd_bus_message_open_container)                                                               \
    F(sd_bus_message_close_container)                                                              \
    F(sd_bus_message_copy)                                                                         \
    F(sd_bus_message_read_basic)                                                                   \
    F(sd_bus_message_read_array)                                                                   \
    F(sd_bus_message_peek_type)                                                                    \
    F(sd_bus_message_enter_container)                                                              \
    F(sd_bus_message_exit_container)                                                               \
    F(sd_bus_message_skip)                                                                         \
    F(sd_bus_message_get_error)                                                                    \
    F(sd_bus_message_get_member)                                                                   \
    F(sd_bus_message_get_path)                                                                     \
    F(sd_bus_error_free)

// One member for each function, under its own name.
struct SdBus
{
#define NETWORK_SD_BUS_MEMBER(name) decltype(&::name) name = nullptr;
    NETWORK_SD_BUS_FUNCTIONS(NETWORK_SD_BUS_MEMBER)
#undef NETWORK_SD_BUS_MEMBER
};

// Loads the library with the first call, which reads from the disk; later calls return at once.
// Null where this machine has none. Called from any thread.
const SdBus* sdBus();

} // namespace network

#endif
