// Opens links and says how long it took; link_opening.py runs it in a laboratory.
//
// Usage: link_timer open PROFILE ROUNDS
//          opens and closes; a line a round: microseconds since 1970 of NAPI_OpenLink and of the
//          message, and the microseconds that NAPI_CloseLink took
//        link_timer cancel PROFILE MILLISECONDS ROUNDS
//          closes so long after opening; a line a round: the microseconds that NAPI_CloseLink took
//        link_timer hold PROFILE
//          keeps a link; "up", then for each line of the input: how often the engine's thread has
//          gone to sleep, its processor time in nanoseconds, and the process's own memory in KiB
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <poll.h>
#include <unistd.h>

#include "napi.h"

using namespace std::chrono;

namespace {

long long now()
{
    return duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
}

NapiIndication next(int socket)
{
    NapiIndication message = {};
    if (::read(socket, &message, sizeof message) != sizeof message)
        std::exit(1);
    return message;
}

long long closingTime(int link)
{
    auto before = steady_clock::now();
    NAPI_CloseLink(link);
    return duration_cast<microseconds>(steady_clock::now() - before).count();
}

int measureOpening(int socket, const char* profile, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        long long begin = now();
        int link = NAPI_OpenLink(profile);
        NapiIndication message = next(socket);
        long long end = now();
        if (message.type != NAPI_IND_CONNECTED) {
            std::fprintf(stderr, "not opened: cause %u, detail %u\n", message.cause1,
                         message.cause2);
            return 1;
        }
        std::this_thread::sleep_for(milliseconds(50));
        std::printf("%lld %lld %lld\n", begin, end, closingTime(link));
        std::this_thread::sleep_for(milliseconds(400));
    }
    return 0;
}

int measureCancel(const char* profile, int delay, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        int link = NAPI_OpenLink(profile);
        std::this_thread::sleep_for(milliseconds(delay));
        std::printf("%lld\n", closingTime(link));
        std::fflush(stdout);
        std::this_thread::sleep_for(seconds(5));
    }
    return 0;
}

// The value behind a key of a file of /proc.
long valueOf(const std::string& path, const std::string& key)
{
    std::ifstream file(path);
    for (std::string word; file >> word;) {
        long value;
        if (word == key && file >> value)
            return value;
    }
    return -1;
}

std::string engineThread()
{
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::ifstream(task.path() / "comm") >> name;
        if (name == "napi-links")
            return task.path();
    }
    return "";
}

int hold(int socket, const char* profile)
{
    int link = NAPI_OpenLink(profile);
    if (next(socket).type != NAPI_IND_CONNECTED)
        return 1;
    std::puts("up");
    std::fflush(stdout);
    std::string thread = engineThread();
    for (int c; (c = std::getchar()) != EOF;) {
        if (c != '\n')
            continue;
        long long processor = -1;
        std::ifstream(thread + "/schedstat") >> processor;
        long memory = valueOf("/proc/self/smaps_rollup", "Private_Clean:") +
                      valueOf("/proc/self/smaps_rollup", "Private_Dirty:");
        std::printf("%ld %lld %ld\n", valueOf(thread + "/status", "voluntary_ctxt_switches:"),
                    processor, memory);
        std::fflush(stdout);
    }
    NAPI_CloseLink(link);
    return 0;
}

} // namespace

int main(int count, char** words)
{
    int socket = NAPI_Init(0);
    std::string command = count > 2 ? words[1] : "";
    int result = 2;
    if (command == "open" && count == 4)
        result = measureOpening(socket, words[2], std::atoi(words[3]));
    else if (command == "cancel" && count == 5)
        result = measureCancel(words[2], std::atoi(words[3]), std::atoi(words[4]));
    else if (command == "hold" && count == 3)
        result = hold(socket, words[2]);
    NAPI_Fini();
    return result;
}
