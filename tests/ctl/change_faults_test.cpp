// Whatever system call of a command that writes fails, or is the last one of its process: what it
// writes is as it was or as it was to be, its exit status says which, and doctor names what is left
// beside that.
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>

#include "failure.h"
#include "line/command_line.h"
#include "network/store/disk_replay.h"
#include "network/store/store_faults.h"
#include "network/store/store_world.h"
#include "settings/settings_host.h"
#include "unfinished_file.h"

namespace {

namespace fs = std::filesystem;

using faults::Fault;
using faults::Plan;

constexpr char exchange[] = R"({"format": "vorn-profiles", "version": 1, "profiles": [
    {"name": "PROFILE", "fields": {"apn": "new.example"}}]})";

struct Command
{
    const char* label;
    std::vector<std::string> words; // "ROOT" stands for the root
    const char* change;             // the file that it writes, below the root
    bool isSwept = true;            // what it leaves goes with the next time
};

void PrintTo(const Command& command, std::ostream* out)
{
    *out << command.label;
}

const char store[] = "vornlocal/download/appwrite/NetProfile";

const Command commands[] = {
    {"ImportNew",
     {"profile", "import", "ROOT/in/new.json"},
     "vornlocal/download/appwrite/NetProfile/New/profile"},
    {"ImportReplacing",
     {"profile", "import", "--replace", "ROOT/in/old.json"},
     "vornlocal/download/appwrite/NetProfile/A/profile"},
    {"ProfileSet",
     {"profile", "set", "A", "apn=other.example"},
     "vornlocal/download/appwrite/NetProfile/A/profile"},
    {"ProfileCopy",
     {"profile", "copy", "A", "New"},
     "vornlocal/download/appwrite/NetProfile/New/profile"},
    {"ExportNew",
     {"profile", "export", "A", "--show-secrets", "--output", "ROOT/out/new.json"},
     "out/new.json",
     false},
    {"ExportOver",
     {"profile", "export", "A", "--show-secrets", "--output", "ROOT/out/old.json"},
     "out/old.json",
     false},
    {"SettingFirst", {"setting", "set", "first", "1"}, "etc/settings.json"},
    {"SettingSet", {"setting", "set", "kept", "2"}, "etc/settings.json"},
    {"SettingRemove", {"setting", "delete", "kept"}, "etc/settings.json"},
    {"FeatureSet", {"feature", "set", "431", "off"}, "etc/features.json"},
};

constexpr int stillGoing = -1;

using Files = std::map<std::string, std::string>;

bool isHidden(const fs::path& below)
{
    return std::any_of(below.begin(), below.end(),
                       [](const fs::path& part) { return part.native()[0] == '.'; });
}

class ChangeFaults : public testing::TestWithParam<Command>
{
protected:
    StoreWorld world{StoreWorld::On::Memory};
    std::size_t made = 0; // calls of the last command

    fs::path path(const std::string& below) const { return world.root() + "/" + below; }

    void write(const std::string& below, const std::string& text) const
    {
        fs::create_directories(path(below).parent_path());
        std::ofstream(path(below), std::ios::binary) << text;
    }

    void prepare()
    {
        world.clear();
        NetworkProfile record = {};
        record.gprsApn[0] = 'a';
        ASSERT_EQ(NAPI_CreateProfile("A", &record, 0, 0), NAPI_OK);
        for (const auto& [file, name] : {std::pair("in/new.json", "New"), {"in/old.json", "A"}}) {
            std::string text = exchange;
            write(file, text.replace(text.find("PROFILE"), 7, name));
        }
        write("out/old.json", "what was there before");
        write("etc/features.json", "{\"431\": true}");
        if (std::string(GetParam().label) != "SettingFirst")
            write("etc/settings.json", "{\"kept\": 1, \"other\": \"text\"}");
        for (const char* folder : {"etc", "in", "out"})
            fs::permissions(path(folder), fs::perms(0700));
    }

