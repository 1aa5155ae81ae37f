// A program that goes with this one.
#ifndef PHONE_LAUNCH_CHILD_H
#define PHONE_LAUNCH_CHILD_H

#include <string>
#include <vector>

#include <sys/types.h>

namespace phone {

// Where its standard output and errors go.
struct Output
{
    std::string file; // "": where this program's go
};

// A started program; it is ended with the object, and when this program ends in any way. What it
// starts in turn is ended with it.
class Child
{
public:
    Child() = default;
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    // Starts `arguments[0]`, which is looked for in PATH. Result: 0, or the errno of what went
    // wrong.
    int start(const std::vector<std::string>& arguments, const Output& output = {});

    pid_t id() const { return m_id; }
    // To be called with what waitpid() said of it.
    void hasEnded() { m_id = 0; }
    // Asks it to end, and ends it where it has not after three seconds.
    void end();

private:
    bool waitUntilEnded() const;

    pid_t m_id = 0;
};

// The status with which a shell would tell of it: 128 and the signal's number where one ended it.
int exitStatus(int waited);

// From here on these signals wait for nextSignal(): those that end a program, and that of a child.
void holdSignals();
int nextSignal(int milliseconds); // 0 after that time

} // namespace phone

#endif
