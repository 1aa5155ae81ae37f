// The default name over 1,000 stored profiles, against the two list calls that it makes.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <napi.h>
#include <profilefunctions.h>

#include "ratios.h"

namespace {

constexpr int stored = 1000;

// A root with the profiles, gone with the program.
class Store
{
public:
    Store()
    {
        char folder[] = "/tmp/profiles-bench-XXXXXX";
        if (!::mkdtemp(folder))
            std::abort();
        root = folder;
        ::setenv("VORN_ROOT", folder, 1);
        const NetworkProfile record = {};
        for (int i = 1; i <= stored; ++i)
            if (NAPI_CreateProfile(("Profile" + std::to_string(i)).c_str(), &record, 0, 0) !=
                NAPI_OK)
                std::abort();
    }
    ~Store() { std::filesystem::remove_all(root); }

private:
    std::string root;
};

void listTwice(benchmark::State& state)
{
    std::vector<char> names(stored * NAPI_PROFILE_NAME_SLOT);
    for (auto _ : state) {
        unsigned int count = 0;
        if (NAPI_ListAllProfile(nullptr, &count) < 0 ||
            NAPI_ListAllProfile(names.data(), &count) < 0 || count != stored)
            state.SkipWithError("the profiles are not listed");
        benchmark::DoNotOptimize(names.data());
    }
}

void defaultName(benchmark::State& state)
{
    for (auto _ : state) {
        QString name;
        getDefaultProfileName(name);
        if (name != "Profile1001")
            state.SkipWithError("the name is another one");
    }
}

BENCHMARK(listTwice)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(defaultName)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    const Store store;
    return bench::run(argc, argv, {{"defaultName", "listTwice", 1.2}});
}
