#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "base/json_tree.h"

namespace base {

std::string place(const std::string& file, const JsonProblem& problem)
{
    return problem.line > 0 ? file + ':' + std::to_string(problem.line) : file;
}

std::string sentence(const JsonProblem& problem)
{
    std::string text = problem.key.empty() ? "" : problem.key + ": ";
    text += "expected " + problem.expected + ", found " + problem.found;
    return problem.used.empty() ? text : text + "; using " + problem.used + " instead";
}

std::string describe(const std::string& file, const JsonProblem& problem)
{
    return place(file, problem) + ": " + sentence(problem);
}

namespace {

bool isPlain(const std::string& name)
{
    return !name.empty() && std::none_of(name.begin(), name.end(), [](unsigned char byte) {
        return byte < 0x20 || byte == 0x7f;
    });
}

// A JSON text, with its quotes, as the text that it stands for.
std::string decoded(const std::string& literal)
{
    if (literal.find('\\') == std::string::npos)
        return literal.substr(1, literal.size() - 2);
    return nlohmann::json::parse(literal).get<std::string>();
}

} // namespace

std::string memberKey(const std::string& key, const std::string& name)
{
    constexpr std::size_t longest = 255;
    const std::string shown = isPlain(name) && name.size() <= longest ? name : literalOf(name);
    return key.empty() ? shown : key + '.' + shown;
}

std::string literalOf(const std::string& text)
{
    constexpr std::size_t longest = 60;
    using Json = nlohmann::json;
    const Json value = text.size() > longest ? text.substr(0, longest) : text;
    const std::string literal = value.dump(-1, ' ', false, Json::error_handler_t::ignore);
    return text.size() > longest ? literal + "..." : literal;
}

std::string JsonTree::nameOf(const JsonNode& member) const
{
    const JsonName& name = names[member.name];
    return decoded(source.substr(name.begin, name.end - name.begin));
}

std::string JsonTree::sourceOf(const JsonNode& node) const
{
    return source.substr(node.begin, node.end - node.begin);
}

std::string JsonTree::textOf(const JsonNode& node) const
{
    return decoded(sourceOf(node));
}

JsonNode* JsonTree::find(const JsonNode& object, const std::string& name)
{
    for (JsonNode* member = firstOf(object); member; member = nextOf(*member)) {
        const JsonName& place = names[member->name];
        const std::string_view literal =
            std::string_view(source).substr(place.begin + 1, place.end - place.begin - 2);
        if (literal.find('\\') == std::string_view::npos ? literal == name
                                                         : nameOf(*member) == name)
            return member;
    }
    return nullptr;
}

int JsonTree::lineAt(std::size_t place)
{
    if (lineEnds.empty()) {
        lineEnds.reserve(static_cast<std::size_t>(std::count(source.begin(), source.end(), '\n')) +
                         1);
        for (std::size_t at = 0; at < source.size(); ++at)
            if (source[at] == '\n')
                lineEnds.push_back(static_cast<uint32_t>(at));
        lineEnds.push_back(static_cast<uint32_t>(source.size()));
    }
    const auto line = std::lower_bound(lineEnds.begin(), lineEnds.end(), place);
    return static_cast<int>(line - lineEnds.begin()) + 1;
}

void JsonTree::report(int line, std::string key, std::string expected, std::string found,
                      std::string used)
{
    constexpr std::size_t most = 100;
    if (problems.size() == most)
        ++unreported;
    else
        problems.push_back(
            {line, std::move(key), std::move(expected), std::move(found), std::move(used)});
}

void JsonTree::refuse(int line, std::string expected, std::string found, std::string used)
{
    refusal = {line, {}, std::move(expected), std::move(found), std::move(used)};
    problems.push_back(refusal);
}

JsonValue::JsonValue(JsonTree* tree, JsonNode* node, std::string key)
    : m_tree(tree), m_node(node), m_key(std::move(key))
{}

JsonKind JsonValue::kind() const
{
    return m_node ? m_node->kind : JsonKind::Absent;
}

int JsonValue::line() const
{
    return m_node ? m_tree->lineAt(m_node->begin) : 0;
}

std::string JsonValue::description() const
{
    switch (kind()) {
    case JsonKind::Absent:
        return "nothing";
    case JsonKind::Null:
        return "null";
    case JsonKind::Boolean:
        return m_tree->sourceOf(*m_node);
    case JsonKind::Integer:
    case JsonKind::Number:
        return "the number " + m_tree->sourceOf(*m_node);
    case JsonKind::Text:
        return "the text " + literalOf(m_tree->textOf(*m_node));
    case JsonKind::Array:
        return "an array";
    case JsonKind::Object:
        return "an object";
    }
    return {};
}

void JsonValue::reject(const std::string& expected, const std::string& used) const
{
    m_tree->report(line(), m_key, expected, description(), used);
}

bool JsonValue::is(JsonKind wanted, const std::string& expected, const std::string& used) const
{
    if (kind() == wanted)
        return true;
    if (present())
        reject(expected, used);
    return false;
}

JsonValue JsonValue::at(const std::string& name) const
{
    const std::string key = memberKey(m_key, name);
    if (!isObject())
        return {m_tree, nullptr, key};
    std::vector<std::string>& names = m_tree->asked[m_node].names;
    if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(name);
    return {m_tree, m_tree->find(*m_node, name), key};
}

bool JsonValue::isObject() const
{
    if (kind() == JsonKind::Object)
        return true;
    if (m_node && !std::exchange(m_tree->asked[m_node].isNoObject, true))
        reject("an object", "an empty one");
    return false;
}

std::vector<std::pair<std::string, JsonValue>> JsonValue::members() const
{
    std::vector<std::pair<std::string, JsonValue>> all;
    if (!isObject())
        return all;
    m_tree->asked[m_node].allKnown = true;
    for (JsonNode* each = m_tree->firstOf(*m_node); each; each = m_tree->nextOf(*each)) {
        const std::string name = m_tree->nameOf(*each);
        all.emplace_back(name, JsonValue(m_tree, each, memberKey(m_key, name)));
    }
    return all;
}

std::size_t JsonValue::size() const
{
    std::size_t count = 0;
    if (kind() == JsonKind::Array || kind() == JsonKind::Object)
        for (JsonNode* each = m_tree->firstOf(*m_node); each; each = m_tree->nextOf(*each))
            ++count;
    return count;
}

std::vector<JsonValue> JsonValue::elements() const
{
    std::vector<JsonValue> all;
    if (!is(JsonKind::Array, "an array", "an empty one"))
        return all;
    for (JsonNode* each = m_tree->firstOf(*m_node); each; each = m_tree->nextOf(*each))
        all.push_back(JsonValue(m_tree, each, m_key + '[' + std::to_string(all.size()) + ']'));
    return all;
}

long long JsonValue::integer(long long low, long long high, long long fallback) const
{
    const std::string expected =
        "an integer from " + std::to_string(low) + " to " + std::to_string(high);
    const std::string used = std::to_string(fallback);
    if (!is(JsonKind::Integer, expected, used))
        return fallback;
    const long long value = std::strtoll(m_tree->sourceOf(*m_node).c_str(), nullptr, 10);
    if (value >= low && value <= high)
        return value;
    reject(expected, used);
    return fallback;
}

std::string JsonValue::text(const std::string& fallback) const
{
    return is(JsonKind::Text, "a text", literalOf(fallback)) ? m_tree->textOf(*m_node) : fallback;
}

std::string JsonValue::choice(const std::vector<std::string>& choices,
                              const std::string& fallback) const
{
    std::string expected = "one of the texts ";
    for (const std::string& one : choices)
        expected += (&one == choices.data() ? "" : ", ") + literalOf(one);
    if (!is(JsonKind::Text, expected, literalOf(fallback)))
        return fallback;
    const std::string text = m_tree->textOf(*m_node);
    if (std::find(choices.begin(), choices.end(), text) != choices.end())
        return text;
    reject(expected, literalOf(fallback));
    return fallback;
}

bool JsonValue::boolean(bool fallback) const
{
    return is(JsonKind::Boolean, "true or false", fallback ? "true" : "false")
               ? m_tree->source[m_node->begin] == 't'
               : fallback;
}

} // namespace base
