// In a program whose network API, as the phone's, has no folder of its own.
#include "support/root.h"

#include <gtest/gtest.h>

TEST(RootFolder, IsEmptyWhereTheNetworkApiHasNone)
{
    EXPECT_TRUE(support::rootFolder().isEmpty());
}