    // Result: the exit status.
    int carryOut() const
    {
        std::vector<std::string> words = GetParam().words;
        words.insert(words.begin(), "vornctl");
        std::vector<char*> line;
        for (std::string& word : words) {
            if (word.compare(0, 4, "ROOT") == 0)
                word.replace(0, 4, world.root());
            line.push_back(word.data());
        }
        line.push_back(nullptr);
        try {
            return ctl::runCommandLine(static_cast<int>(words.size()), line.data());
        } catch (const ctl::Failure& failure) {
            return static_cast<int>(failure.status());
        }
    }

    int runUnder(const Plan& plan)
    {
        prepare();
        faults::begin(plan);
        const int status = carryOut();
        made = faults::end().size();
        return plan.at < made || plan.alsoAt != SIZE_MAX ? status : stillGoing;
    }

    // What a program finds: every file that is not hidden.
    Files files() const
    {
        Files all;
        for (const auto& entry : fs::recursive_directory_iterator(world.root())) {
            const std::string below = entry.path().lexically_relative(world.root());
            if (isHidden(below) || below.compare(0, 3, "var") == 0)
                continue;
            const bool isProfile = entry.path().parent_path() == path(store);
            if (entry.is_regular_file() || isProfile)
                all[below] = entry.is_regular_file() ? contentOf(entry.path()) : "";
        }
        return all;
    }

    Files before()
    {
        prepare();
        return files();
    }

    Files after()
    {
        prepare();
        EXPECT_EQ(carryOut(), 0);
        return files();
    }

    static std::vector<std::string> named()
    {
        std::vector<napihost::Finding> findings;
        EXPECT_EQ(napihost::inspectStore(&findings), NAPI_OK);
        std::vector<std::string> paths = ctl::unfinishedFiles();
        for (const napihost::Finding& finding : findings)
            paths.push_back(finding.path);
        for (const settingshost::Finding& finding : settingshost::inspectSettings())
            paths.push_back(finding.path);
        return paths;
    }

    // doctor names what is left, and nothing else.
    void expectNamed() const
    {
        const std::vector<std::string> paths = named();
        for (const std::string& one : paths)
            ASSERT_TRUE(isHidden(fs::path(one).lexically_relative(world.root()))) << one;
        for (const auto& entry : fs::recursive_directory_iterator(world.root())) {
            const std::string left = entry.path();
            if (!isHidden(fs::path(left).lexically_relative(world.root())))
                continue;
            const bool isNamed =
                std::any_of(paths.begin(), paths.end(), [&](const std::string& one) {
                    return left.compare(0, one.size(), one) == 0;
                });
            ASSERT_TRUE(isNamed) << left;
        }
    }

    void expectSweptByTheNextTime() const
    {
        carryOut();
        if (GetParam().isSwept) {
            ASSERT_EQ(named(), std::vector<std::string>());
        }
    }

    static bool stands(int status)
    {
        return status == 0 || status == static_cast<int>(ctl::Exit::NotSynced);
    }
};

constexpr int errors[] = {ENOSPC, EIO, EACCES, EMFILE};

TEST_P(ChangeFaults, FailingCallLeavesTheOldFilesAndTheStatusSaysSo)
{
    const Files old = before(), fresh = after();
    ASSERT_NE(old, fresh);
    for (const int error : errors) {
        int failures = 0;
        for (std::size_t at = 0;; ++at) {
            SCOPED_TRACE("errno " + std::to_string(error) + " at call " + std::to_string(at));
            const int status = runUnder({Fault::Fail, at, error});
            if (status == stillGoing)
                break;
            failures += !stands(status);
            ASSERT_EQ(files(), stands(status) ? fresh : old) << status;
            expectNamed();
        }
        EXPECT_GE(failures, 4);
    }
}

