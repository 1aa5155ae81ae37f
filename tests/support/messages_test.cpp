#include "support/messages.h"

#include <string>
#include <vector>

#include <qobject.h>

#include <gtest/gtest.h>

using namespace support;

namespace {

typedef std::vector<std::string> Messages;

Messages heard;
Messages heardByOther;

void hear(int type, const char* text)
{
    heard.push_back(std::to_string(type) + " " + text);
}

void hearOther(int type, const char* text)
{
    heardByOther.push_back(std::to_string(type) + " " + text);
}

// Begins and ends without a handler, and with nothing heard.
class CaptureMessages : public testing::Test
{
protected:
    void SetUp() override { TearDown(); }

    void TearDown() override
    {
        captureMessages(nullptr);
        heard.clear();
        heardByOther.clear();
    }
};

} // namespace

TEST_F(CaptureMessages, HandsOverTypeAndText)
{
    captureMessages(hear);
    qWarning("wrong %d", 3);
    qDebug("seen");
    EXPECT_EQ((Messages{"1 wrong 3", "0 seen"}), heard);
}

TEST_F(CaptureMessages, HearsOfAConnectionThatCannotBeMade)
{
    captureMessages(hear);
    QObject object;
    const bool connected =
        QObject::connect(&object, SIGNAL(noSuchSignal()), &object, SLOT(noSuchSlot()));
    EXPECT_FALSE(connected);
    ASSERT_EQ(1u, heard.size());
    EXPECT_EQ("1 ", heard[0].substr(0, 2));
    EXPECT_NE(std::string::npos, heard[0].find("noSuchSignal"));
}

TEST_F(CaptureMessages, GivesBackTheHandlerBefore)
{
    EXPECT_EQ(nullptr, captureMessages(hear));
    EXPECT_EQ(&hear, captureMessages(hearOther));
    qWarning("for the other");
    EXPECT_EQ(&hearOther, captureMessages(hear));
    qWarning("for the first");
    EXPECT_EQ(Messages{"1 for the other"}, heardByOther);
    EXPECT_EQ(Messages{"1 for the first"}, heard);
    EXPECT_EQ(&hear, captureMessages(nullptr));
    EXPECT_EQ(nullptr, captureMessages(nullptr));
}

TEST_F(CaptureMessages, ReturnsMessagesToWhoTookThemBefore)
{
    captureMessages(hear);
    captureMessages(nullptr);
    testing::internal::CaptureStderr();
    qWarning("to the standard error");
    EXPECT_EQ("to the standard error\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ(Messages{}, heard);
}

TEST_F(CaptureMessages, HandsOverUtf8)
{
    captureMessages(hear);
    qWarning("caf\xc3\xa9");
    EXPECT_EQ(Messages{"1 caf\xc3\xa9"}, heard);
}
