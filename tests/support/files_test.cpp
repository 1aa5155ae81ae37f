#include "support/files.h"

#include <fstream>
#include <iterator>
#include <string>

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "common/temporary_folder.h"
#include "support/notation.h"

using namespace support;

namespace {

// A folder of its own as the working directory, removed afterwards.
class RenamePath : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(chdir(folder.path().c_str()), 0);
        put("file", "file's");
        put("other", "other's");
        ASSERT_EQ(mkdir("folder", 0700), 0);
        ASSERT_EQ(mkdir("empty", 0700), 0);
        put("folder/inner", "inner's");
        ASSERT_EQ(symlink("nowhere", "dangling"), 0);
    }

    void TearDown() override { ASSERT_EQ(chdir("/"), 0); }

    static void put(const std::string& path, const std::string& content)
    {
        std::ofstream(path) << content;
    }

    static std::string content(const std::string& path)
    {
        std::ifstream file(path);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
    }

    static bool exists(const std::string& path)
    {
        struct stat status;
        return lstat(path.c_str(), &status) == 0;
    }

    static bool renamed(const std::u16string& from, const std::u16string& to)
    {
        return renamePath(made(from), made(to));
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(RenamePath, MovesToANewRelativeName)
{
    EXPECT_TRUE(renamed(u"file", u"new"));
    EXPECT_EQ(content("new"), "file's");
    EXPECT_FALSE(exists("file"));
}

TEST_F(RenamePath, MovesToANewAbsoluteName)
{
    const QString absolute = QString((folder.path() + "/new").c_str());
    EXPECT_TRUE(renamePath(made(u"file"), absolute));
    EXPECT_EQ(content("new"), "file's");
}

TEST_F(RenamePath, MovesAFolderWithWhatIsInIt)
{
    EXPECT_TRUE(renamed(u"folder", u"moved"));
    EXPECT_EQ(content("moved/inner"), "inner's");
}

TEST_F(RenamePath, MovesAFolderToANameWithASlashAtItsEnd)
{
    EXPECT_TRUE(renamed(u"folder", u"nd/"));
    EXPECT_EQ(content("nd/inner"), "inner's");
}

TEST_F(RenamePath, MovesADanglingLinkItself)
{
    EXPECT_TRUE(renamed(u"dangling", u"new"));
    EXPECT_TRUE(exists("new"));
    EXPECT_FALSE(exists("nowhere"));
}

TEST_F(RenamePath, MovesALinkItself)
{
    ASSERT_EQ(symlink("other", "link"), 0);
    EXPECT_TRUE(renamed(u"link", u"new"));
    EXPECT_EQ(content("new"), "other's");
    EXPECT_EQ(content("other"), "other's");
    EXPECT_FALSE(exists("link"));
}

TEST_F(RenamePath, ReplacesAFile)
{
    EXPECT_TRUE(renamed(u"file", u"other"));
    EXPECT_EQ(content("other"), "file's");
    EXPECT_FALSE(exists("file"));
}

TEST_F(RenamePath, ReplacesALinkAndNotItsTarget)
{
    ASSERT_EQ(symlink("other", "link"), 0);
    EXPECT_TRUE(renamed(u"file", u"link"));
    EXPECT_EQ(content("link"), "file's");
    EXPECT_EQ(content("other"), "other's");
}

TEST_F(RenamePath, ReplacesADanglingLinkAndDoesNotCreateItsTarget)
{
    EXPECT_TRUE(renamed(u"file", u"dangling"));
    EXPECT_EQ(content("dangling"), "file's");
    EXPECT_FALSE(exists("nowhere"));
}

TEST_F(RenamePath, ReplacesAnEmptyFolder)
{
    EXPECT_TRUE(renamed(u"folder", u"empty"));
    EXPECT_EQ(content("empty/inner"), "inner's");
}

TEST_F(RenamePath, AcceptsTheSameName)
{
    EXPECT_TRUE(renamed(u"file", u"file"));
    EXPECT_EQ(content("file"), "file's");
    EXPECT_TRUE(renamed(u"folder", u"folder"));
    EXPECT_EQ(content("folder/inner"), "inner's");
}

TEST_F(RenamePath, WritesNamesInUtf8)
{
    EXPECT_TRUE(renamed(u"file", u"caf\u00e9\u20ac"));
    EXPECT_EQ(content("caf\xc3\xa9\xe2\x82\xac"), "file's");
    EXPECT_TRUE(renamed(u"caf\u00e9\u20ac", u"file"));
}

TEST_F(RenamePath, RefusesWhatTheFileSystemRefusesAndChangesNothing)
{
    struct
    {
        const char* name;
        const char16_t* from;
        const char16_t* to;
    } const rows[] = {
        {"onto a folder that is not empty", u"empty", u"folder"},
        {"folder onto a file", u"folder", u"file"},
        {"file onto a folder", u"file", u"empty"},
        {"folder into itself", u"folder", u"folder/sub"},
        {"no source", u"missing", u"new"},
        {"no parent", u"file", u"missing/new"},
        {"empty source", u"", u"new"},
        {"empty target", u"file", u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(renamed(row.from, row.to));
    }
    EXPECT_EQ(content("file"), "file's");
    EXPECT_EQ(content("folder/inner"), "inner's");
    EXPECT_TRUE(exists("empty"));
    EXPECT_FALSE(exists("new"));
}

// A folder of another file system than this one's; /proc is one wherever there is no other.
std::string folderElsewhere()
{
    struct stat here = {}, there = {};
    EXPECT_EQ(stat(".", &here), 0);
    for (const char* folder : {"/dev/shm", "/var/tmp", "/tmp"})
        if (stat(folder, &there) == 0 && there.st_dev != here.st_dev && access(folder, W_OK) == 0)
            return folder;
    return "/proc";
}

TEST_F(RenamePath, MovesNothingToAnotherFileSystem)
{
    const std::string target = folderElsewhere() + "/support-files-" + std::to_string(getpid());
    EXPECT_FALSE(renamePath(made(u"file"), QString(target.c_str())));
    EXPECT_FALSE(renamePath(made(u"folder"), QString(target.c_str())));
    EXPECT_FALSE(exists(target));
    EXPECT_EQ(content("file"), "file's");
    EXPECT_EQ(content("folder/inner"), "inner's");
}

TEST_F(RenamePath, RefusesANameWithANulInIt)
{
    EXPECT_FALSE(renamed(u"file\0x"s, u"new"));
    EXPECT_FALSE(renamed(u"file", u"new\0x"s));
    EXPECT_EQ(content("file"), "file's");
    EXPECT_FALSE(exists("new"));
}

TEST_F(RenamePath, RefusesANullName)
{
    EXPECT_FALSE(renamePath(QString(), made(u"new")));
    EXPECT_FALSE(renamePath(made(u"file"), QString()));
    EXPECT_EQ(content("file"), "file's");
}
