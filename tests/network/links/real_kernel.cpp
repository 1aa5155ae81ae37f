#include <cstdlib>
#include <fstream>

#include <sched.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "network/links/fake_kernel.h"

namespace linktest {

namespace {

void ip(const std::string& command)
{
    EXPECT_EQ(std::system(("ip " + command).c_str()), 0) << command;
}

} // namespace

void RealKernel::add(const std::string& device, const std::string& address)
{
    ip("link add " + device + " type veth peer name peer-" + device);
    ip("link set peer-" + device + " up");
    ip("link set " + device + " up");
    if (!address.empty())
        ip("address add " + address + "/24 dev " + device);
}

void RealKernel::setDown(const std::string& device)
{
    ip("link set " + device + " down");
}

void RealKernel::removeAddress(const std::string& device, const std::string& address)
{
    ip("address del " + address + "/24 dev " + device);
}

void RealKernel::remove(const std::string& device)
{
    ip("link del " + device);
}

void RealKernel::addDefaultRoute(const std::string& device, int metric)
{
    ip("route add default dev " + device + " metric " + std::to_string(metric));
}

namespace {

// In a user namespace of its own a process is root, and may make network namespaces.
bool becomeRootOfNamespace()
{
    std::string uid = std::to_string(geteuid()), gid = std::to_string(getegid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " + uid + " 1";
    std::ofstream("/proc/self/gid_map") << "0 " + gid + " 1";
    return geteuid() == 0;
}

} // namespace

bool enterNetworkNamespace()
{
    if (unshare(CLONE_NEWNET) != 0 && !becomeRootOfNamespace())
        return false;
    // Some kernels grant the namespace and yet no right to change anything in it.
    return std::system("ip link set lo up && ip link add probe type veth && ip link del probe") ==
           0;
}

} // namespace linktest
