#include "base/json_document.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/json_tree.h"
#include "base/regular_file.h"

namespace base {

namespace {

constexpr std::size_t maximumSize = 4 * 1024 * 1024;

// What stands in the place of a file that can be read.
std::string foundFor(int error)
{
    switch (error) {
    case IsFolder:
        return "a folder";
    case IsNoRegularFile:
        return "something that is no regular file";
    case IsTooLarge:
        return "more than 4 MiB";
    default:
        return std::string("one that cannot be read (") + std::strerror(error) + ')';
    }
}

bool isKnown(const JsonAsked& asked, const std::string& name)
{
    return asked.allKnown || asked.names.empty() ||
           std::find(asked.names.begin(), asked.names.end(), name) != asked.names.end();
}

std::string knownKeys(const JsonAsked& asked)
{
    std::string known;
    for (const std::string& name : asked.names)
        known += (known.empty() ? "" : ", ") + name;
    return "one of the keys " + known;
}

void collectUnknown(JsonTree& tree, const JsonNode& node, const std::string& key,
                    const std::string& used)
{
    const auto found = tree.asked.find(&node);
    const JsonAsked asked = found == tree.asked.end() ? JsonAsked() : found->second;
    std::size_t index = 0;
    for (const JsonNode* each = tree.firstOf(node); each; each = tree.nextOf(*each)) {
        const bool isElement = node.kind == JsonKind::Array;
        const std::string name = isElement ? "" : tree.nameOf(*each);
        if (!isElement && !isKnown(asked, name))
            tree.report(tree.lineAt(tree.names[each->name].begin), memberKey(key, name),
                        knownKeys(asked), "an unknown key", used);
        else if (each->first != 0)
            collectUnknown(
                tree, *each,
                isElement ? key + '[' + std::to_string(index) + ']' : memberKey(key, name), used);
        ++index;
    }
}

} // namespace

JsonDocument::JsonDocument(std::unique_ptr<JsonTree> tree) : m_tree(std::move(tree)) {}
JsonDocument::JsonDocument(JsonDocument&&) noexcept = default;
JsonDocument& JsonDocument::operator=(JsonDocument&&) noexcept = default;
JsonDocument::~JsonDocument() = default;

JsonDocument JsonDocument::read(const std::string& path, const std::string& used)
{
    std::string bytes;
    const int error = readRegularFile(path, maximumSize, &bytes);
    if (error == 0)
        return parse(std::move(bytes), path, used);
    auto tree = std::make_unique<JsonTree>();
    tree->path = path;
    tree->state = error == ENOENT ? State::Missing : State::Unreadable;
    if (tree->state == State::Unreadable) {
        tree->error = std::max(error, 0);
        tree->refuse(0, "a readable file", foundFor(error), used);
    }
    return JsonDocument(std::move(tree));
}

JsonDocument JsonDocument::parse(std::string text, const std::string& path, const std::string& used)
{
    auto tree = std::make_unique<JsonTree>();
    tree->path = path;
    tree->source = std::move(text);
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
    return {m_tree.get(), m_tree->state == State::Good ? &m_tree->root() : nullptr, {}};
}

void JsonDocument::rejectUnknownKeys(const std::string& used)
{
    if (m_tree->state == State::Good)
        collectUnknown(*m_tree, m_tree->root(), {}, used);
}

std::size_t JsonDocument::problemsLeftOut() const
{
    return m_tree->unreported;
}

const JsonProblem& JsonDocument::refusal() const
{
    return m_tree->refusal;
}

std::vector<JsonProblem> JsonDocument::problems() const
{
    std::vector<JsonProblem> sorted = m_tree->problems;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const JsonProblem& a, const JsonProblem& b) { return a.line < b.line; });
    if (m_tree->unreported > 0)
        sorted.push_back({sorted.back().line,
                          {},
                          "at most " + std::to_string(sorted.size()) + " problems",
                          std::to_string(m_tree->unreported) + " more",
                          {}});
    return sorted;
}

} // namespace base
