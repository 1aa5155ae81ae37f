#include <algorithm>
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

static bool isPlain(const std::string& name)
{
    return !name.empty() && std::none_of(name.begin(), name.end(), [](unsigned char byte) {
        return byte < 0x20 || byte == 0x7f;
    });
}

std::string memberKey(const std::string& key, const std::string& name)
{
    const std::string shown = isPlain(name) ? name : literalOf(name);
    return key.empty() ? shown : key + '.' + shown;
}

std::string literalOf(const std::string& text)
{
    constexpr std::size_t kLongest = 60;
    using Json = nlohmann::json;
    const Json value = text.size() > kLongest ? text.substr(0, kLongest) : text;
    const std::string literal = value.dump(-1, ' ', false, Json::error_handler_t::ignore);
    return text.size() > kLongest ? literal + "..." : literal;
}

JsonMember* JsonNode::find(const std::string& name)
{
    const auto found = index.find(name);
    return found == index.end() ? nullptr : &members[found->second];
}

JsonMember& JsonNode::add(const std::string& name)
{
    index.emplace(name, members.size());
    members.emplace_back();
    members.back().name = name;
    return members.back();
}

void JsonTree::report(int line, std::string key, std::string expected, std::string found,
                      std::string used)
{
    problems.push_back(
        {line, std::move(key), std::move(expected), std::move(found), std::move(used)});
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
    return m_node ? m_node->line : 0;
}

std::string JsonValue::description() const
{
    switch (kind()) {
    case JsonKind::Absent:
        return "nothing";
    case JsonKind::Null:
        return "null";
    case JsonKind::Truth:
        return m_node->truth ? "true" : "false";
    case JsonKind::Integer:
    case JsonKind::Number:
        return "the number " + m_node->text;
    case JsonKind::Text:
        return "the text " + literalOf(m_node->text);
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
    if (kind() == JsonKind::Object) {
        if (std::find(m_node->asked.begin(), m_node->asked.end(), name) == m_node->asked.end())
            m_node->asked.push_back(name);
        JsonMember* member = m_node->find(name);
        return {m_tree, member ? &member->value : nullptr, memberKey(m_key, name)};
    }
    if (m_node && !std::exchange(m_node->objectReported, true))
        reject("an object", "an empty one");
    return {m_tree, nullptr, memberKey(m_key, name)};
}

std::vector<std::pair<std::string, JsonValue>> JsonValue::members() const
{
    std::vector<std::pair<std::string, JsonValue>> all;
    if (kind() == JsonKind::Object) {
        m_node->allKnown = true;
        for (JsonMember& member : m_node->members)
            all.emplace_back(member.name,
                             JsonValue(m_tree, &member.value, memberKey(m_key, member.name)));
    } else if (m_node && !std::exchange(m_node->objectReported, true)) {
        reject("an object", "an empty one");
    }
    return all;
}

std::vector<JsonValue> JsonValue::elements() const
{
    std::vector<JsonValue> all;
    if (!is(JsonKind::Array, "an array", "an empty one"))
        return all;
    for (JsonNode& element : m_node->elements)
        all.push_back(JsonValue(m_tree, &element, m_key + '[' + std::to_string(all.size()) + ']'));
    return all;
}

long long JsonValue::integer(long long low, long long high, long long fallback) const
{
    const std::string expected =
        "an integer from " + std::to_string(low) + " to " + std::to_string(high);
    const std::string used = std::to_string(fallback);
    if (!is(JsonKind::Integer, expected, used))
        return fallback;
    if (m_node->integer >= low && m_node->integer <= high)
        return m_node->integer;
    reject(expected, used);
    return fallback;
}

std::string JsonValue::text(const std::string& fallback) const
{
    return is(JsonKind::Text, "a text", literalOf(fallback)) ? m_node->text : fallback;
}

std::string JsonValue::choice(const std::vector<std::string>& choices,
                              const std::string& fallback) const
{
    std::string expected = "one of the texts ";
    for (const std::string& one : choices)
        expected += (&one == choices.data() ? "" : ", ") + literalOf(one);
    if (!is(JsonKind::Text, expected, literalOf(fallback)))
        return fallback;
    if (std::find(choices.begin(), choices.end(), m_node->text) != choices.end())
        return m_node->text;
    reject(expected, literalOf(fallback));
    return fallback;
}

bool JsonValue::truth(bool fallback) const
{
    return is(JsonKind::Truth, "true or false", fallback ? "true" : "false") ? m_node->truth
                                                                             : fallback;
}

} // namespace base
