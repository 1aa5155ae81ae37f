// Answers in the place of polkit: yes to everything, or what stands in a file.
//
// Usage: lab_polkit FILE
//
// FILE says "yes", or names the actions that are refused, one on each line.
#include <fstream>
#include <string>

#include <systemd/sd-bus.h>

namespace {

bool refused(const std::string& file, const std::string& action)
{
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line == action)
            return true;
    }
    return false;
}

int checkAuthorization(sd_bus_message* call, void* file, sd_bus_error*)
{
    const char* action = nullptr;
    int result = sd_bus_message_skip(call, "(sa{sv})");
    if (result >= 0)
        result = sd_bus_message_read(call, "s", &action);
    if (result < 0)
        return result;
    int allowed = refused(static_cast<const char*>(file), action) ? 0 : 1;
    return sd_bus_reply_method_return(call, "(bba{ss})", allowed, 0, 0);
}

const sd_bus_vtable authority[] = {SD_BUS_VTABLE_START(0),
                                   SD_BUS_METHOD("CheckAuthorization", "(sa{sv})sa{ss}us",
                                                 "(bba{ss})", checkAuthorization,
                                                 SD_BUS_VTABLE_UNPRIVILEGED),
                                   SD_BUS_VTABLE_END};

} // namespace

int main(int count, char** words)
{
    sd_bus* bus = nullptr;
    if (count != 2 || sd_bus_open_system(&bus) < 0)
        return 1;
    int result =
        sd_bus_add_object_vtable(bus, nullptr, "/org/freedesktop/PolicyKit1/Authority",
                                 "org.freedesktop.PolicyKit1.Authority", authority, words[1]);
    if (result >= 0)
        result = sd_bus_request_name(bus, "org.freedesktop.PolicyKit1", 0);
    while (result >= 0) {
        result = sd_bus_process(bus, nullptr);
        if (result == 0)
            result = sd_bus_wait(bus, UINT64_MAX);
    }
    return 1;
}
