// In a program whose network API, as the host's, keeps the phone's files below a folder.
#include "support/root.h"

#include <cstddef>
#include <cstring>

#include <gtest/gtest.h>

#include "support/notation.h"

namespace {

const char* folder = "";
int result = 0;

} // namespace

extern "C" int NAPIHOST_RootFolder(char* buffer, std::size_t size)
{
    EXPECT_LT(std::strlen(folder), size);
    std::strcpy(buffer, folder);
    return result;
}

TEST(RootFolder, IsThatOfTheNetworkApi)
{
    folder = "/srv/caf\xc3\xa9";
    result = 0;
    EXPECT_EQ(shown(support::rootFolder()), "/srv/caf<00e9>");
}

TEST(RootFolder, IsEmptyWhereTheNetworkApiCannotTell)
{
    folder = "/srv/other";
    result = -209;
    EXPECT_TRUE(support::rootFolder().isEmpty());
}
