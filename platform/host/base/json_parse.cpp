#include "base/json_tree.h"

#include <algorithm>
#include <climits>
#include <iterator>

#include <nlohmann/json.hpp>

namespace base {

using nlohmann::json;

namespace {

// How deep arrays and objects may be nested; the tree is taken down recursively.
constexpr std::size_t maximumDepth = 100;

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
        : m_tree(tree),
          m_progress(progress),
          m_used(used),
          m_last(tree.source.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0)
    {}

    bool null() { return add(JsonKind::Null); }
    bool boolean(bool) { return add(JsonKind::Boolean); }
    bool number_integer(json::number_integer_t) { return add(JsonKind::Integer); }
    bool number_unsigned(json::number_unsigned_t value)
    {
        const bool fits = value <= static_cast<json::number_unsigned_t>(LLONG_MAX);
        return add(fits ? JsonKind::Integer : JsonKind::Number);
    }
    bool number_float(json::number_float_t, const json::string_t&) { return add(JsonKind::Number); }
    bool string(json::string_t&) { return add(JsonKind::Text); }
    bool binary(json::binary_t&) { return false; }

    bool start_object(std::size_t) { return open(JsonKind::Object); }
    bool start_array(std::size_t) { return open(JsonKind::Array); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(json::string_t& name)
    {
        Open& object = m_open.back();
        const auto begin = m_tree.source.find_first_not_of(between, m_last);
        const JsonName place = {static_cast<uint32_t>(begin), offset()};
        m_last = place.end;
        const auto [known, isNew] = object.known.try_emplace(name, 0U);
        if (isNew) {
            m_tree.names.push_back(place);
            known->second = append(object);
            m_tree.nodes[known->second].name = static_cast<uint32_t>(m_tree.names.size() - 1);
        } else {
            JsonName& before = m_tree.names[m_tree.nodes[known->second].name];
            m_tree.report(m_progress.currentLine(), memberKey(object.key, name), "each key once",
                          "the key again after line " + std::to_string(m_tree.lineAt(before.begin)),
                          "the last one");
            before = place;
        }
        m_member = known->second;
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
        uint32_t node;
        std::string key;
        uint32_t last = 0;                                    // its last element or member
        std::size_t count = 0;                                // of its elements
        std::unordered_map<std::string, uint32_t> known = {}; // its members by name
    };

    // What stands between two tokens.
    static constexpr char between[] = ",: \t\r\n";

    uint32_t offset() const { return static_cast<uint32_t>(m_progress.offset()); }

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
        m_tree.refuse(m_progress.currentLine(), expected, found, m_used);
        return false;
    }

    // A new node behind the last one of the container.
    uint32_t append(Open& container)
    {
        const auto index = static_cast<uint32_t>(m_tree.nodes.size());
        m_tree.nodes.emplace_back();
        (container.last ? m_tree.nodes[container.last].next : m_tree.nodes[container.node].first) =
            index;
        container.last = index;
        return index;
    }

    bool isInArray() const
    {
        return !m_open.empty() && m_tree.nodes[m_open.back().node].kind == JsonKind::Array;
    }

    uint32_t place()
    {
        if (m_open.empty()) {
            m_tree.nodes.emplace_back();
            return 0;
        }
        if (!isInArray())
            return m_member;
        ++m_open.back().count;
        return append(m_open.back());
    }

    // The parser has looked one character past a number, except at the end of the text.
    uint32_t endOf(JsonKind kind, std::size_t begin) const
    {
        if (kind != JsonKind::Integer && kind != JsonKind::Number)
            return offset();
        const std::size_t end = m_tree.source.find_first_not_of("+-.0123456789Ee", begin);
        return static_cast<uint32_t>(std::min(end, m_tree.source.size()));
    }

    uint32_t fill(JsonKind kind)
    {
        const uint32_t index = place();
        JsonNode& node = m_tree.nodes[index];
        node.kind = kind;
        node.begin = static_cast<uint32_t>(m_tree.source.find_first_not_of(between, m_last));
        node.end = endOf(kind, node.begin);
        node.first = 0; // where a duplicate name has had another value
        m_last = node.end;
        return index;
    }

    bool add(JsonKind kind)
    {
        fill(kind);
        return true;
    }

    bool open(JsonKind kind)
    {
        if (m_open.size() == maximumDepth)
            return fail("at most " + std::to_string(maximumDepth) + " levels of nesting", "more");
        std::string key = openingKey();
        m_open.push_back({fill(kind), std::move(key)});
        return true;
    }

    std::string openingKey() const
    {
        if (m_open.empty())
            return {};
        const Open& outer = m_open.back();
        return isInArray() ? outer.key + '[' + std::to_string(outer.count) + ']'
                           : memberKey(outer.key, m_tree.nameOf(m_tree.nodes[m_member]));
    }

    bool close()
    {
        m_last = m_tree.nodes[m_open.back().node].end = offset();
        m_open.pop_back();
        return true;
    }

    JsonTree& m_tree;
    Progress& m_progress;
    const std::string& m_used;
    std::vector<Open> m_open;
    uint32_t m_member = 0; // the one whose value comes next
    std::size_t m_last;    // where the token before ends
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
