// Watches the system calls by which the host keeps its files, on the calling thread: notes each,
// and lets a chosen one fail, fall short, or end the process. The test program's own functions of
// the C library's names come before the C library's, so the shipped libraries are what runs. How
// many faults there were, the program says at its end.
#ifndef TESTS_NETWORK_STORE_FAULTS_H
#define TESTS_NETWORK_STORE_FAULTS_H

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

namespace faults {

// A place in the file system as a call names it: the inode of the folder, and a name in it. For a
// call on a descriptor `name` is empty.
struct Place
{
    ino_t inode = 0;
    std::string name;
};

struct Call
{
    std::string function;
    Place from, to;
    unsigned int flags = 0; // of renameat2, open and unlinkat
    long result = 0;        // of the call; -1 when it failed
    ino_t made = 0;         // mkdir, openat: the inode that the name stands for afterwards
    std::size_t bytes = 0;  // write: how many
};

enum class Fault {
    None,
    Fail,      // with `error`, without being carried out
    Interrupt, // once with EINTR, then as usual
    Short,     // write: only the first half, then as usual
    Die        // the process ends before the call is carried out
};

struct Plan
{
    Fault fault = Fault::None;
    std::size_t at = 0; // which call, counted from 0
    int error = 0;
    std::size_t alsoAt = SIZE_MAX; // a second call with the same fault ...
    bool thenDie = false;          // ... or one before which the process ends
};

// Whether the long form of the tests was asked for: VORN_TEST_LONG is set.
bool isLong();

// Says at the end of the program how many of these there were, too.
void count(const char* what, long number = 1);

// From begin() to end(); end() gives the calls that were made.
void begin(const Plan& plan = {});
std::vector<Call> end();

// What a process ended by Fault::Die gives to its parent.
const int deathStatus = 77;

} // namespace faults

#endif
