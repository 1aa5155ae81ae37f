#include "base/json_tree.h"

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
    const char* counted;
    const char* consumed;
    int line = 1;

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

    CountingIterator(const char* at, Progress* progress) : at_(at), progress_(progress) {}
    reference operator*() const { return *at_; }
    CountingIterator& operator++()
    {
        progress_->consumed = ++at_;
        return *this;
    }
    CountingIterator operator++(int)
    {
        const CountingIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }
    bool operator!=(const CountingIterator& other) const { return at_ != other.at_; }

private:
    const char* at_;
    Progress* progress_;
};

// Builds the tree from the parser's events; the names of the functions are the parser's.
class TreeBuilder
{
public:
    TreeBuilder(JsonTree& tree, Progress& progress, const std::string& used)
        : tree_(tree), progress_(progress), used_(used)
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
        JsonNode& object = *open_.back().node;
        const int line = progress_.currentLine();
        if (JsonMember* first = object.find(name)) {
            tree_.report(line, memberKey(open_.back().key, name), "each key once",
                         "the key again after line " + std::to_string(first->line), "the last one");
            first->line = line;
            current_ = first;
            return true;
        }
        current_ = &object.add(name, line);
        return true;
    }

    bool parse_error(std::size_t, const std::string&, const json::exception& error)
    {
        return fail("JSON", explanation(error.what()));
    }

private:
    struct Open
    {
        JsonNode* node;
        std::string key;
    };

    // The parser's message is "[id] parse error at line L, column C: explanation".
    static std::string explanation(const std::string& message)
    {
        const std::size_t column = message.find("column ");
        const std::size_t start = message.find(": ", column == std::string::npos ? 0 : column);
        if (start != std::string::npos)
            return message.substr(start + 2);
        const std::size_t id = message.find("] ");
        return id == std::string::npos ? message : message.substr(id + 2);
    }

    bool fail(const std::string& expected, const std::string& found)
    {
        tree_.report(progress_.currentLine(), {}, expected, found, used_);
        return false;
    }

    JsonNode* add(JsonKind kind)
    {
        JsonNode* node = &tree_.root;
        if (!open_.empty() && open_.back().node->kind == JsonKind::Array) {
            open_.back().node->elements.emplace_back();
            node = &open_.back().node->elements.back();
        } else if (!open_.empty()) {
            node = &current_->value;
        }
        *node = JsonNode();
        node->kind = kind;
        node->line = progress_.currentLine();
        return node;
    }

    bool open(JsonKind kind)
    {
        if (open_.size() == maximumDepth)
            return fail("at most " + std::to_string(maximumDepth) + " levels of nesting", "more");
        std::string key = openingKey();
        open_.push_back({add(kind), std::move(key)});
        return true;
    }

    std::string openingKey() const
    {
        if (open_.empty())
            return {};
        const Open& outer = open_.back();
        if (outer.node->kind == JsonKind::Array)
            return outer.key + '[' + std::to_string(outer.node->elements.size()) + ']';
        return memberKey(outer.key, current_->name);
    }

    bool close()
    {
        open_.pop_back();
        return true;
    }

    JsonTree& tree_;
    Progress& progress_;
    const std::string& used_;
    std::vector<Open> open_;
    JsonMember* current_ = nullptr; // the member whose value comes next
};

} // namespace

void parseTree(JsonTree& tree, const std::string& used)
{
    const char* begin = tree.source.data();
    Progress progress{begin, begin};
    TreeBuilder builder(tree, progress, used);
    const bool good =
        json::sax_parse(CountingIterator(begin, &progress),
                        CountingIterator(begin + tree.source.size(), &progress), &builder);
    tree.state = good ? JsonDocument::State::Good : JsonDocument::State::Broken;
}

} // namespace base
