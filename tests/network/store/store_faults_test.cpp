// Whatever system call of a change fails, falls short or is the last one of its process: the store
// is as it was or as it was to be.
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "network/store/store_faults.h"
#include "network/store/store_world.h"

namespace {

using faults::Fault;
using faults::Plan;

// One change, and what the store holds before and after it.
struct Change
{
    const char* label;
    Profiles before, after;
    int (*run)();
    int pairs; // of calls that both fail, at the least; of a renaming, none is followed by another
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.label;
}

const Change changes[] = {
    {"CreateInAnEmptyRoot", {}, {{"New", 5}}, createNew, 20},
    {"Create", {{"A", 1}, {"B", 2}}, {{"A", 1}, {"B", 2}, {"New", 5}}, createNew, 20},
    {"Modify", {{"A", 1}, {"B", 2}}, {{"A", 5}, {"B", 2}}, modifyA, 7},
    {"Delete", {{"A", 1}, {"B", 2}}, {{"B", 2}}, [] { return napihost::deleteProfile("A"); }, 8},
    {"Rename",
     {{"A", 1}, {"B", 2}},
     {{"B", 2}, {"C", 1}},
     [] { return napihost::renameProfile("A", "C"); },
     0},
};

struct Meaning
{
    int error;
    int result;
};

const Meaning meanings[] = {
    {ENOSPC, NAPI_ERR_MEMORY_FULL}, {EDQUOT, NAPI_ERR_MEMORY_FULL}, {EACCES, NAPI_ERR_ACCESS},
    {EPERM, NAPI_ERR_ACCESS},       {EROFS, NAPI_ERR_ACCESS},       {EIO, NAPI_ERR_IO},
    {EMFILE, NAPI_ERR_RESOURCES},   {ENFILE, NAPI_ERR_RESOURCES},   {ENOMEM, NAPI_ERR_RESOURCES},
};

const int stillGoing = 10000;

class StoreFaults : public testing::TestWithParam<Change>
{
protected:
    // In memory, where the disk's time does not count: hundreds of changes are made.
    StoreWorld world{StoreWorld::On::Memory};
    std::size_t made = 0; // calls of the last change

    // Runs the change in a fresh store under the plan. stillGoing when the plan came to nothing
    // since the change makes fewer calls.
    int runUnder(const Plan& plan)
    {
        world.reset(GetParam().before);
        faults::begin(plan);
        int result = GetParam().run();
        made = faults::end().size();
        return plan.at < made || plan.alsoAt != SIZE_MAX ? result : stillGoing;
    }

    // Calls `run` with each two numbers of calls that it makes, and for each first one once with a
    // second that it does not make. Many a first failure leaves no second call.
    template <typename Run> void forEachPair(Run run)
    {
        int pairs = 0;
        runUnder({});
        const std::size_t calls = made;
        for (std::size_t first = 0; first < calls; ++first) {
            made = first + 2;
            for (std::size_t second = first + 1; made >= second && !HasFailure(); ++second) {
                SCOPED_TRACE("calls " + std::to_string(first) + " and " + std::to_string(second));
                run(first, second);
                pairs += made > second;
            }
        }
        EXPECT_GE(pairs, GetParam().pairs);
    }

    void expectDoctorNamesWhatIsLeft()
    {
        std::vector<napihost::Finding> findings;
        ASSERT_EQ(napihost::inspectStore(&findings), NAPI_OK);
        for (const napihost::Finding& finding : findings)
            ASSERT_EQ(finding.path, world.profiles() + "/.pending") << finding.problem;
    }

    static bool stands(int result) { return result == NAPI_OK || result == NAPI_ERR_NOT_SYNCED; }

