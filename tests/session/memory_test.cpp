// Memory that runs out, at each allocation of the session manager in turn: a result comes back, no
// exception, and nothing stays behind.

#include <dirent.h>

#include <algorithm>

#include <ystatedialog.h>

#include "common/failing_memory.h"
#include "session/session_fixture.h"

namespace {

using failingmemory::forEachAllocation;
using failingmemory::Of;

const int noMemory = -152;

int descriptorCount()
{
    int count = 0;
    DIR* folder = ::opendir("/proc/self/fd");
    while (::readdir(folder))
        ++count;
    ::closedir(folder);
    return count;
}

class SessionMemory : public Session
{
protected:
    // Calls `act` with one failing allocation. Result: that of `act`, -99 where an exception came
    // instead.
    template <class Act>
    static int without(int number, Act act, bool* hasFailed, Of whose = Of::Library)
    {
        int result = -99;
        failingmemory::failAt(number, whose);
        EXPECT_NO_THROW(result = act()) << number;
        *hasFailed = failingmemory::stop();
        return result;
    }
};

TEST_F(SessionMemory, ThatRunsOutAtEachStepOfInitLetsItBeTriedAgain)
{
    napi.closeWriteEnd();
    const int descriptorsBefore = descriptorCount();
    const int allocations = forEachAllocation([this, descriptorsBefore](int number) {
        manager = std::make_unique<YDataSessionManager>();
        log = std::make_unique<SignalLog>(*manager);
        bool hasFailed = false;
        const int result = without(
            number, [this] { return manager->init(false); }, &hasFailed, Of::Libraries);
        if (!hasFailed)
            return false;
        EXPECT_EQ(noMemory, result) << number;
        EXPECT_EQ(napi.take(), "Init(0) Fini()") << number;
        napi.closeWriteEnd();
        EXPECT_EQ(descriptorsBefore, descriptorCount()) << number;
        EXPECT_GE(manager->init(false), 0) << number;
        deliver(indication(NAPI_IND_OPEN_FAILED, 7));
        EXPECT_EQ(log->take(), "openFailed(7,41394,772)") << number;
        manager.reset();
        napi.take();
        napi.closeWriteEnd();
        return true;
    });
    EXPECT_GE(allocations, 3);
}

TEST_F(SessionMemory, ThatRunsOutAtEachStepOfOpeningLeavesNoPopupBehind)
{
    initialise();
    const int allocations = forEachAllocation([this](int number) {
        bool hasFailed = false;
        const int result = without(
            number, [this] { return manager->openLink("Internet"); }, &hasFailed);
        EXPECT_TRUE(result == 5 || (hasFailed && result == noMemory)) << number << ": " << result;
        EXPECT_EQ(hasFailed ? 0 : 1, popupCount()) << number;
        EXPECT_EQ(result == noMemory ? "" : "OpenLink(Internet)", napi.take()) << number;
        deliver(indication(NAPI_IND_OPEN_FAILED, 5));
        EXPECT_EQ(log->take(), "openFailed(5,41394,772)") << number;
        EXPECT_EQ(popupCount(), 0) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 3);
}

TEST_F(SessionMemory, ThatRunsOutAtEachStepOfOpeningWithoutAPopupIsAResult)
{
    initialise();
    const int allocations = forEachAllocation([this](int number) {
        bool hasFailed = false;
        const int result = without(
            number, [this] { return manager->openLinkNoDialog("Internet"); }, &hasFailed);
        EXPECT_EQ(hasFailed ? noMemory : 5, result) << number;
        EXPECT_EQ(hasFailed ? "" : "OpenLink(Internet)", napi.take()) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 1);
}

TEST_F(SessionMemory, ThatRunsOutAtEachStepOfTheDeviceLeavesTheName)
{
    initialise();
    const int allocations = forEachAllocation([this](int number) {
        QString name("kept");
        unsigned long value = 0;
        bool hasFailed = false;
        const int result = without(
            number, [this, &name, &value] { return manager->getDeviceInfo(5, name, &value); },
            &hasFailed);
        EXPECT_EQ(hasFailed ? noMemory : 0, result) << number;
        EXPECT_EQ(hasFailed ? "kept" : "wwan0", name.toStdString()) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 1);
}

TEST_F(SessionMemory, IsNotAskedForWhereNobodyCouldBeTold)
{
    initialise();
    for (const uint16_t type : {NAPI_IND_CONNECTED, NAPI_IND_OPEN_FAILED, NAPI_IND_BROKEN}) {
        napi.send(indication(type, 9));
        failingmemory::failAt(0);
        pass();
        EXPECT_FALSE(failingmemory::stop()) << type;
    }
}

} // namespace
