#include "support/profilename.h"

#include <string>

#include <gtest/gtest.h>

#include "support/text.h"

namespace {

struct Row
{
    const char* name;
    std::string bytes;
    bool expected;
};

const Row rows[] = {
    {"one letter", "a", true},
    {"blanks inside and around", " My profile ", true},
    {"a dot inside", "a.b", true},
    {"a backslash", "a\\b", true},
    {"63 bytes", std::string(63, 'x'), true},
    {"63 bytes in 21 characters", "\xe2\x82\xac" + std::string(60, 'x'), true},
    {"a character above U+FFFF", "\xf0\x9f\x93\xb6", true},
    {"U+00A0, no control character", "a\xc2\xa0", true},
    {"nothing", "", false},
    {"a dot", ".", false},
    {"a dot first", ".hidden", false},
    {"a slash", "a/b", false},
    {"64 bytes", std::string(64, 'x'), false},
    {"64 bytes in fewer characters", "\xe2\x82\xac" + std::string(61, 'x'), false},
    {"a line end", "a\n", false},
    {"U+001F", "a\x1f", false},
    {"U+007F", "a\x7f", false},
    {"U+0080", "a\xc2\x80", false},
    {"U+009F", "a\xc2\x9f", false},
    {"a NUL inside", std::string("a\0b", 3), false},
};

TEST(ProfileName, IsWhatTheNetworkApiTakes)
{
    for (const Row& row : rows) {
        const QString text = support::fromUtf8(row.bytes.data(), int(row.bytes.size()));
        EXPECT_EQ(row.expected, support::isProfileName(text)) << row.name;
    }
}

TEST(ProfileName, IsNoNullText)
{
    EXPECT_FALSE(support::isProfileName(QString()));
}

} // namespace
