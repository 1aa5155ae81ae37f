// Changing the stored profiles: each change is one step of the file system, prepared and brought to
// the disk before, confirmed by the disk after. A change that fails has changed nothing; one that
// only the disk has not confirmed stands, and is NAPI_ERR_NOT_SYNCED.
#ifndef NETWORK_PROFILE_WRITER_H
#define NETWORK_PROFILE_WRITER_H

#include <string>

#include "base/locked_folder.h"
#include "napi.h"

namespace store {

// Holds the writers' lock of the store from open() to its end. All names are profile names. Results
// as the calls of napi.h and napi_host.h that carry the same names.
class ProfileWriter
{
public:
    enum class IfMissing { Make, Refuse };

    // Waits for other writers, then removes what a killed one has left behind. When there is no
    // store yet: makes it, or refuses with NAPI_ERR_NO_PROFILE.
    int open(IfMissing ifMissing);

    int create(const std::string& name, const NetworkProfile& record);
    int modify(const std::string& name, const NetworkProfile& record);
    int remove(const std::string& name);
    int rename(const std::string& name, const std::string& newName);

private:
    int sweep();
    void discardPending();
    int checkLimit() const;
    int buildFolder(const NetworkProfile& record);
    int replaceRecord(int profile, const NetworkProfile& record);
    int replaceFolder(const std::string& name, const NetworkProfile& record);
    int move(const char* from, const char* to);
    int confirm();

    base::LockedFolder m_folder;
};

} // namespace store

#endif
