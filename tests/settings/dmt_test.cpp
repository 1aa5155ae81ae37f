#include "dmt.h"

#include <atomic>
#include <malloc.h>
#include <thread>
#include <vector>

#include "settings/settings_host.h"
#include "settings/settings_root.h"

namespace {

class SettingsTree : public SettingsRoot
{
protected:
    void SetUp() override
    {
        SettingsRoot::SetUp();
        ASSERT_EQ(DmtTreeFactory::Initialize().GetCode(), DMT_OK);
    }

    void TearDown() override
    {
        DmtTreeFactory::Uninitialize();
        SettingsRoot::TearDown();
    }

    static int obtain(DmtTreeHandle& tree, const char* principal = "localhost")
    {
        return DmtTreeFactory::GetTree(DmtPrincipal(principal), tree).GetCode();
    }

    // Reads a node from the beginning; the first code that is not DMT_OK.
    static int readNode(const char* name, DmtData& data)
    {
        DmtTreeHandle tree;
        DmtNodeHandle node;
        if (const int code = obtain(tree))
            return code;
        if (const int code = tree->GetNode(name, node).GetCode())
            return code;
        return node->GetValue(data).GetCode();
    }
};

TEST_F(SettingsTree, GivesAnIntegerThatMeansNothingAndSaysOnceThatProgramsIgnoreIt)
{
    write(settings(), "{\n\"DefConnPrefer\": 9}");
    DmtData data;
    int value = 0;
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(readNode("DefConnPrefer", data), DMT_OK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              settings() + ":2: DefConnPrefer: expected 0 (WiFi, then cellular), 1 (WiFi only) or "
                           "2 (cellular only), found the number 9; using 0 instead\n");
    ASSERT_EQ(data.GetInt(value).GetCode(), DMT_OK);
    EXPECT_EQ(value, 9);
}

TEST_F(SettingsTree, GivesAnInteger)
{
    write(settings(), "{\"DefConnPrefer\": -7}");
    DmtData data;
    int value = 1;
    ASSERT_EQ(readNode("DefConnPrefer", data), DMT_OK);
    EXPECT_EQ(data.GetType(), 2);
    EXPECT_EQ(data.GetInt(value).GetCode(), DMT_OK);
    EXPECT_EQ(value, -7);
}

TEST_F(SettingsTree, GivesAText)
{
    write(settings(), "{\"Name\": \"\\u7f51\\u7edc\"}");
    DmtData data;
    const char* text = nullptr;
    ASSERT_EQ(readNode("Name", data), DMT_OK);
    EXPECT_EQ(data.GetType(), DMT_TYPE_TEXT);
    EXPECT_EQ(data.GetString(text).GetCode(), DMT_OK);
    EXPECT_STREQ(text, "\xe7\xbd\x91\xe7\xbb\x9c");
}

TEST_F(SettingsTree, GivesATruthValue)
{
    write(settings(), "{\"Roaming\": true}");
    DmtData data;
    bool boolean = false;
    ASSERT_EQ(readNode("Roaming", data), DMT_OK);
    EXPECT_EQ(data.GetType(), DMT_TYPE_BOOL);
    EXPECT_EQ(data.GetBool(boolean).GetCode(), DMT_OK);
    EXPECT_TRUE(boolean);
}

TEST_F(SettingsTree, RefusesAGetterOfAnotherTypeAndLeavesItsArgument)
{
    DmtData text, integer;
    text.SetString("5");
    integer.SetInt(5);
    int value = 77;
    bool boolean = true;
    const char* pointer = "kept";
    EXPECT_EQ(text.GetInt(value).GetCode(), DMT_WRONG_TYPE);
    EXPECT_EQ(DmtData().GetInt(value).GetCode(), DMT_WRONG_TYPE);
    EXPECT_EQ(integer.GetBool(boolean).GetCode(), DMT_WRONG_TYPE);
    EXPECT_EQ(integer.GetString(pointer).GetCode(), DMT_WRONG_TYPE);
    EXPECT_EQ(value, 77);
    EXPECT_TRUE(boolean);
    EXPECT_STREQ(pointer, "kept");
    EXPECT_EQ(DmtData().GetType(), DMT_TYPE_NONE);
}

TEST_F(SettingsTree, HasNoNodesWhereNoSettingWasEverStored)
{
    DmtData data;
    EXPECT_EQ(readNode("DefConnPrefer", data), DMT_NOT_FOUND);
    std::filesystem::remove_all(root);
    EXPECT_EQ(readNode("DefConnPrefer", data), DMT_NOT_FOUND);
}

TEST_F(SettingsTree, FindsANodeByItsExactNameOnly)
{
    write(settings(), "{\"DefConnPrefer\": 1}");
    DmtData data;
    EXPECT_EQ(readNode("defconnprefer", data), DMT_NOT_FOUND);
    EXPECT_EQ(readNode("./DefConnPrefer", data), DMT_NOT_FOUND);
    EXPECT_EQ(readNode("DefConnPrefe", data), DMT_NOT_FOUND);
    EXPECT_EQ(readNode("", data), DMT_NOT_FOUND);
    EXPECT_EQ(readNode(nullptr, data), DMT_NOT_FOUND);
}

TEST_F(SettingsTree, EmptiesTheHandleWhenANodeIsNotFound)
{
    write(settings(), "{\"DefConnPrefer\": 1}");
    DmtTreeHandle tree;
    DmtNodeHandle node;
    ASSERT_EQ(obtain(tree), DMT_OK);
    ASSERT_EQ(tree->GetNode("DefConnPrefer", node).GetCode(), DMT_OK);
    EXPECT_EQ(tree->GetNode("Other", node).GetCode(), DMT_NOT_FOUND);
    EXPECT_TRUE(node.IsEmpty());
}

TEST_F(SettingsTree, SeesWhatAnotherProcessHasChanged)
{
    write(settings(), "{\"DefConnPrefer\": 1}");
    DmtData data;
    ASSERT_EQ(readNode("DefConnPrefer", data), DMT_OK);
    inAnotherProcess([] {
        settingshost::Setting two;
        two.integer = 2;
        return settingshost::setSetting("DefConnPrefer", two).isOk();
    });
    int value = 0;
    ASSERT_EQ(readNode("DefConnPrefer", data), DMT_OK);
    ASSERT_EQ(data.GetInt(value).GetCode(), DMT_OK);
    EXPECT_EQ(value, 2);
}

TEST_F(SettingsTree, IsAPictureOfTheMomentInWhichItWasObtained)
{
    write(settings(), "{\"DefConnPrefer\": 1}");
    DmtTreeHandle tree;
    DmtNodeHandle node;
    DmtData data;
    int value = 0;
    ASSERT_EQ(obtain(tree), DMT_OK);
    write(settings(), "{\"DefConnPrefer\": 2}");
    ASSERT_EQ(tree->GetNode("DefConnPrefer", node).GetCode(), DMT_OK);
    ASSERT_EQ(node->GetValue(data).GetCode(), DMT_OK);
    ASSERT_EQ(data.GetInt(value).GetCode(), DMT_OK);
    EXPECT_EQ(value, 1);
}

TEST_F(SettingsTree, OfABrokenFileIsRefusedAndSaidOnceWithFileAndLine)
{
    write(settings(), "{\n\"DefConnPrefer\" 1}");
    DmtTreeHandle tree;
    testing::internal::CaptureStderr();
    const DmtStatus first = DmtTreeFactory::GetTree(DmtPrincipal("localhost"), tree);
    EXPECT_EQ(obtain(tree), DMT_DAMAGED);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(first.GetCode(), DMT_DAMAGED);
    EXPECT_TRUE(tree.IsEmpty());
    EXPECT_EQ(said.rfind(settings() + ":2: expected JSON, found ", 0), 0U) << said;
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1);
    EXPECT_EQ(said, first.GetMessage() + std::string("\n"));
}

