#include "base/json_document.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/json_tree.h"
#include "base/regular_file.h"

namespace base {

namespace {

constexpr std::size_t kMaximumSize = 4 * 1024 * 1024;

// What stands in the place of a file that can be read.
std::string foundFor(int error)
{
    switch (error) {
    case kIsFolder:
        return "a folder";
    case kIsNoRegularFile:
        return "something that is no regular file";
    case kIsTooLarge:
        return "more than 4 MiB";
    default:
        return std::string("one that cannot be read (") + std::strerror(error) + ')';
    }
}

void collectUnknown(JsonTree& tree, const JsonNode& node, const std::string& key,
                    const std::string& used)
{
    std::string known;
    for (const std::string& name : node.asked)
        known += (known.empty() ? "" : ", ") + name;
    for (const JsonMember& member : node.members) {
        const std::string path = memberKey(key, member.name);
        if (!node.allKnown && !node.asked.empty() &&
            std::find(node.asked.begin(), node.asked.end(), member.name) == node.asked.end())
            tree.report(member.line, path, "one of the keys " + known, "an unknown key", used);
        else
            collectUnknown(tree, member.value, path, used);
    }
    for (std::size_t i = 0; i < node.elements.size(); ++i)
        collectUnknown(tree, node.elements[i], key + '[' + std::to_string(i) + ']', used);
}

} // namespace

JsonDocument::JsonDocument(std::unique_ptr<JsonTree> tree) : m_tree(std::move(tree)) {}
JsonDocument::JsonDocument(JsonDocument&&) noexcept = default;
JsonDocument& JsonDocument::operator=(JsonDocument&&) noexcept = default;
JsonDocument::~JsonDocument() = default;

JsonDocument JsonDocument::read(const std::string& path, const std::string& used)
{
    std::string bytes;
    const int error = readRegularFile(path, kMaximumSize, &bytes);
    if (error == 0)
        return parse(bytes, path, used);
    auto tree = std::make_unique<JsonTree>();
    tree->path = path;
    tree->state = error == ENOENT ? State::Missing : State::Unreadable;
    if (tree->state == State::Unreadable) {
        tree->error = std::max(error, 0);
        tree->report(0, {}, "a readable file", foundFor(error), used);
    }
    return JsonDocument(std::move(tree));
}

JsonDocument JsonDocument::parse(const std::string& text, const std::string& path,
                                 const std::string& used)
{
    auto tree = std::make_unique<JsonTree>();
    tree->path = path;
    tree->source = text;
    parseTree(*tree, used);
    return JsonDocument(std::move(tree));
}

JsonDocument::State JsonDocument::state() const
{
    return m_tree->state;
}

int JsonDocument::error() const
{
    return m_tree->error;
}

const std::string& JsonDocument::path() const
{
    return m_tree->path;
}

const std::string& JsonDocument::source() const
{
    return m_tree->source;
}

JsonValue JsonDocument::root() const
{
    return {m_tree.get(), m_tree->state == State::Good ? &m_tree->root : nullptr, {}};
}

void JsonDocument::rejectUnknownKeys(const std::string& used)
{
    if (m_tree->state == State::Good)
        collectUnknown(*m_tree, m_tree->root, {}, used);
}

std::vector<JsonProblem> JsonDocument::problems() const
{
    std::vector<JsonProblem> sorted = m_tree->problems;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const JsonProblem& a, const JsonProblem& b) { return a.line < b.line; });
    return sorted;
}

} // namespace base
