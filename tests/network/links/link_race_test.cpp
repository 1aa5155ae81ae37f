// What happens at the same time: opening, closing, answering.
#include "network/links/link_world.h"

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <set>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace linktest;

namespace {

class LinkRace : public LinkTest
{};

// VORN_TEST_ROUNDS asks for more.
const int rounds = [] {
    const char* given = std::getenv("VORN_TEST_ROUNDS");
    return given ? std::atoi(given) : 3000;
}();

// Each opening of a thread has another device than the one before, so that a message which comes
// too late is known by its device.
void hammer(const std::string& who, int seed, std::atomic<int>* upBeforeClose)
{
    Receiver receiver;
    for (int round = 0; round < rounds; ++round) {
        std::string own = who + (round % 2 ? "odd" : "even");
        int link = NAPI_OpenLink(own.c_str());
        ASSERT_GE(link, 0);
        for (int pause = (round * seed) % 40; pause > 0; --pause)
            std::this_thread::yield();
        ASSERT_EQ(NAPI_CloseLink(link), 0) << "a link that connects is there until it is closed";
        int messages = 0;
        while (auto message = receiver.ready()) {
            if (message->device.compare(0, who.size(), who) != 0)
                continue;
            ASSERT_EQ(*message, connected(link, own)) << "after its close";
            ++messages;
        }
        ASSERT_LE(messages, 1);
        *upBeforeClose += messages;
    }
}

TEST_F(LinkRace, NothingIsToldOfALinkAfterItsClose)
{
    configure(R"({"bearer": "scenario", "scenario": {"profiles": {
        "Aodd": {"device": "Aodd"}, "Aeven": {"device": "Aeven"},
        "Bodd": {"device": "Bodd"}, "Beven": {"device": "Beven"}}}})");
    for (const char* name : {"Aodd", "Aeven", "Bodd", "Beven"})
        store(name);
    Receiver keepsTheEngine;
    std::atomic<int> upBeforeClose{0};
    std::thread other(hammer, "B", 7, &upBeforeClose);
    hammer("A", 11, &upBeforeClose);
    other.join();
    EXPECT_GT(upBeforeClose, 0) << "the race was never lost";
    EXPECT_LT(upBeforeClose, 2 * rounds) << "the race was never won";
}

TEST_F(LinkRace, AnOpeningEndsInAFailureOrAClose)
{
    configure(R"({"bearer": "scenario", "scenario": {"default": {"outcome": "fail"}}})");
    store("Home");
    Receiver receiver;
    int closed = 0, failures = 0;
    for (int round = 0; round < 2 * rounds; ++round) {
        int link = NAPI_OpenLink("Home");
        ASSERT_EQ(link, 0);
        for (int pause = round % 40; pause > 0; --pause)
            std::this_thread::yield();
        int result = NAPI_CloseLink(link);
        if (result == 0) {
            ++closed;
            ASSERT_FALSE(receiver.ready());
        } else {
            ++failures;
            ASSERT_EQ(result, -210);
            ASSERT_EQ(receiver.next(), failed(0, 2, 0));
        }
    }
    EXPECT_GT(closed, 0);
    EXPECT_GT(failures, 0);
    EXPECT_FALSE(receiver.ready());
}

// Two threads open at once and leave every opening alone: each gets exactly one answer.
TEST_F(LinkRace, EveryOpeningIsAnsweredOnce)
{
    useScenarios();
    Receiver receiver;
    std::atomic<int> opened{0};
    const int openings = rounds;
    auto open = [&opened, openings] {
        for (int count = 0; count < openings;) {
            int link = NAPI_OpenLink("Fail");
            ASSERT_TRUE(link >= 0 || link == -212) << link;
            count += link >= 0;
            opened += link >= 0;
        }
    };
    std::thread first(open), second(open);
    for (int count = 0; count < 2 * openings; ++count) {
        Message message = receiver.next();
        ASSERT_EQ(message, failed(message.link, 5, 691));
    }
    first.join();
    second.join();
    EXPECT_EQ(opened, 2 * openings);
    EXPECT_EQ(NAPI_OpenLink("Home"), 0) << "all ids are free again";
    EXPECT_EQ(receiver.next(), connected(0)) << "and nothing else was told";
}

TEST_F(LinkRace, UsersMayComeAndGoAtAnyTime)
{
    useScenarios();
    auto comeAndGo = [] {
        for (int round = 0; round < rounds / 10; ++round) {
            Receiver receiver;
            int link = NAPI_OpenLink(round % 3 ? "Home" : "Never");
            ASSERT_GE(link, 0);
            NAPI_CloseLink(link);
        }
    };
    std::thread first(comeAndGo), second(comeAndGo);
    comeAndGo();
    first.join();
    second.join();
    EXPECT_EQ(NAPI_Fini(), -201);
}

// The allocator of AddressSanitizer leaves its own locks locked in a child, which then waits for
// ever.
#ifndef __SANITIZE_ADDRESS__
// What a forked child can do: it has no network API, and may start its own.
bool childGoesOn()
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);
        const bool isWithout = NAPI_OpenLink("Home") == -201;
        const bool isStarted = NAPI_Init(0) >= 0 && NAPI_OpenLink("Home") == 0;
        _exit(isWithout && isStarted && NAPI_Fini() == 0 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A child has none of the threads, whatever they hold at the fork.
TEST_F(LinkRace, ChildrenMayBeForkedAtAnyTime)
{
    useScenarios();
    Receiver keepsTheEngine;
    std::atomic<bool> isOver{false};
    auto openAndClose = [&isOver] {
        while (!isOver)
            NAPI_CloseLink(NAPI_OpenLink("Home"));
    };
    std::thread first(openAndClose), second(openAndClose);
    const int wanted = rounds / 30;
    int children = 0;
    while (children < wanted && childGoesOn()) {
        ++children;
        while (keepsTheEngine.ready()) {
        }
    }
    isOver = true;
    first.join();
    second.join();
    EXPECT_EQ(children, wanted);
    std::cout << children << " children\n";
}
#endif

} // namespace
