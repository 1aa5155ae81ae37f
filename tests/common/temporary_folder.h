// A folder of its own for a test or a benchmark.
#ifndef TESTS_COMMON_TEMPORARY_FOLDER_H
#define TESTS_COMMON_TEMPORARY_FOLDER_H

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

// Made with the object, for this user alone, and removed with it and whatever is in it then.
class TemporaryFolder
{
public:
    // Below `place`. Throws std::system_error when no folder can be made there.
    explicit TemporaryFolder(
        const std::filesystem::path& place = std::filesystem::temp_directory_path())
        : m_path(place / ("vorn-" + std::string(6, 'X'))) // the end is mkdtemp()'s to fill in
    {
        if (!::mkdtemp(m_path.data()))
            throw std::system_error(errno, std::generic_category(), m_path);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

#endif
