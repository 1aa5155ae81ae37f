#include "support/log.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>

#include <applog.h>

#include <gtest/gtest.h>

namespace {

// Attaches a stream of its own as the application log, and captures the standard output.
class LogPrint : public testing::Test
{
protected:
    void SetUp() override
    {
        attached = APPLOG_ModuleStream;
        stream = open_memstream(&buffer, &size);
        ASSERT_NE(nullptr, stream);
        testing::internal::CaptureStdout();
    }

    void TearDown() override
    {
        APPLOG_ModuleStream = attached;
        std::fclose(stream);
        std::free(buffer);
        if (!taken)
            testing::internal::GetCapturedStdout();
    }

    std::string written()
    {
        std::fflush(stream);
        return std::string(buffer, size);
    }

    std::string standardOutput()
    {
        std::fflush(stdout);
        taken = true;
        return testing::internal::GetCapturedStdout();
    }

    FILE* attached = nullptr;
    FILE* stream = nullptr;
    char* buffer = nullptr;
    std::size_t size = 0;
    bool taken = false;
};

} // namespace

TEST_F(LogPrint, WritesToTheAttachedLogExactlyWhatTheFormatGives)
{
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "NAPI_CreateProfile return %d\n", -152);
    support::logPrint(4, "Node Name is NULL");
    EXPECT_EQ("NAPI_CreateProfile return -152\nNode Name is NULL", written());
    EXPECT_EQ("", standardOutput());
}

TEST_F(LogPrint, WritesToTheStandardOutputWhileNoLogIsAttached)
{
    APPLOG_ModuleStream = nullptr;
    support::logPrint(4, "rename profile name from %s to %s failed!\n", "a", "b");
    EXPECT_EQ("rename profile name from a to b failed!\n", standardOutput());
    EXPECT_EQ("", written());
}

TEST_F(LogPrint, FollowsTheLogWhenItIsAttachedLater)
{
    APPLOG_ModuleStream = nullptr;
    support::logPrint(4, "before ");
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "after ");
    APPLOG_ModuleStream = nullptr;
    support::logPrint(4, "again");
    EXPECT_EQ("after ", written());
    EXPECT_EQ("before again", standardOutput());
}

TEST_F(LogPrint, WritesLevelSevenAndBelow)
{
    APPLOG_ModuleStream = stream;
    for (int level : {7, 4, 1, 0, -1, INT_MIN})
        support::logPrint(level, "%d;", level);
    EXPECT_EQ("7;4;1;0;-1;-2147483648;", written());
}

TEST_F(LogPrint, LeavesTheFlushingToTheStream)
{
    FILE* file = std::tmpfile();
    ASSERT_NE(nullptr, file);
    ASSERT_EQ(0, std::setvbuf(file, nullptr, _IOFBF, 4096));
    APPLOG_ModuleStream = file;
    support::logPrint(4, "a whole line\n");
    struct stat status = {};
    EXPECT_EQ(0, fstat(fileno(file), &status));
    EXPECT_EQ(0, status.st_size);
    std::fflush(file);
    EXPECT_EQ(0, fstat(fileno(file), &status));
    EXPECT_EQ(13, status.st_size);
    APPLOG_ModuleStream = nullptr;
    std::fclose(file);
}

TEST_F(LogPrint, DropsLevelEightAndAbove)
{
    APPLOG_ModuleStream = stream;
    support::logPrint(8, "read profile ok, create instance of DataConnection_NewWiz\n");
    support::logPrint(9, "%d", 9);
    support::logPrint(INT_MAX, "%d", 10);
    EXPECT_EQ("", written());
    APPLOG_ModuleStream = nullptr;
    support::logPrint(8, "dropped here too\n");
    EXPECT_EQ("", standardOutput());
}

TEST_F(LogPrint, TakesAPercentSignInAnArgumentAsText)
{
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "%s\n", "100%n %s");
    EXPECT_EQ("100%n %s\n", written());
}

TEST_F(LogPrint, IsSilentWhenWritingFails)
{
    FILE* full = std::fopen("/dev/full", "w");
    ASSERT_NE(nullptr, full);
    std::setvbuf(full, nullptr, _IONBF, 0);
    APPLOG_ModuleStream = full;
    support::logPrint(4, "lost\n");
    EXPECT_NE(0, std::ferror(full));
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "kept\n");
    EXPECT_EQ("kept\n", written());
    std::fclose(full);
}
