// The program's operator new, which can be told to refuse all threads but the first one.
#ifndef TESTS_FAILING_MEMORY_H
#define TESTS_FAILING_MEMORY_H

namespace linktest {

// As long as it lives, no thread but the main one is given memory.
class ShortMemory
{
public:
    ShortMemory();
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;

    // Waits until memory has been refused once more. False when it is not, in a minute.
    bool refused();
};

// As long as it lives, its thread is given memory in any case: for the parts of a test that work
// in the other threads.
class SparedThread
{
public:
    SparedThread();
    ~SparedThread();
    SparedThread(const SparedThread&) = delete;
    SparedThread& operator=(const SparedThread&) = delete;
};

} // namespace linktest

#endif