TEST_F(SettingsTree, OfAFileBrokenAgainAfterItWasMendedIsSaidAgain)
{
    DmtTreeHandle tree;
    testing::internal::CaptureStderr();
    for (const char* text : {"{", "{}", "{"}) {
        write(settings(), text);
        obtain(tree);
    }
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 2) << said;
}

TEST_F(SettingsTree, NeedsAnObjectAsTheOutermostValue)
{
    write(settings(), "\n[1]");
    DmtTreeHandle tree;
    testing::internal::CaptureStderr();
    EXPECT_EQ(obtain(tree), DMT_DAMAGED);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              settings() + ":2: expected an object, found an array; using no settings instead\n");
}

TEST_F(SettingsTree, ReadsANodeThoughAnotherIsUnusable)
{
    write(settings(), "{\"Bad\": null, \"DefConnPrefer\": 2}");
    DmtData data;
    EXPECT_EQ(readNode("DefConnPrefer", data), DMT_OK);
}

TEST_F(SettingsTree, IsForTheLocalPrincipalOnly)
{
    DmtTreeHandle tree;
    ASSERT_EQ(obtain(tree), DMT_OK);
    EXPECT_EQ(obtain(tree, "operator"), DMT_NOT_PERMITTED);
    EXPECT_TRUE(tree.IsEmpty());
    DmtPrincipal principal;
    EXPECT_EQ(DmtTreeFactory::GetTree(principal, tree).GetCode(), DMT_NOT_PERMITTED);
    principal.SetName("localhost");
    EXPECT_EQ(DmtTreeFactory::GetTree(principal, tree).GetCode(), DMT_OK);
}

