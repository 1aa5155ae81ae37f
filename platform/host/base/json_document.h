// Reads a JSON file so that everything wrong in it can be told to a person: file, line, key, what
// was expected, what was found and what is used instead.
//
// Reading never fails for the caller: each getter returns a usable value, and what was wrong is
// kept in the document's list of problems.
//
//     base::JsonDocument file = base::JsonDocument::read(root + "/etc/network.json");
//     const base::JsonValue scenario = file.root().at("scenario");
//     const long long delay = scenario.at("delay").integer(0, 60000, 500);
//     file.rejectUnknownKeys("the file without it");
//     for (const base::JsonProblem& problem : file.problems())
//         std::cerr << base::describe(file.path(), problem) << '\n';
#ifndef BASE_JSON_DOCUMENT_H
#define BASE_JSON_DOCUMENT_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace base {

// One thing that is wrong in a JSON file.
struct JsonProblem
{
    int line = 0;         // counted from 1; 0 when the file as a whole is meant
    std::string key;      // where: "scenario.profiles.Home[2].delay"; "" for the whole file
    std::string expected; // "an integer from 0 to 60000"
    std::string found;    // "the text \"soon\""
    std::string used; // what stands in its place: "500"; "" when there is nothing to use instead
};

// "FILE:LINE", or "FILE" for a problem of the whole file.
std::string place(const std::string& file, const JsonProblem& problem);

// "scenario.delay: expected an integer from 0 to 60000, found the text \"soon\"; using 500
// instead".
std::string sentence(const JsonProblem& problem);

// place() and sentence() with ": " between them: a line as compilers write it, without a line end.
std::string describe(const std::string& file, const JsonProblem& problem);

enum class JsonKind : unsigned char { Absent, Null, Boolean, Integer, Number, Text, Array, Object };

struct JsonNode;
struct JsonTree;

// One value of a document, or the place where it would stand. Small, to be passed by value; valid
// as long as its document lives. Getters on an absent value give the fallback and report nothing;
// getters on a value of the wrong kind give the fallback and report a problem.
class JsonValue
{
public:
    JsonKind kind() const;
    bool present() const { return kind() != JsonKind::Absent; }

    // The line on which the value begins, counted from 1; 0 when absent.
    int line() const;

    // Where the value stands, as in JsonProblem::key.
    const std::string& key() const { return m_key; }

    // The member `name` of this object; absent when there is none. Asking makes the name known to
    // rejectUnknownKeys().
    JsonValue at(const std::string& name) const;

    // All members of this object in the order of the file; all their names count as known. Of a
    // duplicate name only the last is there.
    std::vector<std::pair<std::string, JsonValue>> members() const;

    // How many elements or members this array or object has; 0 for anything else.
    std::size_t size() const;

    // All elements of this array.
    std::vector<JsonValue> elements() const;

    // An integer from `low` to `high`, written without fraction and exponent.
    long long integer(long long low, long long high, long long fallback) const;

    // Any text.
    std::string text(const std::string& fallback) const;

    // One of the given texts.
    std::string choice(const std::vector<std::string>& choices, const std::string& fallback) const;

    // true or false.
    bool boolean(bool fallback) const;

    // Reports this value for a reason that the getters do not know.
    void reject(const std::string& expected, const std::string& used) const;

    // The value as a person would name it: "the text \"soon\"", "the number 2.5", "an array".
    std::string description() const;

private:
    friend class JsonDocument;
    JsonValue(JsonTree* tree, JsonNode* node, std::string key);
    bool isObject() const;
    bool is(JsonKind wanted, const std::string& expected, const std::string& used) const;

    JsonTree* m_tree;
    JsonNode* m_node;
    std::string m_key;
};

// One file, of less than 4 GiB. What it takes in memory is at most some 15 times its size, whatever
// it holds. Movable; its values stay valid when it moves.
class JsonDocument
{
public:
    enum class State {
        Good,
        Missing,    // no such file: no problem, everything is absent
        Unreadable, // no regular file, not permitted, larger than 4 MiB, or an I/O error
        Broken      // not JSON in UTF-8, or nested more than 100 deep: everything is absent
    };

    // Reads a whole file; blocks for that long. `used` says for the list of problems what stands in
    // the place of a file that cannot be used.
    static JsonDocument read(const std::string& path, const std::string& used = "the defaults");

    // Takes the text as if it had been read from `path`.
    static JsonDocument parse(std::string text, const std::string& path,
                              const std::string& used = "the defaults");

    JsonDocument(JsonDocument&&) noexcept;
    JsonDocument& operator=(JsonDocument&&) noexcept;
    ~JsonDocument();

    State state() const;
    const std::string& path() const;

    // The errno for which the state is Unreadable; 0 when the file could be read but is not one to
    // be used, and in every other state.
    int error() const;

    // The bytes of the file as they were read; "" unless the state is Good or Broken.
    const std::string& source() const;

    // The outermost value; absent unless the state is Good.
    JsonValue root() const;

    // The source with the member `name` of the outermost object being `literal`, a JSON value: put
    // in the place of its value, the last one of a duplicate name, or added behind the last member.
    // Everything else stays as it is, byte for byte. A missing file counts as an empty object. ""
    // when the outermost value is no object.
    std::string withMember(const std::string& name, const std::string& literal) const;

    // The source without the member `name` of the outermost object, without any of a duplicate
    // name; everything else stays as it is, byte for byte. "" when there is no such member.
    std::string withoutMember(const std::string& name) const;

    // Reports the members that nobody asked for, in every object of which a member was asked for.
    // `used` says what stands in their place. Call it once, when everything has been read.
    void rejectUnknownKeys(const std::string& used);

    // Why the state is Unreadable or Broken; empty in every other state. It is among problems()
    // too.
    const JsonProblem& refusal() const;

    // What was wrong so far, in the order of the file. Duplicate keys are reported by reading
    // alone. Of a file with more than 100 problems the first 100 that were met are there, and a
    // last one that says how many are left out.
    std::vector<JsonProblem> problems() const;

    // How many problems the last one of problems() stands for; 0 when all of them are there.
    std::size_t problemsLeftOut() const;

private:
    explicit JsonDocument(std::unique_ptr<JsonTree> tree);

    std::unique_ptr<JsonTree> m_tree;
};

} // namespace base

#endif
