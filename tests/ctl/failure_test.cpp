#include "failure.h"

#include <set>

#include <gtest/gtest.h>

#include "napi.h"
#include "profile/store.h"

using namespace ctl;

namespace {

Failure failureOf(int result)
{
    const std::string name = "Home";
    try {
        failNapi(result, "change the profile", &name);
    } catch (const Failure& failure) {
        return failure;
    }
}

TEST(ExitStatus, OfAStoreThatIsBusyIsItsOwn)
{
    const Failure failure = failureOf(NAPI_ERR_BUSY);
    EXPECT_EQ(failure.status(), Exit::Busy);
    EXPECT_EQ(std::string(failure.what()).find("cannot change the profile \"Home\": "), 0u);
}

TEST(ExitStatus, OfAChangeThatTheDiskHasNotConfirmedIsItsOwnAndSaysThatItIsDone)
{
    const Failure failure = failureOf(NAPI_ERR_NOT_SYNCED);
    EXPECT_EQ(failure.status(), Exit::NotSynced);
    EXPECT_STREQ(failure.what(), "done, but the disk has not confirmed it: change the profile "
                                 "\"Home\" (-217).");
    EXPECT_NE(failure.advice(), "");
}

TEST(ExitStatus, HasOneMeaningEach)
{
    std::set<Exit> seen;
    for (const ExitMeaning& meaning : exitMeanings())
        EXPECT_TRUE(seen.insert(meaning.status).second) << static_cast<int>(meaning.status);
    EXPECT_EQ(seen.count(Exit::Busy) + seen.count(Exit::NotSynced), 2u);
}

} // namespace
