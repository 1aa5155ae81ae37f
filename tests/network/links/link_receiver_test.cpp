// Receivers that read late or never, and a thread that sleeps.
#include "network/links/link_world.h"

#include <random>
#include <thread>

#include <sys/socket.h>

using namespace linktest;

namespace {

class LinkReceiver : public LinkTest
{};

// Openings that fail with details of their own, all at once until there are `count`; told through a
// receiver that reads them at once.
std::vector<Message> failMany(Receiver& quick, std::size_t count)
{
    std::minstd_rand random(1);
    std::vector<Message> told;
    std::size_t opened = 0;
    while (told.size() < count) {
        while (opened < count && opened < told.size() + 200) {
            std::string name = "Fail" + std::to_string(random() % 8);
            EXPECT_GE(NAPI_OpenLink(name.c_str()), 0);
            ++opened;
        }
        told.push_back(quick.next());
    }
    return told;
}

std::string eightFailures()
{
    std::string json = R"({"bearer": "scenario", "scenario": {"profiles": {)";
    for (int i = 0; i < 8; ++i)
        json += (i ? ", \"Fail" : "\"Fail") + std::to_string(i) +
                R"(": {"outcome": "fail", "cause": 7, "detail": )" + std::to_string(100 + i) + "}";
    return json + "}}}";
}

TEST_F(LinkReceiver, ThatNeverReadsLosesNothingUpToOneMebibyteAndHoldsNobodyUp)
{
    configure(eightFailures());
    for (int i = 0; i < 8; ++i)
        store("Fail" + std::to_string(i));
    Receiver quick, never;
    constexpr std::size_t room = NAPI_MAX_UNREAD / sizeof(NapiIndication);
    static_assert(room == 9362, "what the documents say");
    std::vector<Message> told = failMany(quick, room);
    for (std::size_t i = 0; i < told.size(); ++i)
        ASSERT_EQ(never.next(), told[i]) << "message " << i;
    EXPECT_FALSE(never.ready());
}

// Messages are as many as the process opens links: what nobody fetches must not fill its memory.
TEST_F(LinkReceiver, ThatNeverReadsSeesTheEndOfItsStreamWhenMoreThanOneMebibyteWaits)
{
    configure(eightFailures());
    for (int i = 0; i < 8; ++i)
        store("Fail" + std::to_string(i));
    Receiver quick, never;
    const std::vector<Message> told = failMany(quick, 200000);
    std::size_t whole = 0;
    while (const auto message = never.ready())
        ASSERT_EQ(*message, told[whole++]) << "message " << whole;
    EXPECT_GT(whole, 100u) << "what the socket took before is still there";
    EXPECT_LT(whole, told.size());
    char byte;
    EXPECT_EQ(recv(never.socket(), &byte, 1, MSG_DONTWAIT), 0) << "the stream has an end";
    Receiver after;
    NAPI_OpenLink("Fail1");
    EXPECT_EQ(after.next(), failed(0, 7, 101)) << "others go on";
    EXPECT_EQ(quick.next(), failed(0, 7, 101));
}

TEST_F(LinkReceiver, ThatReadsLateIsNotToldOfClosedLinks)
{
    configure(eightFailures());
    for (int i = 0; i < 8; ++i)
        store("Fail" + std::to_string(i));
    store("Home");
    Receiver quick, late;
    std::vector<Message> told = failMany(quick, 3000);
    for (int round = 0; round < 100; ++round) {
        int link = NAPI_OpenLink("Home");
        ASSERT_EQ(quick.next(), connected(link));
        ASSERT_EQ(NAPI_CloseLink(link), 0);
    }
    std::vector<Message> after = failMany(quick, 3000);
    told.insert(told.end(), after.begin(), after.end());
    for (std::size_t i = 0; i < told.size(); ++i)
        ASSERT_EQ(late.next(), told[i]) << "message " << i;
    EXPECT_FALSE(late.ready());
}

TEST_F(LinkReceiver, LetsTheEngineSleepWhileNothingHappens)
{
    useScenarios();
    Receiver receiver;
    NAPI_OpenLink("Home");
    EXPECT_EQ(receiver.next(), connected(0));
    NAPI_OpenLink("Never");
    int thread = engineThread();
    ASSERT_GT(thread, 0);
    long long work = workWhenAsleep(thread);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_EQ(workOf(thread), work);
}

TEST_F(LinkReceiver, LetsTheEngineSleepWhileItDoesNotRead)
{
    configure(eightFailures());
    for (int i = 0; i < 8; ++i)
        store("Fail" + std::to_string(i));
    Receiver quick, never;
    failMany(quick, 2000);
    int thread = engineThread();
    long long work = workWhenAsleep(thread);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    EXPECT_EQ(workOf(thread), work);
}

} // namespace
