// NAPI_BindSocket2Link: the application's sockets on the link's device.
#include "network/links/link_world.h"

#include <thread>

#include <arpa/inet.h>
#include <fcntl.h>
#include <grp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace linktest;

namespace {

class LinkBinding : public LinkTest
{
protected:
    void SetUp() override
    {
        LinkTest::SetUp();
        useScenarios();
    }
};

std::string boundDevice(int socket)
{
    char name[16] = "";
    socklen_t size = sizeof name;
    EXPECT_EQ(getsockopt(socket, SOL_SOCKET, SO_BINDTODEVICE, name, &size), 0);
    return std::string(name, size).c_str();
}

// Serves one client on the loopback: says "bytes over the link" and hangs up.
class Server
{
public:
    Server() : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof m_address;
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&m_address), size), 0);
        EXPECT_EQ(listen(m_socket, 1), 0);
        getsockname(m_socket, reinterpret_cast<sockaddr*>(&m_address), &size);
        m_thread = std::thread([this] {
            int client = accept(m_socket, nullptr, nullptr);
            EXPECT_EQ(write(client, "bytes over the link", 19), 19);
            close(client);
        });
    }
    ~Server()
    {
        m_thread.join();
        close(m_socket);
    }
    const sockaddr* address() const { return reinterpret_cast<const sockaddr*>(&m_address); }

private:
    int m_socket;
    sockaddr_in m_address = {};
    std::thread m_thread;
};

TEST_F(LinkBinding, FetchesBytesThroughTheLinksDevice)
{
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    Server server;
    int client = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(boundDevice(client), "");
    EXPECT_EQ(NAPI_BindSocket2Link(link, client), 0);
    EXPECT_EQ(boundDevice(client), "lo");
    ASSERT_EQ(connect(client, server.address(), sizeof(sockaddr_in)), 0);
    char bytes[32];
    EXPECT_EQ(recv(client, bytes, sizeof bytes, MSG_WAITALL), 19);
    EXPECT_EQ(memcmp(bytes, "bytes over the link", 19), 0);
    close(client);
}

TEST_F(LinkBinding, BindsSocketsOfEachKind)
{
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    for (int family : {AF_INET, AF_INET6}) {
        for (int type : {SOCK_STREAM, SOCK_DGRAM}) {
            int socket = ::socket(family, type, 0);
            if (socket < 0 && errno == EAFNOSUPPORT)
                continue; // a machine without IPv6 has no such sockets to bind
            EXPECT_EQ(NAPI_BindSocket2Link(link, socket), 0);
            EXPECT_EQ(boundDevice(socket), "lo");
            close(socket);
        }
    }
}

TEST_F(LinkBinding, RefusesWhatIsNoNetworkSocket)
{
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    int pipeEnds[2], local[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, local), 0);
    int file = open("/dev/null", O_RDONLY);
    int closed = dup(file);
    close(closed);
    for (int descriptor : {-1, closed, 1 << 30, pipeEnds[0], local[0], file})
        EXPECT_EQ(NAPI_BindSocket2Link(link, descriptor), -213) << descriptor;
    for (int descriptor : {pipeEnds[0], pipeEnds[1], local[0], local[1], file})
        close(descriptor);
}

TEST_F(LinkBinding, RefusesALinkThatHasBroken)
{
    configure(R"({"bearer": "scenario", "scenario": {"default": {"breakAfterMs": 1}}})");
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_EQ(receiver.next(), broken(0));
    int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    EXPECT_EQ(NAPI_BindSocket2Link(link, socket), -211);
    EXPECT_EQ(boundDevice(socket), "");
    close(socket);
}

TEST_F(LinkBinding, RefusesADeviceThatIsNotThere)
{
    configure(R"({"bearer": "scenario", "scenario": {"default": {"device": "absent0"}}})");
    Receiver receiver;
    int link = NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0, "absent0"));
    int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    EXPECT_EQ(NAPI_BindSocket2Link(link, socket), -211);
    close(socket);
}

// The kernel lets an unprivileged process bind a socket that is not bound yet, and no other.
TEST_F(LinkBinding, IsPermittedOnceToAnUnprivilegedProcess)
{
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    expectInChild([] {
        // It opens its link before it gives up its rights.
        Receiver childs;
        int link = NAPI_OpenLink("Home");
        EXPECT_EQ(childs.next(), connected(0));
        if (geteuid() == 0) {
            EXPECT_EQ(setgroups(0, nullptr), 0);
            EXPECT_EQ(setgid(65534), 0);
            EXPECT_EQ(setuid(65534), 0);
        }
        int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
        EXPECT_EQ(NAPI_BindSocket2Link(link, socket), 0);
        EXPECT_EQ(NAPI_BindSocket2Link(link, socket), -214);
        EXPECT_EQ(boundDevice(socket), "lo");
    });
}

} // namespace