    // The next write goes well and leaves nothing but profiles.
    void expectSweptByTheNextWrite()
    {
        NetworkProfile record = uniformRecord(9);
        ASSERT_EQ(NAPI_CreateProfile("Sweeper", &record, 0, 0), NAPI_OK);
        ASSERT_EQ(entriesOf(world.profiles()), listedNames());
        for (const std::string& name : listedNames())
            ASSERT_EQ(entriesOf(world.profiles() + "/" + name),
                      std::vector<std::string>{"profile"});
    }
};

TEST_P(StoreFaults, ChangeWithoutFaultIsMade)
{
    EXPECT_EQ(runUnder({Fault::None, 0, 0}), NAPI_OK);
    EXPECT_EQ(storedProfiles(), GetParam().after);
    expectSweptByTheNextWrite();
}

TEST_P(StoreFaults, FailingCallLeavesTheOldStateAndTheResultSaysWhy)
{
    for (const Meaning& meaning : meanings) {
        int failures = 0;
        for (std::size_t at = 0;; ++at) {
            SCOPED_TRACE("errno " + std::to_string(meaning.error) + " at call " +
                         std::to_string(at));
            int result = runUnder({Fault::Fail, at, meaning.error});
            if (result == stillGoing)
                break;
            if (!stands(result)) {
                ++failures;
                ASSERT_EQ(result, meaning.result);
            }
            ASSERT_EQ(storedProfiles(), stands(result) ? GetParam().after : GetParam().before);
            expectSweptByTheNextWrite();
        }
        EXPECT_GE(failures, 4) << "errno " << meaning.error;
    }
}

// A disk that fails while it confirms a change has it all the same, perhaps; taking it back would
// rest on the same disk.
TEST_P(StoreFaults, ChangeThatTheDiskDoesNotConfirmStandsAndTheResultSaysSo)
{
    world.reset(GetParam().before);
    faults::begin();
    ASSERT_EQ(GetParam().run(), NAPI_OK);
    const std::vector<faults::Call> calls = faults::end();
    std::size_t last = calls.size();
    while (calls[last - 1].function != "fsync")
        --last;
    EXPECT_EQ(runUnder({Fault::Fail, last - 1, EIO}), NAPI_ERR_NOT_SYNCED);
    EXPECT_EQ(storedProfiles(), GetParam().after);
    expectSweptByTheNextWrite();
}

TEST_P(StoreFaults, TwoFailingCallsLeaveTheOldOrTheNewStateAndTheResultSaysWhich)
{
    std::vector<int> errors = {EIO};
    if (faults::isLong())
        errors = {EIO, ENOSPC, EACCES, EMFILE};
    for (const int error : errors) {
        forEachPair([&](std::size_t first, std::size_t second) {
            const int result = runUnder({Fault::Fail, first, error, second});
            EXPECT_EQ(storedProfiles(), stands(result) ? GetParam().after : GetParam().before);
            expectDoctorNamesWhatIsLeft();
            expectSweptByTheNextWrite();
        });
    }
}

// What is taken back after a failure is as safe as what is made.
TEST_P(StoreFaults, ProcessEndedAfterAFailingCallLeavesTheOldOrTheNewState)
{
    forEachPair([&](std::size_t first, std::size_t second) {
        world.reset(GetParam().before);
        faults::begin({Fault::Fail, first, EIO});
        GetParam().run();
        made = faults::end().size(); // as many as the child makes, unless it ends before
        world.reset(GetParam().before);
        inChild([&] {
            faults::begin({Fault::Fail, first, EIO, second, true});
            GetParam().run();
            return 0;
        });
        const Profiles stored = storedProfiles();
        EXPECT_TRUE(stored == GetParam().before || stored == GetParam().after)
            << testing::PrintToString(stored);
        expectDoctorNamesWhatIsLeft();
        expectSweptByTheNextWrite();
    });
}

TEST_P(StoreFaults, InterruptedCallIsMadeAgain)
{
    for (std::size_t at = 0;; ++at) {
        SCOPED_TRACE("call " + std::to_string(at));
        world.reset(GetParam().before);
        faults::begin();
        GetParam().run();
        std::vector<faults::Call> calls = faults::end();
        if (at >= calls.size())
            break;
        // The others are never interrupted by a signal.
        const std::string& function = calls[at].function;
        if (function != "openat" && function != "open" && function != "write" &&
            function != "fsync" && function != "flock")
            continue;
        ASSERT_EQ(runUnder({Fault::Interrupt, at, EINTR}), NAPI_OK) << function;
        ASSERT_EQ(storedProfiles(), GetParam().after);
    }
}

TEST_P(StoreFaults, ShortWriteIsContinued)
{
    for (std::size_t at = 0;; ++at) {
        int result = runUnder({Fault::Short, at, 0});
        if (result == stillGoing)
            break;
        ASSERT_EQ(result, NAPI_OK);
        ASSERT_EQ(storedProfiles(), GetParam().after);
    }
}

TEST_P(StoreFaults, ProcessEndedBeforeAnyCallLeavesTheOldOrTheNewState)
{
    for (std::size_t at = 0;; ++at) {
        SCOPED_TRACE("call " + std::to_string(at));
        world.reset(GetParam().before);
        int status = inChild([&] {
            faults::begin({Fault::Die, at, 0});
            return GetParam().run() == NAPI_OK ? 0 : 1;
        });
        Profiles stored = storedProfiles();
        if (status == 0) {
            ASSERT_EQ(stored, GetParam().after);
            break;
        }
        ASSERT_EQ(status, faults::deathStatus);
        ASSERT_TRUE(stored == GetParam().before || stored == GetParam().after)
            << testing::PrintToString(stored);
        expectSweptByTheNextWrite();
    }
}

TEST_P(StoreFaults, NoDescriptorIsLeftOpen)
{
    for (std::size_t at = 0;; ++at) {
        world.reset(GetParam().before);
        std::size_t before = entriesOf("/proc/self/fd").size();
        faults::begin({Fault::Fail, at, EIO});
        GetParam().run();
        std::size_t count = faults::end().size();
        ASSERT_EQ(entriesOf("/proc/self/fd").size(), before) << "call " << at;
        if (at >= count)
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, StoreFaults, testing::ValuesIn(changes),
                         [](const auto& change) { return std::string(change.param.label); });

// The reading calls fail with the same meanings.
class StoreReadFaults : public testing::TestWithParam<Meaning>
{
protected:
    StoreWorld world{StoreWorld::On::Memory};
};

TEST_P(StoreReadFaults, FailingCallIsReportedAndTheArgumentsStayAsTheyWere)
{
    world.reset({{"A", 1}});
    int failures = 0;
    for (std::size_t at = 0;; ++at) {
        NetworkProfile record = uniformRecord(8);
        faults::begin({Fault::Fail, at, GetParam().error});
        int result = NAPI_ReadProfile("A", &record, 0, 0);
        if (faults::end().size() <= at)
            break;
        ASSERT_EQ(result, GetParam().result) << at;
        ASSERT_EQ(byteOf(record), 8) << at;
        ++failures;
    }
    EXPECT_GE(failures, 4);
}

TEST_P(StoreReadFaults, FailingCallRefusesTheOpeningOfALink)
{
    world.reset({{"A", 1}});
    const int socket = NAPI_Init(0);
    ASSERT_GE(socket, 0);
    int failures = 0;
    for (std::size_t at = 0;; ++at) {
        faults::begin({Fault::Fail, at, GetParam().error});
        int result = NAPI_OpenLink("A");
        bool failed = faults::end().size() > at;
        if (result >= 0) {
            EXPECT_EQ(NAPI_CloseLink(result), NAPI_OK);
        }
        if (!failed)
            break;
        EXPECT_EQ(result, GetParam().result) << at;
        ++failures;
    }
    EXPECT_GE(failures, 4);
    EXPECT_EQ(NAPI_Fini(), NAPI_OK);
    close(socket);
}

TEST_P(StoreReadFaults, FailingListLeavesTheCountAsItWas)
{
    world.reset({{"A", 1}});
    for (std::size_t at : {0, 1, 2}) { // the folder is opened and its entries are read
        unsigned int count = 4711;
        faults::begin({Fault::Fail, at, GetParam().error});
        int result = NAPI_ListAllProfile(nullptr, &count);
        faults::end();
        EXPECT_EQ(result, GetParam().result) << at;
        EXPECT_EQ(count, 4711u) << at;
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, StoreReadFaults, testing::ValuesIn(meanings),
                         [](const auto& row) { return std::to_string(row.param.error); });

// File systems that know no flags of renameat2 say EINVAL; then a plain rename does it.
TEST_P(StoreFaults, FileSystemWithoutRenameFlagsServes)
{
    world.reset(GetParam().before);
    faults::begin();
    GetParam().run();
    std::vector<faults::Call> calls = faults::end();
    for (std::size_t at = 0; at < calls.size(); ++at) {
        if (calls[at].function != "renameat2")
            continue;
        ASSERT_EQ(runUnder({Fault::Fail, at, EINVAL}), NAPI_OK);
        ASSERT_EQ(storedProfiles(), GetParam().after);
        expectSweptByTheNextWrite();
    }
}

} // namespace
