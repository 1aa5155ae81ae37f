// Documents that are files.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/temporary_folder.h"
#include "settings/json_told.h"

using base::JsonDocument;

class JsonFile : public testing::Test
{
protected:
    std::string path() const { return folder.path() + "/f.json"; }
    void write(const std::string& text) const { std::ofstream(path()) << text; }

    TemporaryFolder folder;
};

TEST_F(JsonFile, ReadsAFile)
{
    write("{\"a\": 5}");
    const JsonDocument document = JsonDocument::read(path());
    EXPECT_EQ(document.state(), JsonDocument::State::Good);
    EXPECT_EQ(document.root().at("a").integer(0, 9, 0), 5);
    EXPECT_EQ(document.source(), "{\"a\": 5}");
    EXPECT_EQ(document.path(), path());
}

TEST_F(JsonFile, ThatIsMissingIsNoProblem)
{
    const JsonDocument document = JsonDocument::read(path());
    EXPECT_EQ(document.state(), JsonDocument::State::Missing);
    EXPECT_EQ(document.root().at("a").integer(0, 9, 6), 6);
    EXPECT_EQ(told(document), Lines{});
}

TEST_F(JsonFile, ThatIsMissingCanBeBegun)
{
    EXPECT_EQ(JsonDocument::read(path()).withMember("b", "7"), "{\n  \"b\": 7\n}\n");
    EXPECT_EQ(JsonDocument::read(folder.path()).withMember("b", "7"), "");
}

TEST_F(JsonFile, ThatIsAFolderIsReported)
{
    const JsonDocument document = JsonDocument::read(folder.path(), "no settings");
    EXPECT_EQ(document.state(), JsonDocument::State::Unreadable);
    EXPECT_EQ(document.error(), 0);
    EXPECT_EQ(told(document), Lines{folder.path() + ": expected a readable file, found a "
                                                    "folder; using no settings instead"});
}

TEST_F(JsonFile, ThatIsAPipeIsReportedWithoutWaiting)
{
    ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
    EXPECT_EQ(JsonDocument::read(path()).state(), JsonDocument::State::Unreadable);
}

TEST_F(JsonFile, BelowSomethingThatIsNoFolderIsReported)
{
    write("{}");
    const JsonDocument document = JsonDocument::read(path() + "/x");
    EXPECT_EQ(document.state(), JsonDocument::State::Unreadable);
    EXPECT_EQ(document.error(), ENOTDIR);
    EXPECT_EQ(told(document),
              Lines{path() + "/x: expected a readable file, found one that cannot be read "
                             "(Not a directory); using the defaults instead"});
}

TEST_F(JsonFile, OfMoreThanFourMebibytesIsReported)
{
    write("{}" + std::string(4 * 1024 * 1024 - 1, ' '));
    const JsonDocument document = JsonDocument::read(path());
    EXPECT_EQ(document.state(), JsonDocument::State::Unreadable);
    EXPECT_EQ(told(document), Lines{path() + ": expected a readable file, found more than 4 MiB; "
                                             "using the defaults instead"});
}

TEST_F(JsonFile, OfExactlyFourMebibytesIsRead)
{
    write("{}" + std::string(4 * 1024 * 1024 - 2, ' '));
    EXPECT_EQ(JsonDocument::read(path()).state(), JsonDocument::State::Good);
}
