// The tree, its nodes, the handles that count references to them, and the factory.
#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "dmt.h"
#include "settings/settings_files.h"

using settingsfiles::Leaf;
using settingshost::Setting;

struct DmtNode::Private
{
    Leaf leaf;
    std::atomic<int> references{1};
};

struct DmtTree::Private
{
    std::map<std::string, Leaf> leaves;
    std::atomic<int> references{1};
};

DmtNode::DmtNode(Private* state) : d(state) {}

DmtNode::~DmtNode()
{
    delete d;
}

DmtStatus DmtNode::GetValue(DmtData& data) const
{
    const Leaf& leaf = d->leaf;
    settingsfiles::sayOnce(settingshost::settingsFile() + ' ' + leaf.name,
                           leaf.problem.empty() ? leaf.ignored : leaf.problem);
    if (!leaf.problem.empty())
        return DmtStatus(DMT_NO_VALUE, leaf.problem.c_str());
    switch (leaf.value.type) {
    case Setting::Type::Integer:
        data.SetInt(leaf.value.integer);
        break;
    case Setting::Type::Text:
        data.SetString(leaf.value.text.c_str());
        break;
    case Setting::Type::Boolean:
        data.SetBool(leaf.value.boolean);
        break;
    }
    return DmtStatus();
}

DmtNodeHandle::DmtNodeHandle() : d(nullptr) {}

DmtNodeHandle::DmtNodeHandle(const DmtNodeHandle& other) : d(other.d)
{
    if (d)
        ++d->d->references;
}

DmtNodeHandle& DmtNodeHandle::operator=(const DmtNodeHandle& other)
{
    DmtNodeHandle copy(other);
    std::swap(d, copy.d);
    return *this;
}

DmtNodeHandle::~DmtNodeHandle()
{
    Release();
}

bool DmtNodeHandle::IsEmpty() const
{
    return !d;
}

DmtNode* DmtNodeHandle::operator->() const
{
    return d;
}

void DmtNodeHandle::Release()
{
    DmtNode* node = std::exchange(d, nullptr);
    if (node && --node->d->references == 0)
        delete node;
}

DmtTree::DmtTree(Private* state) : d(state) {}

DmtTree::~DmtTree()
{
    delete d;
}

DmtStatus DmtTree::GetNode(const char* name, DmtNodeHandle& node) const
{
    node.Release();
    if (!name)
        return DmtStatus(DMT_NOT_FOUND, "no name was given");
    const auto found = d->leaves.find(name);
    if (found == d->leaves.end())
        return DmtStatus(DMT_NOT_FOUND, ("there is no node " + std::string(name)).c_str());
    auto state = std::make_unique<DmtNode::Private>();
    state->leaf = found->second;
    node.d = new DmtNode(state.get());
    state.release();
    return DmtStatus();
}

DmtTreeHandle::DmtTreeHandle() : d(nullptr) {}

DmtTreeHandle::DmtTreeHandle(const DmtTreeHandle& other) : d(other.d)
{
    if (d)
        ++d->d->references;
}

DmtTreeHandle& DmtTreeHandle::operator=(const DmtTreeHandle& other)
{
    DmtTreeHandle copy(other);
    std::swap(d, copy.d);
    return *this;
}

DmtTreeHandle::~DmtTreeHandle()
{
    Release();
}

bool DmtTreeHandle::IsEmpty() const
{
    return !d;
}

DmtTree* DmtTreeHandle::operator->() const
{
    return d;
}

void DmtTreeHandle::Release()
{
    DmtTree* tree = std::exchange(d, nullptr);
    if (tree && --tree->d->references == 0)
        delete tree;
}

namespace {

std::atomic<int> users{0};

} // namespace

DmtStatus DmtTreeFactory::Initialize()
{
    const settingshost::Result root = settingsfiles::checkRoot();
    if (!root.isOk())
        return DmtStatus(DMT_NO_STORAGE, root.message.c_str());
    ++users;
    return DmtStatus();
}

void DmtTreeFactory::Uninitialize()
{
    int before = users;
    while (before > 0 && !users.compare_exchange_weak(before, before - 1)) {
    }
}

DmtStatus DmtTreeFactory::GetTree(const DmtPrincipal& principal, DmtTreeHandle& tree)
{
    tree.Release();
    if (users == 0)
        return DmtStatus(DMT_NOT_INITIALIZED, "the settings library is not initialised");
    if (std::string(principal.GetName()) != "localhost")
        return DmtStatus(DMT_NOT_PERMITTED, "only localhost has access to the settings");
    std::vector<Leaf> leaves;
    const settingshost::Result result = settingsfiles::readLeaves(&leaves, "no settings");
    settingsfiles::sayOnce(settingshost::settingsFile(), result.message);
    if (!result.isOk())
        return DmtStatus(settingsfiles::checkRoot().isOk() ? DMT_DAMAGED : DMT_NO_STORAGE,
                         result.message.c_str());
    auto state = std::make_unique<DmtTree::Private>();
    for (const Leaf& leaf : leaves)
        state->leaves[leaf.name] = leaf;
    tree.d = new DmtTree(state.get());
    state.release();
    return DmtStatus();
}
