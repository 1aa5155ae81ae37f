// The version that the headers tell.
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "vornqtnapi_version.h"

namespace {

TEST(Version, IsThatOfTheProject)
{
    EXPECT_STREQ(VORNQTNAPI_VERSION_STR, PROJECT_VERSION);
}

TEST(Version, IsTheSameAsANumberAndAsAText)
{
    int major = -1, minor = -1, patch = -1;
    ASSERT_EQ(std::sscanf(VORNQTNAPI_VERSION_STR, "%d.%d.%d", &major, &minor, &patch), 3);
    EXPECT_EQ(VORNQTNAPI_VERSION, VORNQTNAPI_VERSION_CHECK(major, minor, patch));
}

TEST(Version, IsOrderedByMajorThenMinorThenPatch)
{
    EXPECT_LT(VORNQTNAPI_VERSION_CHECK(1, 0, 255), VORNQTNAPI_VERSION_CHECK(1, 1, 0));
    EXPECT_LT(VORNQTNAPI_VERSION_CHECK(1, 255, 255), VORNQTNAPI_VERSION_CHECK(2, 0, 0));
    EXPECT_LT(VORNQTNAPI_VERSION_CHECK(1, 0, 0), VORNQTNAPI_VERSION_CHECK(1, 0, 1));
}

} // namespace
