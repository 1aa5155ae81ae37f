// A file that has a name of its own before it gets its place, and the note of it below the root by
// which it is found when the program is killed in between.
#ifndef COMMON_UNFINISHED_FILE_H
#define COMMON_UNFINISHED_FILE_H

#include <string>
#include <vector>

namespace ctl {

class UnfinishedFile
{
public:
    // Chooses a name for a file in the open folder, which lies at `folderPath`, and makes the note.
    // Where the root cannot be written to, there is no note, and an export works all the same.
    UnfinishedFile(int folder, std::string folderPath);

    // Removes the file, if it still has that name, and the note; a file that cannot be removed
    // keeps its note.
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::string& name() const { return m_name; }

private:
    int m_folder;
    std::string m_name;
    std::string m_note;
};

// The paths of the files of which there is a note, and which are there.
std::vector<std::string> unfinishedFiles();

} // namespace ctl

#endif
