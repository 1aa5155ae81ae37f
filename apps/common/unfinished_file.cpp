#include "unfinished_file.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/durable_file.h"
#include "base/root.h"

namespace ctl {

namespace {

std::string notesFolder()
{
    return base::rootFolder() + "/var/exports";
}

std::string freshName()
{
    std::random_device random;
    char name[32];
    std::snprintf(name, sizeof name, ".vornctl-%08x.new", random());
    return name;
}

std::vector<std::filesystem::path> notes()
{
    std::vector<std::filesystem::path> paths;
    std::error_code error;
    std::filesystem::directory_iterator entry(notesFolder(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        paths.push_back(entry->path());
    return paths;
}

std::string pathIn(const std::filesystem::path& note)
{
    std::ifstream file(note);
    std::string path;
    std::getline(file, path, '\0');
    return path;
}

bool isThere(const std::string& path)
{
    struct stat status;
    return ::lstat(path.c_str(), &status) == 0;
}

// A note without its file is done with, unless another export has just made it.
void sweep()
{
    constexpr std::time_t grace = 60; // seconds
    for (const std::filesystem::path& note : notes()) {
        struct stat status;
        if (::stat(note.c_str(), &status) == 0 && status.st_mtime < std::time(nullptr) - grace &&
            !isThere(pathIn(note)))
            ::unlink(note.c_str());
    }
}

bool makeNote(const std::string& name, const std::string& path)
{
    const std::string folderPath = notesFolder();
    if (base::rootFolder().empty() || base::makeFolders(folderPath) != 0)
        return false;
    const base::UniqueFd folder = base::openFolder(folderPath);
    return folder.isOpen() && base::createFile(folder.get(), name.c_str(), path, 0600) == 0 &&
           base::syncFolder(folder.get()) == 0;
}

} // namespace

UnfinishedFile::UnfinishedFile(int folder, std::string folderPath)
    : m_folder(folder), m_name(freshName())
{
    sweep();
    if (makeNote(m_name.substr(1), std::move(folderPath) + '/' + m_name))
        m_note = notesFolder() + '/' + m_name.substr(1);
}

UnfinishedFile::~UnfinishedFile()
{
    const bool isGone = ::unlinkat(m_folder, m_name.c_str(), 0) == 0 || errno == ENOENT;
    if (isGone && !m_note.empty())
        ::unlink(m_note.c_str());
}

std::vector<std::string> unfinishedFiles()
{
    std::vector<std::string> paths;
    for (const std::filesystem::path& note : notes())
        if (std::string path = pathIn(note); !path.empty() && isThere(path))
            paths.push_back(std::move(path));
    return paths;
}

} // namespace ctl
