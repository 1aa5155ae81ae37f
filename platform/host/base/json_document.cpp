#include "base/json_document.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/json_tree.h"

namespace base {

namespace {

constexpr off_t kMaximumSize = 4 * 1024 * 1024;

// What is wrong with a file: the errno of a call, or something that no call has told.
struct Wrong
{
    int error = 0;
    std::string text;

    static Wrong ofErrno() { return {errno, {}}; }
    bool isWrong() const { return error != 0 || !text.empty(); }
    std::string found() const
    {
        return error == 0 ? text
                          : std::string("one that cannot be read (") + std::strerror(error) + ')';
    }
};

Wrong readAll(int descriptor, std::string& bytes)
{
    char block[16384];
    for (;;) {
        const ssize_t got = ::read(descriptor, block, sizeof block);
        if (got == 0)
            return {};
        if (got < 0 && errno != EINTR)
            return Wrong::ofErrno();
        if (got > 0)
            bytes.append(block, static_cast<std::size_t>(got));
        if (bytes.size() > static_cast<std::size_t>(kMaximumSize))
            return {0, "more than 4 MiB"};
    }
}

// O_NONBLOCK keeps a pipe in the file's place from holding the program up.
Wrong readFile(const std::string& path, std::string& bytes)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return Wrong::ofErrno();
    struct stat status;
    Wrong wrong;
    if (::fstat(descriptor, &status) != 0)
        wrong = Wrong::ofErrno();
    else if (!S_ISREG(status.st_mode))
        wrong.text = S_ISDIR(status.st_mode) ? "a folder" : "something that is no regular file";
    else
        wrong = readAll(descriptor, bytes);
    ::close(descriptor);
    return wrong;
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
    const Wrong wrong = readFile(path, bytes);
    if (!wrong.isWrong())
        return parse(bytes, path, used);
    auto tree = std::make_unique<JsonTree>();
    tree->path = path;
    tree->state = wrong.error == ENOENT ? State::Missing : State::Unreadable;
    if (tree->state == State::Unreadable) {
        tree->error = wrong.error;
        tree->report(0, {}, "a readable file", wrong.found(), used);
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
