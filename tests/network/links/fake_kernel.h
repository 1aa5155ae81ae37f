// Network interfaces in which a test may do as it likes.
#ifndef TESTS_FAKE_KERNEL_H
#define TESTS_FAKE_KERNEL_H

#include <string>

namespace linktest {

// A machine with a loopback, 127.0.0.1, and no default route.
class Machine
{
public:
    virtual ~Machine() = default;
    virtual void add(const std::string& device, const std::string& address) = 0; // "" for none
    virtual void setDown(const std::string& device) = 0;
    virtual void removeAddress(const std::string& device, const std::string& address) = 0;
    virtual void remove(const std::string& device) = 0;
};

// Answers for the kernel what libnapi asks of it, as long as it lives. One at a time.
class FakeKernel : public Machine
{
public:
    FakeKernel();
    ~FakeKernel() override;
    void add(const std::string& device, const std::string& address) override;
    void setDown(const std::string& device) override;
    void removeAddress(const std::string& device, const std::string& address) override;
    void remove(const std::string& device) override;

    // Removes a device, and says only that the netlink socket has run over.
    void loseNews(const std::string& device);

    // Removes a device of which not the kernel but some process tells; and tells as the kernel.
    void pretendNews(const std::string& device);
    void tellNews();

    // From here on getifaddrs fails with this error; 0 ends it.
    void refuse(int error);
};

// The real kernel, in a network namespace that the calling process has made for itself.
class RealKernel : public Machine
{
public:
    void add(const std::string& device, const std::string& address) override;
    void setDown(const std::string& device) override;
    void removeAddress(const std::string& device, const std::string& address) override;
    void remove(const std::string& device) override;
    void addDefaultRoute(const std::string& device, int metric);
};

// Moves the calling process, which has one thread, into a network namespace of its own. False where
// the machine allows none.
bool enterNetworkNamespace();

} // namespace linktest

#endif
