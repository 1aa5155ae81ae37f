#include "network/links/link_world.h"

#include "network/napi_host.h"

using namespace linktest;

namespace {

class LinkPlay : public LinkTest
{};

TEST_F(LinkPlay, BreaksALinkThatIsUp)
{
    useScenarios();
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_EQ(napihost::breakLink(0), 0);
    EXPECT_EQ(receiver.next(), broken(0));
}

TEST_F(LinkPlay, BreaksOnlyWhatIsUp)
{
    useScenarios();
    EXPECT_EQ(napihost::breakLink(0), -201);
    Receiver receiver;
    EXPECT_EQ(napihost::breakLink(0), -210);
    EXPECT_EQ(NAPI_OpenLink("Never"), 0);
    EXPECT_EQ(napihost::breakLink(0), -211);
}

TEST_F(LinkPlay, BreaksNoLinkOfTheMachine)
{
    configure(R"({"bearer": "machine", "interfaces": {"cellular": "lo", "wifi": "lo"}})");
    store("Home");
    Receiver receiver;
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(receiver.next(), connected(0));
    EXPECT_EQ(napihost::breakLink(0), -202);
    EXPECT_FALSE(napihost::playsScenario());
    EXPECT_EQ(napihost::failNextOpening(5, 0), -202);
}

TEST_F(LinkPlay, FailsTheNextOpeningAndNoOtherOne)
{
    useScenarios();
    EXPECT_TRUE(napihost::playsScenario());
    Receiver receiver;
    EXPECT_EQ(napihost::failNextOpening(3, 10), 0);
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(receiver.next(), failed(0, 3, 10));
    EXPECT_EQ(NAPI_OpenLink("Home"), 0);
    EXPECT_EQ(receiver.next(), connected(0));
}

TEST_F(LinkPlay, TakesNoCauseThatAnIndicationCannotTell)
{
    useScenarios();
    for (const int cause : {0, -1, 65536})
        EXPECT_EQ(napihost::failNextOpening(cause, 0), -202) << cause;
    EXPECT_EQ(napihost::failNextOpening(5, 65536), -202);
    EXPECT_EQ(napihost::failNextOpening(5, -1), -202);
}

} // namespace
