// The values of a JSON file with their lines; what json_document.h stands on.
#ifndef BASE_JSON_TREE_H
#define BASE_JSON_TREE_H

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/json_document.h"

namespace base {

struct JsonMember;

struct JsonNode
{
    JsonKind kind = JsonKind::Null;
    int line = 0;
    // The place in the source; `begin` of the outermost value and of a member's value only.
    std::size_t begin = 0;
    std::size_t end = 0;
    bool truth = false;
    bool objectReported = false; // "expected an object" is said once, whatever is asked of it
    bool allKnown = false;       // the members were enumerated
    long long integer = 0;
    std::string text;               // a text, or a number as it is written in the file
    std::vector<JsonNode> elements; // of an array
    std::vector<JsonMember> members;
    std::unordered_map<std::string, std::size_t> index; // into members, by name
    std::vector<std::string> asked;                     // the names that the program knows

    JsonMember* find(const std::string& name); // null when there is none
    JsonMember& add(const std::string& name);
};

struct JsonMember
{
    std::string name;
    int line = 0;            // of the name
    std::size_t nameEnd = 0; // the place in the source behind the name
    JsonNode value;
};

struct JsonTree
{
    JsonDocument::State state = JsonDocument::State::Missing;
    int error = 0; // errno of a file that could not be read
    std::string path;
    std::string source;
    JsonNode root;
    std::vector<JsonProblem> problems;

    void report(int line, std::string key, std::string expected, std::string found,
                std::string used);
};

// The name of a member below `key`: "key.name", or "name" at the outermost level. A name that
// is empty or holds control characters is written as a JSON text.
std::string memberKey(const std::string& key, const std::string& name);

// The text as a JSON literal, shortened when it is long.
std::string literalOf(const std::string& text);

// Reads tree.source into tree.root; sets the state to Good or Broken and reports what is wrong.
void parseTree(JsonTree& tree, const std::string& used);

} // namespace base

#endif
