// Changing and removing one member in the text of a document.
#include <nlohmann/json.hpp>

#include "base/json_tree.h"

namespace base {

namespace {

const char blanks[] = " \t\r\n";

// What stands between the opening brace and the first member also goes before a new one, so that it
// is laid out as the others are.
std::string added(const std::string& source, const JsonNode& root, const std::string& member)
{
    const std::size_t first = source.find_first_not_of(blanks, root.begin + 1);
    const std::size_t last = source.find_last_not_of(blanks, root.end - 2);
    if (root.first == 0)
        return source.substr(0, root.begin) + "{\n  " + member + "\n}" + source.substr(root.end);
    std::string lead = source.substr(root.begin + 1, first - root.begin - 1);
    if (lead.empty())
        lead = " ";
    return source.substr(0, last + 1) + ',' + lead + member + source.substr(last + 1);
}

// The next member moves into the place of this one; behind the last one its comma goes.
std::string removed(const std::string& source, const JsonName& name, const JsonNode& value)
{
    const std::size_t before = source.find_last_not_of(blanks, name.begin - 1);
    const std::size_t after = source.find_first_not_of(blanks, value.end);
    if (source[after] == ',')
        return source.substr(0, name.begin) +
               source.substr(source.find_first_not_of(blanks, after + 1));
    return source.substr(0, source[before] == ',' ? before : before + 1) + source.substr(value.end);
}

} // namespace

std::string JsonDocument::withMember(const std::string& name, const std::string& literal) const
{
    const std::string member = nlohmann::json(name).dump() + ": " + literal;
    if (state() == State::Missing)
        return "{\n  " + member + "\n}\n";
    if (state() != State::Good || m_tree->root().kind != JsonKind::Object)
        return {};
    const JsonNode* present = m_tree->find(m_tree->root(), name);
    if (!present)
        return added(m_tree->source, m_tree->root(), member);
    std::string changed = m_tree->source;
    return changed.replace(present->begin, present->end - present->begin, literal);
}

std::string JsonDocument::withoutMember(const std::string& name) const
{
    if (state() != State::Good || m_tree->root().kind != JsonKind::Object)
        return {};
    const JsonNode* present = m_tree->find(m_tree->root(), name);
    if (!present)
        return {};
    const JsonName& place = m_tree->names[present->name];
    const JsonDocument rest = parse(removed(m_tree->source, place, *present), path());
    return rest.m_tree->find(rest.m_tree->root(), name) ? rest.withoutMember(name) : rest.source();
}

} // namespace base
