// For tests that stand before functions of the platform or of Qt, to see what the library hands
// them: a record of the calls in their order, and the way on to the function itself.
#ifndef TESTS_COMMON_INTERPOSED_H
#define TESTS_COMMON_INTERPOSED_H

#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include <dlfcn.h>

#include <qstring.h>

// The definition that would be called without the test's own.
template <typename Function> Function nextOf(const char* symbol)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, symbol));
}

#define SYMBOL_TEXT(symbol) SYMBOL_TEXT_EXPANDED(symbol)
#define SYMBOL_TEXT_EXPANDED(symbol) #symbol

namespace interposed {

inline std::vector<std::string> calls;
inline bool recording = false;
inline int depth = 0;

// Notes a call while it is recorded and as long as it runs; calls that come from inside another
// one are the platform's own affair and are not noted.
class Call
{
public:
    explicit Call(const std::string& what)
    {
        if (recording && depth == 0)
            calls.push_back(what);
        ++depth;
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() { --depth; }
};

// What is called while `work` runs.
template <typename Work> std::vector<std::string> callsOf(Work work)
{
    calls.clear();
    recording = true;
    work();
    recording = false;
    return calls;
}

// The text of a call that has a format.
inline std::string formatted(const char* format, va_list arguments)
{
    char text[512];
    std::vsnprintf(text, sizeof text, format, arguments);
    return text;
}

inline std::string orNone(const char* text)
{
    return text ? text : "none";
}

inline std::string quoted(const QString& text)
{
    return text.isNull() ? "null" : '"' + text.toStdString() + '"';
}

inline std::string yes(bool flag)
{
    return flag ? " yes" : " no";
}

} // namespace interposed

#endif
