// What the profile store costs, against the bare system calls that the same result needs. Every
// benchmark does both by turns on the same file system, and gives the medians in microseconds,
// their ratio, and the median of the ratios of each pair. The number in a benchmark's name says how
// many profiles there are; the bare calls work in a folder with as many entries, so that the size
// of the folder (which ext4 and tmpfs hardly feel) counts for neither side. VORN_BENCH_ROOT says
// where (default: the current folder). A wait for the disk takes many times longer on a busy
// machine, so compare figures of one run only. Creating a profile may take 1.5 times as long as the
// bare sequence, however many there are.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "common/temporary_folder.h"
#include "network/napi_host.h"
#include "ratios.h"

namespace {

namespace fs = std::filesystem;

void require(bool done, const char* what)
{
    if (!done) {
        perror(what);
        abort();
    }
}

// A store with `count` profiles P0, P1, ..., and a folder with as many entries for the bare
// sequences.
class Store
{
public:
    explicit Store(int64_t count)
    {
        setenv("VORN_ROOT", m_root.c_str(), 1);
        fs::create_directories(profiles());
        fs::create_directories(bare());
        for (int64_t i = 0; i < count; ++i) {
            std::string folder = profiles() + "/P" + std::to_string(i);
            require(mkdir(folder.c_str(), 0700) == 0, "mkdir");
            writeFile(folder + "/profile", false);
            require(mkdir((bare() + "/P" + std::to_string(i)).c_str(), 0700) == 0, "mkdir");
        }
        sync();
    }

    std::string profiles() const { return napihost::profilesFolder(); }
    std::string bare() const { return m_root + "/bare"; }

    void writeFile(const std::string& path, bool durably) const
    {
        int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        require(fd >= 0, "open");
        require(write(fd, &m_record, sizeof m_record) == sizeof m_record, "write");
        require(!durably || fsync(fd) == 0, "fsync");
        close(fd);
    }

    const NetworkProfile& record() const { return m_record; }

private:
    static fs::path place()
    {
        const char* told = getenv("VORN_BENCH_ROOT");
        return fs::absolute(told ? told : ".");
    }

    TemporaryFolder m_folder{place()};
    const std::string& m_root = m_folder.path();
    NetworkProfile m_record{};
};

void syncFolder(const std::string& path)
{
    int fd = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    require(fd >= 0 && fsync(fd) == 0, "fsync of a folder");
    close(fd);
}

// The sequence that a durable new or replaced file needs: write, fsync, rename, fsync of the
// folder.
void putBare(const Store& store)
{
    std::string pending = store.bare() + "/bare.new";
    store.writeFile(pending, true);
    require(rename(pending.c_str(), (store.bare() + "/bare").c_str()) == 0, "rename");
    syncFolder(store.bare());
}

// The sequence that removes a file in a folder of its own durably.
void removeBare(const Store& store)
{
    std::string folder = store.bare() + "/folder";
    require(unlink((folder + "/file").c_str()) == 0, "unlink");
    require(rmdir(folder.c_str()) == 0, "rmdir");
    syncFolder(store.bare());
}

double microseconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double, std::micro>(time).count();
}

