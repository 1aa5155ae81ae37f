// The values of a JSON file with their places in it; what json_document.h stands on.
#ifndef BASE_JSON_TREE_H
#define BASE_JSON_TREE_H

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/json_document.h"

namespace base {

// A name with its quotes, as a place in the source.
struct JsonName
{
    uint32_t begin = 0;
    uint32_t end = 0;
};

// A value as a place in the source, from which it is read when somebody asks. Small whatever it
// holds: two bytes of a file ("0,") are enough to make one, and a hostile file is nothing else.
struct JsonNode
{
    JsonKind kind = JsonKind::Null;
    uint32_t begin = 0;
    uint32_t end = 0;
    uint32_t first = 0; // the first element or member; 0 for none, as the outermost is neither
    uint32_t next = 0;  // the next one beside this one; 0 for none
    uint32_t name = 0;  // of a member
};

// What a program has asked of an object.
struct JsonAsked
{
    std::vector<std::string> names; // those that the program knows
    bool allKnown = false;          // the members were enumerated
    bool isNoObject = false;        // and this was said: once, whatever else is asked of it
};

struct JsonTree
{
    JsonDocument::State state = JsonDocument::State::Missing;
    int error = 0; // errno of a file that could not be read
    std::string path;
    std::string source;
    std::deque<JsonNode> nodes; // the outermost value first
    std::deque<JsonName> names;
    std::unordered_map<const JsonNode*, JsonAsked> asked;
    std::vector<JsonProblem> problems;
    std::size_t unreported = 0; // how many problems more there are
    std::vector<uint32_t> lineEnds;

    JsonNode& root() { return nodes.front(); }
    JsonNode* firstOf(const JsonNode& node) { return node.first ? &nodes[node.first] : nullptr; }
    JsonNode* nextOf(const JsonNode& node) { return node.next ? &nodes[node.next] : nullptr; }

    // The member of this name; null when there is none.
    JsonNode* find(const JsonNode& object, const std::string& name);
    std::string nameOf(const JsonNode& member) const;
    std::string textOf(const JsonNode& node) const;   // of a text
    std::string sourceOf(const JsonNode& node) const; // as it is written in the file

    // The line in which a place of the source is, counted from 1.
    int lineAt(std::size_t place);

    // Keeps the problem, or counts it when there are too many to be told.
    JsonProblem refusal; // why the state is Unreadable or Broken

    // Reports what makes the whole file unusable, whatever was reported before.
    void refuse(int line, std::string expected, std::string found, std::string used);

    void report(int line, std::string key, std::string expected, std::string found,
                std::string used);
};

// The name of a member below `key`: "key.name", or "name" at the outermost level. A name that
// is empty or holds control characters is written as a JSON text.
std::string memberKey(const std::string& key, const std::string& name);

// The text as a JSON literal, shortened when it is long.
std::string literalOf(const std::string& text);

// Reads tree.source into tree.nodes; sets the state to Good or Broken and reports what is wrong.
void parseTree(JsonTree& tree, const std::string& used);

} // namespace base

#endif
