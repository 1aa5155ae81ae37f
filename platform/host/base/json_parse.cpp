#include "base/json_tree.h"

#include <climits>
#include <iterator>

#include <nlohmann/json.hpp>

namespace base {

using nlohmann::json;

namespace {

// How deep arrays and objects may be nested; the tree is taken down recursively.
constexpr std::size_t kMaximumDepth = 100;

// Counts the lines as the parser consumes the text. The parser looks one character past a number,
// so the newline consumed last is not counted yet; no token ends in a newline.
struct Progress
{
    const char* begin;
    const char* counted;
    const char* consumed;
    int line = 1;

    std::size_t offset() const { return static_cast<std::size_t>(consumed - begin); }

    // Of the byte consumed last, in its line; 1 is the first one.
    std::size_t column() const
    {
        const char* start = consumed > begin ? consumed - 1 : begin;
        for (; start > begin && start[-1] != '\n'; --start) {
        }
        return static_cast<std::size_t>(consumed - start);
    }

    int currentLine()
    {
        for (; counted + 1 < consumed; ++counted)
            line += *counted == '\n';
        return line;
    }
};

class CountingIterator
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* at, Progress* progress) : m_at(at), m_progress(progress) {}
    reference operator*() const { return *m_at; }
    CountingIterator& operator++()
    {
        m_progress->consumed = ++m_at;
        return *this;
    }
    CountingIterator operator++(int)
    {
        const CountingIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const CountingIterator& other) const { return m_at == other.m_at; }
    bool operator!=(const CountingIterator& other) const { return m_at != other.m_at; }

private:
    const char* m_at;
    Progress* m_progress;
};

// Builds the tree from the parser's events; the names of the functions are the parser's.
class TreeBuilder
{
public:
    TreeBuilder(JsonTree& tree, Progress& progress, const std::string& used)
        : m_tree(tree), m_progress(progress), m_used(used)
    {}

    bool null() { return add(JsonKind::Null) != nullptr; }
    bool boolean(bool value)
    {
        add(JsonKind::Truth)->truth = value;
        return true;
    }
    bool number_integer(json::number_integer_t value)
    {
        JsonNode* node = add(JsonKind::Integer);
        node->integer = value;
        node->text = std::to_string(value);
        return true;
    }
    bool number_unsigned(json::number_unsigned_t value)
    {
        if (value <= static_cast<json::number_unsigned_t>(LLONG_MAX))
            return number_integer(static_cast<json::number_integer_t>(value));
        add(JsonKind::Number)->text = std::to_string(value);
        return true;
    }
    bool number_float(json::number_float_t, const json::string_t& literal)
    {
        add(JsonKind::Number)->text = literal;
        return true;
    }
    bool string(json::string_t& value)
    {
        add(JsonKind::Text)->text = value;
        return true;
    }
    bool binary(json::binary_t&) { return false; }

    bool start_object(std::size_t) { return open(JsonKind::Object); }
    bool start_array(std::size_t) { return open(JsonKind::Array); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(json::string_t& name)
    {
        JsonNode& object = *m_open.back().node;
        const int line = m_progress.currentLine();
        m_current = object.find(name);
        if (m_current)
            m_tree.report(line, memberKey(m_open.back().key, name), "each key once",
                          "the key again after line " + std::to_string(m_current->line),
                          "the last one");
        else
            m_current = &object.add(name);
        m_current->line = line;
        m_current->nameEnd = m_progress.offset();
        return true;
    }

    bool parse_error(std::size_t, const std::string&, const json::exception& error)
    {
        return fail("JSON", finding(error.what()));
    }

    // The parser takes a NUL for the end of the text, whatever follows it.
    bool endsAtNul() const
    {
        return m_progress.consumed > m_progress.begin && m_progress.consumed[-1] == '\0';
    }

    bool refuseNul() { return fail("JSON", finding({})); }

private:
    struct Open
    {
        JsonNode* node;
        std::string key;
    };

    // The parser's own words name its tokens and states; a person is helped by the place.
    std::string finding(const std::string& message)
    {
        if (endsAtNul())
            return "a NUL byte at column " + std::to_string(m_progress.column());
        if (message.find("unexpected end of input") != std::string::npos)
            return "the end of the file";
        if (message.find("number overflow") != std::string::npos)
            return "a number that is too large";
        return "a syntax error at column " + std::to_string(m_progress.column());
    }

    bool fail(const std::string& expected, const std::string& found)
    {
        m_tree.report(m_progress.currentLine(), {}, expected, found, m_used);
        return false;
    }

    // The parser has looked one character past a number, except at the end of the text, where
    // nothing is ever replaced.
    static bool isNumber(JsonKind kind)
    {
        return kind == JsonKind::Integer || kind == JsonKind::Number;
    }

    std::size_t valueBegin(std::size_t nameEnd) const
    {
        return m_tree.source.find_first_not_of(": \t\r\n", nameEnd);
    }

    JsonNode* add(JsonKind kind)
    {
        JsonNode* node = &m_tree.root;
        if (!m_open.empty() && m_open.back().node->kind == JsonKind::Array) {
            m_open.back().node->elements.emplace_back();
            node = &m_open.back().node->elements.back();
        } else if (!m_open.empty()) {
            node = &m_current->value;
        }
        *node = JsonNode();
        node->kind = kind;
        node->line = m_progress.currentLine();
        node->end = m_progress.offset() - (isNumber(kind) ? 1 : 0);
        if (!m_open.empty() && m_open.back().node->kind == JsonKind::Object)
            node->begin = valueBegin(m_current->nameEnd);
        else
            node->begin = node->end - 1;
        return node;
    }

    bool open(JsonKind kind)
    {
        if (m_open.size() == kMaximumDepth)
            return fail("at most " + std::to_string(kMaximumDepth) + " levels of nesting", "more");
        std::string key = openingKey();
        m_open.push_back({add(kind), std::move(key)});
        return true;
    }

    std::string openingKey() const
    {
        if (m_open.empty())
            return {};
        const Open& outer = m_open.back();
        if (outer.node->kind == JsonKind::Array)
            return outer.key + '[' + std::to_string(outer.node->elements.size()) + ']';
        return memberKey(outer.key, m_current->name);
    }

    bool close()
    {
        m_open.back().node->end = m_progress.offset();
        m_open.pop_back();
        return true;
    }

    JsonTree& m_tree;
    Progress& m_progress;
    const std::string& m_used;
    std::vector<Open> m_open;
    JsonMember* m_current = nullptr; // the member whose value comes next
};

} // namespace

void parseTree(JsonTree& tree, const std::string& used)
{
    const char* begin = tree.source.data();
    Progress progress{begin, begin, begin};
    TreeBuilder builder(tree, progress, used);
    bool good = json::sax_parse(CountingIterator(begin, &progress),
                                CountingIterator(begin + tree.source.size(), &progress), &builder);
    if (good && builder.endsAtNul())
        good = builder.refuseNul();
    tree.state = good ? JsonDocument::State::Good : JsonDocument::State::Broken;
}

} // namespace base
