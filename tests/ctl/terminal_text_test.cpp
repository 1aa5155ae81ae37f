// What reaches a terminal, and how wide it is there.
#include <string>

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "output.h"
#include "suggestion.h"
#include "terminal_text.h"

namespace {

struct Text
{
    const char* name;
    std::string bytes;
    std::string printed;
    std::size_t width; // of what is printed
    bool isUtf8;
};

const Text texts[] = {
    {"letters", "abc", "abc", 3, true},
    {"nothing", "", "", 0, true},
    {"umlauts", "\xC3\xA4\xC3\xB6", "\xC3\xA4\xC3\xB6", 2, true},
    {"wide characters", "\xE7\xBD\x91\xE7\xBB\x9C", "\xE7\xBD\x91\xE7\xBB\x9C", 4, true},
    {"a combining accent", "e\xCC\x81", "e\xCC\x81", 1, true},
    {"an emoji", "\xF0\x9F\x93\xB1", "\xF0\x9F\x93\xB1", 2, true},
    {"a line feed", "a\nb", "a\\nb", 4, true},
    {"an escape sequence", "\x1B[2J", "\\x1B[2J", 7, true},
    {"DEL", "\x7F", "\\x7F", 4, true},
    {"a C1 control character", "\xC2\x9B", "\\u{9B}", 6, true},
    {"text that turns around", "\xE2\x80\xAE", "\\u{202E}", 8, true},
    {"a byte that is no UTF-8", "a\xFF", "a\\xFF", 5, false},
    {"a character cut short", "\xE7\xBD", "\\xE7\\xBD", 8, false},
    {"an overlong slash", "\xC0\xAF", "\\xC0\\xAF", 8, false},
    {"a surrogate", "\xED\xA0\x80", "\\xED\\xA0\\x80", 12, false},
    {"beyond Unicode", "\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80", 16, false},
    {"a stray continuation byte", "\x80", "\\x80", 4, false},
    {"a NUL", std::string("a\0b", 3), "a\\x00b", 6, true},
};

TEST(TerminalText, IsPrintedWithoutAnythingThatActs)
{
    for (const Text& text : texts)
        EXPECT_EQ(ctl::printable(text.bytes), text.printed) << text.name;
}

TEST(TerminalText, HasTheWidthThatATerminalGivesIt)
{
    for (const Text& text : texts)
        EXPECT_EQ(ctl::displayWidth(text.printed), text.width) << text.name;
}

TEST(TerminalText, KnowsUtf8)
{
    for (const Text& text : texts)
        EXPECT_EQ(base::isUtf8(text.bytes), text.isUtf8) << text.name;
}

TEST(TerminalText, JsonKeepsEveryCharacterAndActsOnNothing)
{
    const std::string text = ctl::jsonText("a\xC2\x9B\x1B\x7F\xE2\x80\xAE\xE7\xBD\x91", -1);
    EXPECT_EQ(text, "\"a\\u009B\\u001b\\u007F\\u202E\xE7\xBD\x91\"\n");
    EXPECT_EQ(ctl::Json::parse(text), "a\xC2\x9B\x1B\x7F\xE2\x80\xAE\xE7\xBD\x91");
}

TEST(Table, AlignsColumnsByTheirWidth)
{
    ctl::Table table({"NAME", "X"});
    table.add({"\xE7\xBD\x91\xE7\xBB\x9C\xE7\xBD\x91", "1"});
    table.add({"a\tb", "2"});
    EXPECT_EQ(table.text(), "NAME    X\n"
                            "\xE7\xBD\x91\xE7\xBB\x9C\xE7\xBD\x91  1\n"
                            "a\\tb    2\n");
}

TEST(Table, IsCutToTheWidthThatThereIs)
{
    ctl::Table table({"NAME", "X"});
    table.add({"\xE7\xBD\x91\xE7\xBB\x9C\xE7\xBD\x91\xE7\xBB\x9C\xE7\xBD\x91", "123456789"});
    EXPECT_EQ(table.text(19), "NAME      X\n"
                              "\xE7\xBD\x91\xE7\xBB\x9C\xE7\xBD\x91\xE2\x80\xA6   123456789\n");
    EXPECT_EQ(table.text(21), table.text());
    EXPECT_EQ(table.text(1), table.text(18)) << "no column is cut down to nothing";
}

TEST(FoldedText, LosesNothingAndKeepsToTheWidth)
{
    const std::vector<std::string> wide = {"\xE7\xBD\x91", "\xE7\xBB\x9C"
                                                           "a"};
    EXPECT_EQ(ctl::folded("\xE7\xBD\x91\xE7\xBB\x9C"
                          "a",
                          3),
              wide);
    EXPECT_EQ(ctl::folded("abcde", 2), (std::vector<std::string>{"ab", "cd", "e"}));
    EXPECT_EQ(ctl::folded("", 2), std::vector<std::string>{""});
    EXPECT_EQ(ctl::folded("\xE7\xBD\x91", 1), (std::vector<std::string>{"\xE7", "\xBD", "\x91"}));
}

TEST(Suggestion, IsTheClosestWordWhenItIsCloseEnough)
{
    EXPECT_EQ(ctl::suggestion("aqn", {"user", "apn"}), "Did you mean \"apn\"?");
    EXPECT_EQ(ctl::suggestion("prefrence", {"preference", "port1"}),
              "Did you mean \"preference\"?");
    EXPECT_EQ(ctl::suggestion("colour", {"preference", "port1"}), "");
    EXPECT_EQ(ctl::suggestion("", {"apn"}), "");
    EXPECT_EQ(ctl::suggestion("x", {}), "");
}

} // namespace
