// What the code under test calls and logs, in order.
#ifndef TESTS_PROFILES_RECORDER_H
#define TESTS_PROFILES_RECORDER_H

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace recorder {

typedef std::vector<std::string> Calls;

// The calls since the test began; each test begins with none. A text that is logged stands there as
// "log: " and the text.
Calls& calls();

inline void note(const std::string& call)
{
    calls().push_back(call);
}

// Attaches the application log to the list of calls, which is emptied, as long as it lives; and a
// fixture that has one.
class Log
{
public:
    Log();
    ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;
};

class Recording : public testing::Test
{
    Log m_log;
};

} // namespace recorder

#endif
