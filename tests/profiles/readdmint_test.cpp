// The settings library is this program's own: each of its calls is recorded and comes to what the
// test says.
#include "profiles/readdmint.h"

#include <dmt.h>

#include "profiles/recorder.h"

using recorder::Calls;
using recorder::calls;
using recorder::note;

namespace {

// What the calls come to; everything succeeds in the beginning.
struct Script
{
    int initialize = 0;
    int getTree = 0;
    int getNode = 0;
    int getValue = 0;
    int getInt = 0;
    int type = 2;
    int integer = 7;
};

Script script;
int heldTrees = 0;
int heldNodes = 0;
int heldData = 0;
int heldStatuses = 0;
int heldPrincipals = 0;
std::vector<std::string> messages;

} // namespace

struct DmtStatus::Private
{
    int code;
};

DmtStatus::DmtStatus(int code, const char*) : d(new Private{code})
{
    ++heldStatuses;
}
DmtStatus::DmtStatus(const DmtStatus& other) : d(new Private(*other.d))
{
    ++heldStatuses;
}
DmtStatus::~DmtStatus()
{
    --heldStatuses;
    delete d;
}
int DmtStatus::GetCode() const
{
    return d->code;
}
void DmtStatus::SetMessage(const char* message)
{
    messages.push_back(message);
}

struct DmtPrincipal::Private
{
    std::string name;
};

DmtPrincipal::DmtPrincipal(const char* name) : d(new Private{name})
{
    ++heldPrincipals;
}
DmtPrincipal::~DmtPrincipal()
{
    --heldPrincipals;
    delete d;
}
void DmtPrincipal::SetName(const char* name)
{
    d->name = std::string(name);
}
const char* DmtPrincipal::GetName() const
{
    return d->name.c_str();
}

DmtData::DmtData() : d(nullptr)
{
    ++heldData;
}
DmtData::~DmtData()
{
    --heldData;
}
int DmtData::GetType() const
{
    return script.type;
}
DmtStatus DmtData::GetInt(int& value) const
{
    note("GetInt");
    value = script.integer;
    return DmtStatus(script.getInt);
}

DmtNode::DmtNode(Private*) : d(nullptr) {}
DmtNode::~DmtNode() {}
DmtStatus DmtNode::GetValue(DmtData&) const
{
    note("GetValue");
    return DmtStatus(script.getValue);
}

DmtNodeHandle::DmtNodeHandle() : d(nullptr) {}
DmtNodeHandle::~DmtNodeHandle()
{
    Release();
}
DmtNode* DmtNodeHandle::operator->() const
{
    return d;
}
void DmtNodeHandle::Release()
{
    if (d) {
        note("release node");
        --heldNodes;
    }
    d = nullptr;
}

struct DmtTree::Private
{
    static DmtNode* node()
    {
        alignas(DmtNode) static unsigned char place[sizeof(DmtNode)];
        return reinterpret_cast<DmtNode*>(place);
    }
};

DmtTree::DmtTree(Private*) : d(nullptr) {}
DmtTree::~DmtTree() {}
DmtStatus DmtTree::GetNode(const char* name, DmtNodeHandle& node) const
{
    note(std::string("GetNode ") + name);
    if (script.getNode == 0) {
        node.d = Private::node();
        ++heldNodes;
    }
    return DmtStatus(script.getNode);
}

DmtTreeHandle::DmtTreeHandle() : d(nullptr) {}
DmtTreeHandle::~DmtTreeHandle()
{
    Release();
}
DmtTree* DmtTreeHandle::operator->() const
{
    return d;
}
void DmtTreeHandle::Release()
{
    if (d) {
        note("release tree");
        --heldTrees;
    }
    d = nullptr;
}

DmtStatus DmtTreeFactory::Initialize()
{
    note("Initialize");
    return DmtStatus(script.initialize);
}
void DmtTreeFactory::Uninitialize()
{
    note("Uninitialize");
}
DmtStatus DmtTreeFactory::GetTree(const DmtPrincipal& principal, DmtTreeHandle& tree)
{
    alignas(DmtTree) static unsigned char place[sizeof(DmtTree)];
    note(std::string("GetTree ") + principal.GetName());
    if (script.getTree == 0) {
        tree.d = reinterpret_cast<DmtTree*>(place);
        ++heldTrees;
    }
    return DmtStatus(script.getTree);
}

namespace {

class ReadDmInt : public recorder::Recording
{
protected:
    ReadDmInt()
    {
        script = Script();
        messages.clear();
    }
    ~ReadDmInt() override
    {
        EXPECT_EQ(heldTrees, 0);
        EXPECT_EQ(heldNodes, 0);
        EXPECT_EQ(heldData, 0);
        EXPECT_EQ(heldStatuses, 0);
        EXPECT_EQ(heldPrincipals, 0);
    }