TEST_F(SettingsTree, IsThereUntilTheLastUserHasGone)
{
    DmtTreeHandle tree;
    ASSERT_EQ(DmtTreeFactory::Initialize().GetCode(), DMT_OK);
    DmtTreeFactory::Uninitialize();
    EXPECT_EQ(obtain(tree), DMT_OK);
    DmtTreeFactory::Uninitialize();
    EXPECT_EQ(obtain(tree), DMT_NOT_INITIALIZED);
    DmtTreeFactory::Uninitialize();
    ASSERT_EQ(DmtTreeFactory::Initialize().GetCode(), DMT_OK);
    EXPECT_EQ(obtain(tree), DMT_OK);
}

TEST_F(SettingsTree, StaysWithItsHandlesAfterTheFactoryHasGone)
{
    write(settings(), "{\"DefConnPrefer\": 1}");
    DmtTreeHandle tree;
    DmtNodeHandle node;
    DmtData data;
    ASSERT_EQ(obtain(tree), DMT_OK);
    ASSERT_EQ(tree->GetNode("DefConnPrefer", node).GetCode(), DMT_OK);
    DmtTreeFactory::Uninitialize();
    tree.Release();
    EXPECT_TRUE(tree.IsEmpty());
    EXPECT_EQ(tree.operator->(), nullptr);
    EXPECT_EQ(node->GetValue(data).GetCode(), DMT_OK);
    ASSERT_EQ(DmtTreeFactory::Initialize().GetCode(), DMT_OK);
}

TEST_F(SettingsTree, IsSharedByTheCopiesOfItsHandle)
{
    write(settings(), "{\"DefConnPrefer\": 1}");
    DmtTreeHandle first;
    ASSERT_EQ(obtain(first), DMT_OK);
    DmtTreeHandle second(first);
    DmtTreeHandle third;
    third = second;
    third = *&third;
    EXPECT_EQ(first.operator->(), third.operator->());
    first.Release();
    second.Release();
    DmtNodeHandle node;
    ASSERT_EQ(third->GetNode("DefConnPrefer", node).GetCode(), DMT_OK);
    DmtNodeHandle copy(node);
    node.Release();
    node = copy;
    EXPECT_EQ(node.operator->(), copy.operator->());
}