TEST_P(ChangeFaults, TwoFailingCallsLeaveTheOldOrTheNewFilesAndTheStatusSaysWhich)
{
    const Files old = before(), fresh = after();
    const std::vector<int> chosen = faults::isLong()
                                        ? std::vector<int>(std::begin(errors), std::end(errors))
                                        : std::vector<int>{EIO};
    for (const int error : chosen) {
        int pairs = 0;
        runUnder({});
        const std::size_t calls = made;
        // Many a first failure leaves no second call.
        for (std::size_t first = 0; first < calls; ++first) {
            made = first + 2;
            for (std::size_t second = first + 1; made >= second; ++second) {
                SCOPED_TRACE("calls " + std::to_string(first) + " and " + std::to_string(second));
                const int status = runUnder({Fault::Fail, first, error, second});
                ASSERT_EQ(files(), stands(status) ? fresh : old) << status;
                expectNamed();
                pairs += made > second;
            }
        }
        EXPECT_GE(pairs, 4);
    }
}

TEST_P(ChangeFaults, InterruptedCallIsMadeAgain)
{
    const Files fresh = after();
    prepare();
    faults::begin();
    ASSERT_EQ(carryOut(), 0);
    const std::vector<faults::Call> calls = faults::end();
    for (std::size_t at = 0; at < calls.size(); ++at) {
        // The others are never interrupted by a signal.
        const std::string& function = calls[at].function;
        if (function != "openat" && function != "open" && function != "write" &&
            function != "read" && function != "fsync" && function != "flock")
            continue;
        SCOPED_TRACE(function + " at " + std::to_string(at));
        ASSERT_EQ(runUnder({Fault::Interrupt, at, EINTR}), 0);
        ASSERT_EQ(files(), fresh);
    }
}

TEST_P(ChangeFaults, ProcessEndedBeforeAnyCallLeavesTheOldOrTheNewFiles)
{
    const Files old = before(), fresh = after();
    for (std::size_t at = 0;; ++at) {
        SCOPED_TRACE("call " + std::to_string(at));
        prepare();
        const int status = inChild([&] {
            faults::begin({Fault::Die, at, 0});
            return carryOut();
        });
        const Files left = files();
        if (status != faults::deathStatus) {
            ASSERT_EQ(status, 0);
            ASSERT_EQ(left, fresh);
            break;
        }
        ASSERT_TRUE(left == old || left == fresh);
        expectNamed();
        expectSweptByTheNextTime();
    }
}

// The file of a path on a disk, beginning at a folder: 0 where there is none, 1 where its bytes are
// not safe, or where a profile has no file.
ino_t fileOn(const replay::Disk& disk, ino_t folder, const fs::path& path)
{
    for (const fs::path& part : path) {
        const auto entries = disk.folders.find(folder);
        if (entries == disk.folders.end() || entries->second.count(part) == 0)
            return part == "profile" ? 1 : 0;
        folder = entries->second.at(part);
    }
    return disk.safeFiles.count(folder) ? folder : 1;
}

TEST_P(ChangeFaults, LossOfPowerLeavesTheOldOrTheNewFileAndNoneAfterTheCommand)
{
    const fs::path changed = GetParam().change;
    prepare();
    const ino_t top = replay::inodeOf(world.root());
    const ino_t old = replay::inodeOf(path(changed));
    replay::Replay replayed(replay::diskOf(world.root()));
    faults::begin();
    ASSERT_EQ(carryOut(), 0);
    const std::vector<faults::Call> calls = faults::end();
    const ino_t fresh = replay::inodeOf(path(changed));
    ASSERT_NE(fresh, old);
    for (const faults::Call& call : calls) {
        replayed.run(call);
        replayed.forEachOutcome([&](const replay::Disk& disk) {
            const ino_t file = fileOn(disk, top, changed);
            EXPECT_TRUE(file == old || file == fresh) << call.function << " " << file;
        });
    }
    replayed.forEachOutcome(
        [&](const replay::Disk& disk) { EXPECT_EQ(fileOn(disk, top, changed), fresh); });
}

INSTANTIATE_TEST_SUITE_P(Commands, ChangeFaults, testing::ValuesIn(commands),
                         [](const auto& command) { return std::string(command.param.label); });

} // namespace
