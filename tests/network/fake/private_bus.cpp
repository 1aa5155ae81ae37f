#include "network/fake/private_bus.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fakebus {

// In the child: becomes the daemon, which says on the descriptor where it listens once it does.
[[noreturn]] static void becomeDaemon(const std::string& address, int says)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // It complains where it may not raise its own limits.
    ::freopen("/dev/null", "w", stderr);
    std::string where = "--address=" + address;
    std::string tell = "--print-address=" + std::to_string(says);
    ::execlp("dbus-daemon", "dbus-daemon", "--nofork", "--config-file=" LAB_FOLDER "/bus.conf",
             where.c_str(), tell.c_str(), nullptr);
    ::_exit(127);
}

PrivateBus::PrivateBus(const std::string& folder) : m_address("unix:path=" + folder + "/bus")
{
    int ends[2];
    if (::pipe(ends) != 0) {
        ADD_FAILURE() << "no pipe";
        return;
    }
    m_process = ::fork();
    if (m_process == 0)
        becomeDaemon(m_address, ends[1]);
    ::close(ends[1]);
    char byte;
    EXPECT_EQ(::read(ends[0], &byte, 1), 1) << "dbus-daemon does not start";
    ::close(ends[0]);
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", m_address.c_str(), 1);
}

void PrivateBus::kill()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    m_process = -1;
}

void PrivateBus::freeze()
{
    ::kill(m_process, SIGSTOP);
}

void PrivateBus::thaw()
{
    ::kill(m_process, SIGCONT);
}

} // namespace fakebus