TEST_F(SettingsTree, IsReadByManyThreadsWhileUsersComeAndGo)
{
    write(settings(), "{\"DefConnPrefer\": 2}");
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 100; ++round) {
                DmtData data;
                int value = 0;
                const bool isStarted = DmtTreeFactory::Initialize().GetCode() == DMT_OK;
                const bool isRead = readNode("DefConnPrefer", data) == DMT_OK;
                DmtTreeFactory::Uninitialize();
                right +=
                    isStarted && isRead && data.GetInt(value).GetCode() == DMT_OK && value == 2;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, 800);
    DmtTreeHandle tree;
    EXPECT_EQ(obtain(tree), DMT_OK);
    DmtTreeFactory::Uninitialize();
    EXPECT_EQ(obtain(tree), DMT_NOT_INITIALIZED);
    ASSERT_EQ(DmtTreeFactory::Initialize().GetCode(), DMT_OK);
}

TEST(SettingsValues, AreCopiedWithWhatTheyHold)
{
    DmtData first;
    first.SetString("one");
    DmtData second(first);
    DmtData third;
    third = first;
    first.SetBool(true);
    const char* text = nullptr;
    ASSERT_EQ(second.GetString(text).GetCode(), DMT_OK);
    EXPECT_STREQ(text, "one");
    ASSERT_EQ(third.GetString(text).GetCode(), DMT_OK);
    EXPECT_STREQ(text, "one");
    second.SetString(nullptr);
    ASSERT_EQ(second.GetString(text).GetCode(), DMT_OK);
    EXPECT_STREQ(text, "");
}

TEST(SettingsStatus, CarriesAMessageThatCanBeSet)
{
    DmtStatus status(DMT_NOT_FOUND, "gone");
    const DmtStatus copy(status);
    status.SetMessage("Refer error code for more information.");
    EXPECT_STREQ(status.GetMessage(), "Refer error code for more information.");
    EXPECT_EQ(status.GetCode(), DMT_NOT_FOUND);
    EXPECT_STREQ(copy.GetMessage(), "gone");
    status.SetMessage(nullptr);
    EXPECT_STREQ(status.GetMessage(), "");
    status = copy;
    EXPECT_STREQ(status.GetMessage(), "gone");
    EXPECT_EQ(DmtStatus().GetCode(), DMT_OK);
}

