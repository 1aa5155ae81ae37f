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
        ASSERT_NE(stream, nullptr);
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
    EXPECT_EQ(written(), "NAPI_CreateProfile return -152\nNode Name is NULL");
    EXPECT_EQ(standardOutput(), "");
}

TEST_F(LogPrint, WritesToTheStandardOutputWhileNoLogIsAttached)
{
    APPLOG_ModuleStream = nullptr;
    support::logPrint(4, "rename profile name from %s to %s failed!\n", "a", "b");
    EXPECT_EQ(standardOutput(), "rename profile name from a to b failed!\n");
    EXPECT_EQ(written(), "");
}

TEST_F(LogPrint, FollowsTheLogWhenItIsAttachedLater)
{
    APPLOG_ModuleStream = nullptr;
    support::logPrint(4, "before ");
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "after ");
    APPLOG_ModuleStream = nullptr;
    support::logPrint(4, "again");
    EXPECT_EQ(written(), "after ");
    EXPECT_EQ(standardOutput(), "before again");
}

TEST_F(LogPrint, WritesLevelSevenAndBelow)
{
    APPLOG_ModuleStream = stream;
    for (int level : {7, 4, 1, 0, -1, INT_MIN})
        support::logPrint(level, "%d;", level);
    EXPECT_EQ(written(), "7;4;1;0;-1;-2147483648;");
}

TEST_F(LogPrint, LeavesTheFlushingToTheStream)
{
    FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(std::setvbuf(file, nullptr, _IOFBF, 4096), 0);
    APPLOG_ModuleStream = file;
    support::logPrint(4, "a whole line\n");
    struct stat status = {};
    EXPECT_EQ(fstat(fileno(file), &status), 0);
    EXPECT_EQ(status.st_size, 0);
    std::fflush(file);
    EXPECT_EQ(fstat(fileno(file), &status), 0);
    EXPECT_EQ(status.st_size, 13);
    APPLOG_ModuleStream = nullptr;
    std::fclose(file);
}

TEST_F(LogPrint, DropsLevelEightAndAbove)
{
    APPLOG_ModuleStream = stream;
    support::logPrint(8, "read profile ok, create instance of DataConnection_NewWiz\n");
    support::logPrint(9, "%d", 9);
    support::logPrint(INT_MAX, "%d", 10);
    EXPECT_EQ(written(), "");
    APPLOG_ModuleStream = nullptr;
    support::logPrint(8, "dropped here too\n");
    EXPECT_EQ(standardOutput(), "");
}

TEST_F(LogPrint, TakesAPercentSignInAnArgumentAsText)
{
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "%s\n", "100%n %s");
    EXPECT_EQ(written(), "100%n %s\n");
}

TEST_F(LogPrint, IsSilentWhenWritingFails)
{
    FILE* full = std::fopen("/dev/full", "w");
    ASSERT_NE(full, nullptr);
    std::setvbuf(full, nullptr, _IONBF, 0);
    APPLOG_ModuleStream = full;
    support::logPrint(4, "lost\n");
    EXPECT_NE(std::ferror(full), 0);
    APPLOG_ModuleStream = stream;
    support::logPrint(4, "kept\n");
    EXPECT_EQ(written(), "kept\n");
    std::fclose(full);
}
