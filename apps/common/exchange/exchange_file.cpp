#include "exchange/exchange_file.h"

#include <algorithm>
#include <climits>
#include <set>

#include "base/json_document.h"
#include "failure.h"
#include "profile/record.h"
#include "profile/store.h"
#include "terminal_text.h"

namespace ctl {

namespace {

const char nameExpected[] =
    "the name of a profile: 1 to 63 bytes of UTF-8, without '/' and control "
    "characters, not beginning with '.'";

constexpr std::size_t mostTold = 100;

// Reads a file of exported profiles, and collects everything that is wrong in it.
class Reader
{
public:
    Reader(const std::string& file, bool takesAnyName, std::string bytes)
        : m_file(file),
          m_takesAnyName(takesAnyName),
          m_document(base::JsonDocument::parse(std::move(bytes), file, ""))
    {}

    std::vector<ImportedProfile> read()
    {
        if (m_document.state() == base::JsonDocument::State::Good)
            readDocument(m_document.root());
        m_document.rejectUnknownKeys({});
        std::vector<base::JsonProblem> problems = m_document.problems();
        m_leftOut += m_document.problemsLeftOut();
        if (m_document.problemsLeftOut() > 0)
            problems.pop_back();
        m_problems.insert(m_problems.end(), problems.begin(), problems.end());
        if (!m_problems.empty())
            fail();
        return std::move(m_profiles);
    }

private:
    // Of a value that is missing, the line is that of the object in which it should stand.
    void reject(const base::JsonValue& parent, const base::JsonValue& value,
                const std::string& expected)
    {
        const int line = value.present() ? value.line() : parent.line();
        m_problems.push_back({line, value.key(), expected, value.description(), ""});
    }

    void readDocument(const base::JsonValue& root)
    {
        if (root.kind() != base::JsonKind::Object)
            return reject(root, root, "an object with exported profiles");
        const base::JsonValue format = root.at("format");
        if (format.kind() != base::JsonKind::Text || format.text("") != exchangeFormat)
            reject(root, format, std::string("the text \"") + exchangeFormat + '"');
        const base::JsonValue version = root.at("version");
        if (version.kind() != base::JsonKind::Integer ||
            version.integer(LLONG_MIN, LLONG_MAX, 0) != 1)
            reject(root, version, "the number 1");
        const base::JsonValue list = root.at("profiles");
        if (list.kind() != base::JsonKind::Array)
            return reject(root, list, "an array of profiles");
        const std::size_t room = NAPI_GetMaxProfiles();
        if (list.size() > room) {
            m_problems.push_back({list.line(), list.key(),
                                  "at most " + std::to_string(room) + " profiles",
                                  std::to_string(list.size()), ""});
            return;
        }
        for (const base::JsonValue& item : list.elements())
            readProfile(item);
    }

    void readProfile(const base::JsonValue& item)
    {
        if (item.kind() != base::JsonKind::Object)
            return reject(item, item, "an object with \"name\" and \"fields\"");
        const base::JsonValue name = item.at("name");
        const bool isText = name.kind() == base::JsonKind::Text;
        const std::string text = isText ? name.text("") : "";
        // A name that is replaced may be any text.
        if (!isText || (!m_takesAnyName && !nameProblem(text).empty()))
            reject(item, name, nameExpected);
        else if (!m_names.insert(text).second)
            reject(item, name, "a name that does not stand in the file before");
        const base::JsonValue values = item.at("fields");
        if (values.kind() != base::JsonKind::Object)
            return reject(item, values, "an object with fields");
        m_profiles.push_back({text, imported(values, &m_problems), leftOut(values)});
        leaveOut();
    }

    static std::vector<const Field*> leftOut(const base::JsonValue& values)
    {
        std::vector<const Field*> fieldsLeftOut;
        for (const Field& field : fields())
            if (field.kind == Kind::Secret && !values.at(field.name).present())
                fieldsLeftOut.push_back(&field);
        return fieldsLeftOut;
    }

    // What nobody can read through is counted only, and takes no memory.
    void leaveOut()
    {
        if (m_problems.size() <= mostTold)
            return;
        m_leftOut += m_problems.size() - mostTold;
        m_problems.resize(mostTold);
    }

    // One problem a line, as compilers write them, in the order of the file.
    [[noreturn]] void fail()
    {
        std::stable_sort(m_problems.begin(), m_problems.end(),
                         [](const auto& a, const auto& b) { return a.line < b.line; });
        leaveOut();
        std::string lines;
        for (const base::JsonProblem& problem : m_problems)
            lines += "\n  " + printable(base::describe(m_file, problem));
        if (m_leftOut > 0)
            lines += "\n  and " + std::to_string(m_leftOut) + " more that are left out here";
        const bool looksRaw = m_document.state() == base::JsonDocument::State::Broken &&
                              m_document.source().size() == sizeof(NetworkProfile);
        throw Failure(Exit::Input, "cannot import " + inQuotes(m_file) + ':' + lines,
                      looksRaw ? "Nothing was imported. The file has the size of a raw record, "
                                 "which takes --raw and --name."
                               : "Nothing was imported.");
    }

    const std::string& m_file;
    const bool m_takesAnyName;
    base::JsonDocument m_document;
    std::vector<base::JsonProblem> m_problems;
    std::size_t m_leftOut = 0; // problems that are counted only
    std::vector<ImportedProfile> m_profiles;
    std::set<std::string> m_names;
};

} // namespace

std::string exchangeText(const Json& profiles)
{
    return jsonText({{"format", exchangeFormat}, {"version", 1}, {"profiles", profiles}}, 2);
}

std::vector<ImportedProfile> readExchange(const std::string& file, bool takesAnyName,
                                          std::string bytes)
{
    return Reader(file, takesAnyName, std::move(bytes)).read();
}

} // namespace ctl