struct Row
{
    const char* name;
    const char* text;
    const char* said; // what is said after file, line and key
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class UnusableNode : public SettingsTree, public testing::WithParamInterface<Row>
{};

TEST_P(UnusableNode, HasNoValueAndIsSaidOnce)
{
    write(settings(), std::string("{\n\n\"Node\": ") + GetParam().text + "}");
    DmtData data;
    data.SetInt(5);
    testing::internal::CaptureStderr();
    EXPECT_EQ(readNode("Node", data), DMT_NO_VALUE);
    EXPECT_EQ(readNode("Node", data), DMT_NO_VALUE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              settings() +
                  ":3: Node: expected an integer from -2147483648 to 2147483647, a text without "
                  "NUL or a truth value, found " +
                  GetParam().said + "; using no value instead\n");
    int value = 0;
    EXPECT_EQ(data.GetInt(value).GetCode(), DMT_OK);
    EXPECT_EQ(value, 5);
}

INSTANTIATE_TEST_SUITE_P(
    Values, UnusableNode,
    testing::Values(Row{"Null", "null", "null"}, Row{"Fraction", "1.5", "the number 1.5"},
                    Row{"OneAbove32Bits", "2147483648", "the number 2147483648"},
                    Row{"OneBelow32Bits", "-2147483649", "the number -2147483649"},
                    Row{"Above64Bits", "18446744073709551616", "the number 18446744073709551616"},
                    Row{"Array", "[1]", "an array"}, Row{"Object", "{\"a\": 1}", "an object"},
                    Row{"TextWithNul", "\"a\\u0000b\"", "the text \"a\\u0000b\""}),
    [](const auto& row) { return std::string(row.param.name); });

class LimitNode : public SettingsTree, public testing::WithParamInterface<int>
{};

TEST_P(LimitNode, IsRead)
{
    write(settings(), "{\"Node\": " + std::to_string(GetParam()) + "}");
    DmtData data;
    int value = 0;
    ASSERT_EQ(readNode("Node", data), DMT_OK);
    ASSERT_EQ(data.GetInt(value).GetCode(), DMT_OK);
    EXPECT_EQ(value, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Values, LimitNode, testing::Values(INT32_MIN, -1, 0, INT32_MAX));

TEST(SettingsFactory, NeedsAFolderForTheFileSystem)
{
    const char* const roots[] = {"relative/path", "/dev/null", "/dev/null/below"};
    for (const char* root : roots) {
        ::setenv("VORN_ROOT", root, 1);
        EXPECT_EQ(DmtTreeFactory::Initialize().GetCode(), DMT_NO_STORAGE) << root;
    }
    ::unsetenv("VORN_ROOT");
    DmtTreeHandle tree;
    EXPECT_EQ(DmtTreeFactory::GetTree(DmtPrincipal("localhost"), tree).GetCode(),
              DMT_NOT_INITIALIZED);
}

TEST_F(SettingsTree, IsRefusedWhenItsFolderHasBecomeAFile)
{
    std::filesystem::remove_all(root + "/etc");
    write(root + "/etc", "");
    DmtTreeHandle tree;
    testing::internal::CaptureStderr();
    EXPECT_EQ(obtain(tree), DMT_NO_STORAGE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), root + "/etc: not a folder\n");
}

// Heap that the tree of this file takes, in bytes.
std::size_t heapOfTree(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
    DmtTreeHandle tree;
    const std::size_t before = ::mallinfo2().uordblks + ::mallinfo2().hblkhd;
    EXPECT_EQ(DmtTreeFactory::GetTree(DmtPrincipal("localhost"), tree).GetCode(), DMT_OK);
    return ::mallinfo2().uordblks + ::mallinfo2().hblkhd - before;
}

std::string members(const std::string& value)
{
    std::string text = "{";
    for (int i = 0; text.size() < 1000000; ++i)
        text += (i ? ",\"n" : "\"n") + std::to_string(1000000 + i) + "\":" + value;
    return text + "}";
}

// A sentence about each of 70,000 wrong values would be a dozen megabytes.
TEST_F(SettingsTree, OfAFileFullOfWrongValuesTakesNoMoreThanOneFullOfGoodOnes)
{
    const std::size_t good = heapOfTree(settings(), members("7"));
    const std::size_t wrong = heapOfTree(settings(), members("[]"));
    EXPECT_LT(wrong, good + 4000000);
    DmtTreeHandle tree;
    DmtNodeHandle node;
    DmtData data;
    ASSERT_EQ(obtain(tree), DMT_OK);
    ASSERT_EQ(tree->GetNode("n1050000", node).GetCode(), DMT_OK);
    testing::internal::CaptureStderr();
    EXPECT_EQ(node->GetValue(data).GetCode(), DMT_NO_VALUE) << "it is wrong all the same";
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

// Whether a child that is forked now can read the node, too.
bool isReadByAChild(const DmtNodeHandle& node)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(5);
        DmtData data;
        ::_exit(node->GetValue(data).GetCode() == DMT_NO_VALUE ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Another thread may be about to tell what is wrong just then, and is not there in the child.
TEST_F(SettingsTree, CanBeReadInAForkedChildWhateverOtherThreadsDo)
{
    write(settings(), R"({"a": []})");
    DmtTreeHandle tree;
    DmtNodeHandle node;
    ASSERT_EQ(obtain(tree), DMT_OK);
    ASSERT_EQ(tree->GetNode("a", node).GetCode(), DMT_OK);
    testing::internal::CaptureStderr();
    std::atomic<bool> isOver{false};
    const auto read = [&] {
        for (DmtData data; !isOver;)
            node->GetValue(data);
    };
    std::thread first(read), second(read);
    int children = 0;
    while (children < 60 && isReadByAChild(node))
        ++children;
    isOver = true;
    first.join();
    second.join();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(children, 60);
}

} // namespace