    int value = 99;
};

TEST_F(ReadDmInt, StoresTheIntegerOfTheNode)
{
    EXPECT_EQ(readDmInt("DefConnPrefer", value), 1);
    EXPECT_EQ(value, 7);
}

TEST_F(ReadDmInt, CallsTheSettingsLibraryInOrderAndReleasesTheNodeBeforeTheTree)
{
    readDmInt("DefConnPrefer", value);
    EXPECT_EQ(calls(),
              (Calls{"Initialize", "GetTree localhost", "GetNode DefConnPrefer", "GetValue",
                     "GetInt", "release node", "release tree", "Uninitialize"}));
}

TEST_F(ReadDmInt, PassesTheNameAsItIsGiven)
{
    readDmInt("./a b", value);
    EXPECT_EQ(calls()[2], "GetNode ./a b");
}

TEST_F(ReadDmInt, StartsAndEndsTheTreeOnEachRead)
{
    readDmInt("DefConnPrefer", value);
    const Calls once = calls();
    script.integer = 8;
    EXPECT_EQ(readDmInt("DefConnPrefer", value), 1);
    EXPECT_EQ(value, 8);
    Calls twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(calls(), twice);
}

TEST_F(ReadDmInt, SetsTheMessageOfEachStatus)
{
    readDmInt("DefConnPrefer", value);
    EXPECT_EQ(messages, std::vector<std::string>(5, "Refer error code for more information."));
}

struct Failure
{
    const char* name;
    int Script::*call; // whose value is not as it should be
    int value;
    Calls calls;
};

void PrintTo(const Failure& row, std::ostream* out)
{
    *out << row.name;
}

class FailingReadDmInt : public ReadDmInt, public testing::WithParamInterface<Failure>
{};

TEST_P(FailingReadDmInt, LogsItAndLeavesTheValue)
{
    script.*GetParam().call = GetParam().value;
    EXPECT_EQ(readDmInt("N", value), 0);
    EXPECT_EQ(value, 99);
    EXPECT_EQ(calls(), GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, FailingReadDmInt,
    testing::Values(
        Failure{"Initialize",
                &Script::initialize,
                3,
                {"Initialize", "log: DM Tree initialization failed"}},
        Failure{"NegativeInitialize",
                &Script::initialize,
                -1,
                {"Initialize", "log: DM Tree initialization failed"}},
        Failure{"GetTree",
                &Script::getTree,
                1,
                {"Initialize", "GetTree localhost", "log: Getting DM Tree Failed", "Uninitialize"}},
        Failure{"GetNode",
                &Script::getNode,
                1,
                {"Initialize", "GetTree localhost", "GetNode N", "log: Getting DM Tree Node Failed",
                 "release tree", "Uninitialize"}},
        Failure{"GetValue",
                &Script::getValue,
                1,
                {"Initialize", "GetTree localhost", "GetNode N", "GetValue",
                 "log: Getting DM Tree Node Value failed", "release node", "release tree",
                 "Uninitialize"}},
        Failure{"NoType",
                &Script::type,
                0,
                {"Initialize", "GetTree localhost", "GetNode N", "GetValue",
                 "log: Data Type is not correct", "release node", "release tree", "Uninitialize"}},
        Failure{"TextType",
                &Script::type,
                1,
                {"Initialize", "GetTree localhost", "GetNode N", "GetValue",
                 "log: Data Type is not correct", "release node", "release tree", "Uninitialize"}},
        Failure{"BooleanType",
                &Script::type,
                3,
                {"Initialize", "GetTree localhost", "GetNode N", "GetValue",
                 "log: Data Type is not correct", "release node", "release tree", "Uninitialize"}},
        Failure{"NegativeType",
                &Script::type,
                -2,
                {"Initialize", "GetTree localhost", "GetNode N", "GetValue",
                 "log: Data Type is not correct", "release node", "release tree", "Uninitialize"}},
        Failure{"GetInt",
                &Script::getInt,
                1,
                {"Initialize", "GetTree localhost", "GetNode N", "GetValue", "GetInt",
                 "log: Get INT valu failed", "release node", "release tree", "Uninitialize"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ReadDmInt, RefusesANullNameBeforeItTouchesTheTree)
{
    EXPECT_EQ(readDmInt(nullptr, value), 0);
    EXPECT_EQ(value, 99);
    EXPECT_EQ(calls(), Calls{"log: Node Name is NULL"});
}

} // namespace
