// A folder that stands for the phone's file system, for one test.
#ifndef TESTS_SETTINGS_ROOT_H
#define TESTS_SETTINGS_ROOT_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "common/temporary_folder.h"

class SettingsRoot : public testing::Test
{
protected:
    void SetUp() override
    {
        std::filesystem::create_directory(root + "/etc");
        ::setenv("VORN_ROOT", root.c_str(), 1);
    }

    void TearDown() override { ::unsetenv("VORN_ROOT"); }

    std::string settings() const { return root + "/etc/settings.json"; }
    std::string features() const { return root + "/etc/features.json"; }

    static void write(const std::string& path, const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
    }

    static std::string read(const std::string& path)
    {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    // Runs `work` in another process and waits for it; `work` tells whether it has succeeded.
    template <typename Work> static void inAnotherProcess(Work work)
    {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            ::_exit(work() ? 0 : 1);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }

    TemporaryFolder folder;
    const std::string& root = folder.path();
};

// Holds the lock that all writers of the settings take, which lies on the root, or that of another
// folder, as another program.
class OtherWriter
{
public:
    explicit OtherWriter(const std::string& folder)
        : m_descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        EXPECT_EQ(::flock(m_descriptor, LOCK_EX), 0);
    }
    ~OtherWriter() { ::close(m_descriptor); }
    OtherWriter(const OtherWriter&) = delete;
    OtherWriter& operator=(const OtherWriter&) = delete;

private:
    int m_descriptor;
};

#endif
