// Which result of the network API stands for a failed system call.
#ifndef NETWORK_STORE_ERRORS_H
#define NETWORK_STORE_ERRORS_H

namespace store {

// A call on something inside the folder of the profiles; 0 gives NAPI_OK.
int resultOf(int error);

// A call on the folder of the profiles itself, or on one on the way to it.
int rootResultOf(int error);

} // namespace store

#endif
