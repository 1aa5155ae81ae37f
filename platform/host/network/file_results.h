// Which result of the network API stands for a failed system call on a file.
#ifndef NETWORK_FILE_RESULTS_H
#define NETWORK_FILE_RESULTS_H

namespace network {

// Checks that the root can stand for a file system: an absolute path. Result: NAPI_OK or
// NAPI_ERR_ROOT.
int checkRoot();

// A call on something inside the folder of the profiles: an errno, or base::notSynced; 0 gives
// NAPI_OK.
int fileResult(int error);

// A call on the folder of the profiles itself, or on one on the way to it.
int rootResult(int error);

} // namespace network

#endif
