// Several users of the network API in one process, and what the last of them leaves.
#include "network/links/link_world.h"

#include <csignal>
#include <filesystem>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace linktest;

namespace {

class LinkUsers : public LinkTest
{};

TEST_F(LinkUsers, AllHearOfEveryLink)
{
    useScenarios();
    Receiver first, second, third;
    NAPI_OpenLink("Home");
    NAPI_OpenLink("Fail");
    for (Receiver* receiver : {&first, &second, &third}) {
        EXPECT_EQ(receiver->next(), connected(0));
        EXPECT_EQ(receiver->next(), failed(1, 5, 691));
    }
}

TEST_F(LinkUsers, KeepTheApiUntilTheLastHasGone)
{
    useScenarios();
    Receiver first;
    {
        Receiver second;
    }
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(first.next(), connected(0));
}

TEST_F(LinkUsers, WhoHangUpCostTheOthersNothing)
{
    useScenarios();
    Receiver first, gone, third;
    gone.hangUp();
    for (int link = 0; link < 100; ++link) {
        EXPECT_EQ(NAPI_OpenLink("Home"), link);
        EXPECT_EQ(first.next(), connected(link));
        EXPECT_EQ(third.next(), connected(link));
    }
}

TEST_F(LinkUsers, SeeTheEndOfTheirStreamAfterTheLastFini)
{
    Receiver receiver;
    receiver.finish();
    char byte;
    EXPECT_EQ(read(receiver.socket(), &byte, 1), 0);
}

TEST_F(LinkUsers, LeaveLinksUpWithTheirIds)
{
    useScenarios();
    {
        Receiver before;
        for (const char* name : {"Never", "Home", "Never", "Home"})
            NAPI_OpenLink(name);
        EXPECT_EQ(before.next(), connected(1));
        EXPECT_EQ(before.next(), connected(3));
    }
    Receiver after;
    char name[16];
    EXPECT_EQ(NAPI_GetDeviceInfo(1, 0, name, 16), 0);
    EXPECT_EQ(NAPI_GetDeviceInfo(3, 0, name, 16), 0);
    EXPECT_EQ(NAPI_OpenLink("Never"), 0) << "openings are given up";
    EXPECT_EQ(NAPI_OpenLink("Never"), 2) << "and keep no ids, a link that is up does";
    EXPECT_EQ(NAPI_OpenLink("Fail"), 4);
    EXPECT_EQ(after.next(), failed(4, 5, 691)) << "no message of a given-up opening";
}

TEST_F(LinkUsers, HearOfALinkThatBrokeWhileNobodyListened)
{
    configure(R"({"bearer": "scenario", "scenario": {"default": {"breakAfterMs": 100}}})");
    store("Home");
    Receiver before;
    NAPI_OpenLink("Home");
    EXPECT_EQ(before.next(), connected(0));
    before.finish();
    // On a loaded machine the link may have broken before.
    auto early = before.ready();
    Receiver after;
    EXPECT_EQ(early ? *early : after.next(), broken(0));
}

// Some descriptors are kept back, one after the other, until a NAPI_Init has all that it needs.
TEST_F(LinkUsers, AreToldWhenDescriptorsHaveRunOut)
{
    // The sanitizers' check of a class looks at its memory through a descriptor, and remembers the
    // answer: every class of the engine is met while there are some.
    close(NAPI_Init(0));
    NAPI_Fini();
    rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    int refused = 0;
    int socket = -1;
    for (rlim_t more = 0; more < 20 && socket < 0; ++more) {
        int lowest = dup(0);
        close(lowest);
        rlimit few = {static_cast<rlim_t>(lowest) + more, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
        socket = NAPI_Init(0);
        refused += socket == -215;
        EXPECT_TRUE(socket >= 0 || socket == -215) << socket;
    }
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_GE(refused, 4) << "two ends, the thread's alarm, the kernel's news";
    EXPECT_EQ(NAPI_Fini(), 0);
    close(socket);
}

TEST_F(LinkUsers, KeepTheirSignalsToThemselves)
{
    Receiver receiver;
    std::string status = readFile("/proc/self/task/" + std::to_string(engineThread()) + "/status");
    std::size_t at = status.find("\nSigBlk:\t");
    ASSERT_NE(at, std::string::npos);
    unsigned long long blocked = std::stoull(status.substr(at + 9), nullptr, 16);
    for (int signal : {SIGINT, SIGTERM, SIGALRM, SIGCHLD, SIGUSR1, SIGPIPE})
        EXPECT_TRUE(blocked & (1ULL << (signal - 1))) << signal;
}

TEST_F(LinkUsers, BeginAnewInAForkedChild)
{
    useScenarios();
    Receiver parents;
    NAPI_OpenLink("Home");
    EXPECT_EQ(parents.next(), connected(0));
    pid_t child = fork();
    if (child == 0) {
        EXPECT_EQ(NAPI_OpenLink("Home"), -201);
        {
            Receiver childs;
            EXPECT_EQ(NAPI_OpenLink("Fail"), 0) << "the parent's links are the parent's";
            EXPECT_EQ(childs.next(), failed(0, 5, 691));
        }
        _exit(HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(NAPI_OpenLink("Home"), 1);
    EXPECT_EQ(parents.next(), connected(1)) << "and nothing of the child's";
}

} // namespace