double median(std::vector<double> values)
{
    auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

template <typename Call> double timed(Call call)
{
    auto start = std::chrono::steady_clock::now();
    call();
    return microseconds(std::chrono::steady_clock::now() - start);
}

// The two sides by turns, each beginning every second time; `clean` restores the state, untimed.
template <typename Ours, typename Bare, typename Clean>
void compare(benchmark::State& state, Ours ours, Bare bare, Clean clean)
{
    std::vector<double> oursTimes, bareTimes, ratios;
    bool oursFirst = false;
    for (auto unused : state) {
        oursFirst = !oursFirst;
        double first = oursFirst ? timed(ours) : timed(bare);
        double second = oursFirst ? timed(bare) : timed(ours);
        oursTimes.push_back(oursFirst ? first : second);
        bareTimes.push_back(oursFirst ? second : first);
        ratios.push_back(oursTimes.back() / bareTimes.back());
        state.SetIterationTime(oursTimes.back() / 1e6);
        clean();
    }
    state.counters["ours_us"] = median(oursTimes);
    state.counters["bare_us"] = median(bareTimes);
    state.counters["ratio"] = median(oursTimes) / median(bareTimes);
    state.counters["pair_ratio"] = median(ratios);
}

// Brings what was prepared to the disk, so that nobody's turn pays for it.
void settle(const Store& store)
{
    syncFolder(store.bare());
    syncFolder(store.profiles());
}

void create(benchmark::State& state)
{
    Store store(state.range(0));
    auto ours = [&] {
        require(NAPI_CreateProfile("New", &store.record(), 0, 0) == 0, "NAPI_CreateProfile");
    };
    auto clean = [&] {
        require(napihost::deleteProfile("New") == 0, "deleteProfile");
        unlink((store.bare() + "/bare").c_str());
        settle(store);
    };
    compare(
        state, ours, [&] { putBare(store); }, clean);
}

void modify(benchmark::State& state)
{
    Store store(state.range(0));
    require(NAPI_CreateProfile("Old", &store.record(), 0, 0) == 0, "NAPI_CreateProfile");
    putBare(store);
    auto ours = [&] {
        require(NAPI_ModifyProfile("Old", &store.record(), 0, 0) == 0, "NAPI_ModifyProfile");
    };
    compare(
        state, ours, [&] { putBare(store); }, [&] { settle(store); });
}

void remove(benchmark::State& state)
{
    Store store(state.range(0));
    auto prepare = [&] {
        require(NAPI_CreateProfile("Old", &store.record(), 0, 0) == 0, "NAPI_CreateProfile");
        fs::create_directory(store.bare() + "/folder");
        store.writeFile(store.bare() + "/folder/file", true);
        settle(store);
    };
    prepare();
    auto ours = [] { require(napihost::deleteProfile("Old") == 0, "deleteProfile"); };
    compare(
        state, ours, [&] { removeBare(store); }, prepare);
}

// Opening, reading and closing one file, or all files.
void readBare(const Store& store, int64_t count)
{
    for (int64_t i = 0; i < count; ++i) {
        NetworkProfile record;
        std::string path = store.profiles() + "/P" + std::to_string(i) + "/profile";
        int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        require(fd >= 0 && read(fd, &record, sizeof record) == sizeof record, "read");
        benchmark::DoNotOptimize(record);
        close(fd);
    }
}

void show(benchmark::State& state)
{
    Store store(state.range(0));
    compare(
        state,
        [] {
            NetworkProfile record;
            require(NAPI_ReadProfile("P0", &record, 0, 0) == 0, "NAPI_ReadProfile");
            benchmark::DoNotOptimize(record);
        },
        [&] { readBare(store, 1); }, [] {});
}

// The pair of calls that every user of the list makes: how many there are, then their names.
void list(benchmark::State& state)
{
    Store store(state.range(0));
    compare(
        state,
        [&] {
            unsigned int count = 0;
            require(NAPI_ListAllProfile(nullptr, &count) == 0, "count");
            std::vector<char> names(std::size_t(count) * NAPI_PROFILE_NAME_SLOT);
            require(NAPI_ListAllProfile(names.data(), &count) == 0, "list");
            require(count == state.range(0), "all profiles listed");
        },
        [&] { readBare(store, state.range(0)); }, [] {});
}

} // namespace

BENCHMARK(create)->Arg(0)->Arg(1000)->UseManualTime()->Iterations(200)->Repetitions(9);
BENCHMARK(modify)->Arg(0)->Arg(1000)->UseManualTime()->Iterations(100)->Repetitions(5);
BENCHMARK(remove)->Arg(0)->Arg(1000)->UseManualTime()->Iterations(100)->Repetitions(5);
BENCHMARK(show)->Arg(1)->Arg(1000)->UseManualTime()->Iterations(20000)->Repetitions(5);
BENCHMARK(list)->Arg(1000)->UseManualTime()->Iterations(200)->Repetitions(5);

int main(int argc, char** argv)
{
    return bench::run(argc, argv, {}, {},
                      {{"create/0", "ratio", 1.5}, {"create/1000", "ratio", 1.5}});
}
