// Profiles out to a file and back.
#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <set>

#include "base/json_document.h"
#include "failure.h"
#include "files.h"
#include "line/request.h"
#include "output.h"
#include "private_file.h"
#include "profile/record.h"
#include "profile/store.h"
#include "profile/values.h"
#include "profile/whole_store.h"
#include "terminal_text.h"

namespace ctl {

namespace {

const char formatName[] = "vorn-profiles";
constexpr std::size_t largestFile = 64U << 20;

struct Named
{
    std::string name;
    NetworkProfile record;
    std::vector<const Field*> leftOut; // the passwords of which the file says nothing
};

void deliver(const Request& request, const std::string& bytes)
{
    if (request.file.empty() || request.file == "-")
        print(bytes);
    else
        writePrivateFile(request.file, bytes);
}

bool holdsPassword(const NetworkProfile& record)
{
    for (const Field& field : fields())
        if (field.kind == Kind::Secret && !valueText(field, record).empty())
            return true;
    return false;
}

int exportRaw(const Request& request)
{
    if (request.names.size() != 1)
        throw Failure(Exit::Usage, "--raw exports exactly one profile.");
    if (!request.showSecrets)
        throw Failure(Exit::Usage, "a raw record holds its passwords.",
                      "Add --show-secrets when they may be written.");
    const NetworkProfile record = readProfile("export the profile", request.names[0]);
    deliver(request, std::string(reinterpret_cast<const char*>(&record), sizeof record));
    return 0;
}

const char nameExpected[] =
    "the name of a profile: 1 to 63 bytes of UTF-8, without '/' and control "
    "characters, not beginning with '.'";

// Reads a file of exported profiles, and collects everything that is wrong in it.
class Reader
{
public:
    Reader(const Request& request, const std::string& bytes)
        : m_request(request), m_document(base::JsonDocument::parse(bytes, request.file, ""))
    {}

    std::vector<Named> read()
    {
        if (m_document.state() == base::JsonDocument::State::Good)
            readDocument(m_document.root());
        m_document.rejectUnknownKeys({});
        for (const base::JsonProblem& problem : m_document.problems())
            m_problems.push_back(problem);
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
        if (format.kind() != base::JsonKind::Text || format.text("") != formatName)
            reject(root, format, std::string("the text \"") + formatName + '"');
        const base::JsonValue version = root.at("version");
        if (version.kind() != base::JsonKind::Integer ||
            version.integer(LLONG_MIN, LLONG_MAX, 0) != 1)
            reject(root, version, "the number 1");
        const base::JsonValue list = root.at("profiles");
        if (list.kind() != base::JsonKind::Array)
            return reject(root, list, "an array of profiles");
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
        // A name that --name replaces may be any text.
        if (!isText || (m_request.name.empty() && !nameProblem(text).empty()))
            reject(item, name, nameExpected);
        else if (!m_names.insert(text).second)
            reject(item, name, "a name that does not stand in the file before");
        const base::JsonValue values = item.at("fields");
        if (values.kind() != base::JsonKind::Object)
            return reject(item, values, "an object with fields");
        m_profiles.push_back({text, imported(values, &m_problems), leftOut(values)});
    }

    static std::vector<const Field*> leftOut(const base::JsonValue& values)
    {
        std::vector<const Field*> fieldsLeftOut;
        for (const Field& field : fields())
            if (field.kind == Kind::Secret && !values.at(field.name).present())
                fieldsLeftOut.push_back(&field);
        return fieldsLeftOut;
    }

    // One problem a line, as compilers write them, in the order of the file.
    [[noreturn]] void fail()
    {
        std::stable_sort(m_problems.begin(), m_problems.end(),
                         [](const auto& a, const auto& b) { return a.line < b.line; });
        std::string lines;
        for (const base::JsonProblem& problem : m_problems)
            lines += "\n  " + printable(base::describe(m_request.file, problem));
        const bool looksRaw = m_document.state() == base::JsonDocument::State::Broken &&
                              m_document.source().size() == sizeof(NetworkProfile);
        throw Failure(Exit::Input, "cannot import " + inQuotes(m_request.file) + ':' + lines,
                      looksRaw ? "Nothing was imported. The file has the size of a raw record, "
                                 "which takes --raw and --name."
                               : "Nothing was imported.");
    }

    const Request& m_request;
    base::JsonDocument m_document;
    std::vector<base::JsonProblem> m_problems;
    std::vector<Named> m_profiles;
    std::set<std::string> m_names;
};

std::vector<Named> fromRecord(const Request& request, const std::string& bytes)
{
    if (request.name.empty())
        throw Failure(Exit::Usage, "a raw record has no name.", "Give one with --name.");
    Named profile = {};
    if (bytes.size() != sizeof profile.record)
        throw Failure(Exit::Input,
                      "cannot import " + inQuotes(request.file) + ": it has " +
                          std::to_string(bytes.size()) + " bytes, and a raw record has " +
                          std::to_string(sizeof profile.record) + '.',
                      "Nothing was imported.");
    std::memcpy(&profile.record, bytes.data(), sizeof profile.record);
    return {profile};
}

void giveName(const Request& request, std::vector<Named>& profiles)
{
    if (request.name.empty())
        return;
    if (profiles.size() != 1)
        throw Failure(Exit::Usage,
                      "--name names one profile, and the file holds " +
                          std::to_string(profiles.size()) + '.',
                      "Nothing was imported.");
    profiles[0].name = request.name;
    if (!nameProblem(request.name).empty())
        failNapi(NAPI_ERR_NAME, "import a profile as", &request.name);
}

// Whether each of the profiles is stored already; refuses what the store would refuse.
std::vector<bool> checkAgainstStore(const Request& request, const std::vector<Named>& profiles)
{
    std::vector<bool> stored;
    for (const Named& profile : profiles) {
        stored.push_back(profileExists(profile.name));
        if (stored.back() && !request.replace)
            throw Failure(Exit::Exists,
                          "cannot import " + inQuotes(profile.name) +
                              ": a profile of this name is stored already.",
                          "Nothing was imported. --replace replaces stored profiles.");
    }
    const auto fresh = static_cast<std::size_t>(std::count(stored.begin(), stored.end(), false));
    const std::size_t room = NAPI_GetMaxProfiles();
    const std::size_t all = fresh > 0 ? listProfiles().size() + fresh : 0;
    if (all > room)
        throw Failure(Exit::NoRoom,
                      "cannot import " + inQuotes(request.file) + ": there would be " +
                          std::to_string(all) + " profiles, and at most " + std::to_string(room) +
                          " are kept.",
                      "Nothing was imported.");
    return stored;
}

// A file without passwords, as export writes it unless told otherwise, leaves the stored ones.
void replaceStored(Named& profile)
{
    try {
        changeProfile(profile.name, [&](NetworkProfile& stored) {
            for (const Field* field : profile.leftOut)
                std::memcpy(bytesOf(*field, profile.record), bytesOf(*field, stored), field->width);
            stored = profile.record;
        });
    } catch (const Failure& failure) {
        // There is nothing in a damaged record to be kept.
        if (failure.status() != Exit::Damaged)
            throw;
        modifyProfile(profile.name, profile.record);
    }
}

void storeAll(std::vector<Named>& profiles, const std::vector<bool>& stored)
{
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        try {
            if (stored[i])
                replaceStored(profiles[i]);
            else
                createProfile("create the profile", profiles[i].name, profiles[i].record);
        } catch (const Failure& failure) {
            if (i == 0)
                throw Failure(failure.status(), failure.what(),
                              "Nothing was imported. " + failure.advice());
            throw Failure(failure.status(), failure.what(),
                          std::to_string(i) + " of " + std::to_string(profiles.size()) +
                              " profiles were imported before. " + failure.advice());
        }
    }
}

// Whoever saves everything must hear of what is not saved.
std::vector<Unread>
exportAll(const std::function<void(const std::string&, const NetworkProfile&)>& add)
{
    const std::vector<std::string> names = listProfiles();
    const std::vector<Unread> unread = readEach(names, add);
    const std::size_t count = countUnlisted(names.size());
    if (count > 0)
        note(std::to_string(count) + (count == 1 ? " damaged entry is" : " damaged entries are") +
             " not exported; \"vornctl doctor\" tells more.");
    return unread;
}

} // namespace

int profileExport(const Request& request)
{
    if (request.all != request.names.empty())
        throw Failure(Exit::Usage, "name the profiles to export, or use --all.");
    if (request.raw)
        return exportRaw(request);
    Json list = Json::array();
    bool leftOut = false;
    const auto add = [&](const std::string& name, const NetworkProfile& record) {
        list.push_back(exported(name, record, request.showSecrets));
        leftOut = leftOut || (!request.showSecrets && holdsPassword(record));
    };
    std::vector<Unread> unread;
    if (request.all)
        unread = exportAll(add);
    for (const std::string& name : request.names)
        add(name, readProfile("export the profile", name));
    const Json document = {{"format", formatName}, {"version", 1}, {"profiles", list}};
    deliver(request, jsonText(document, 2));
    if (leftOut)
        note("passwords were left out; --show-secrets writes them.");
    failUnread(unread);
    return 0;
}

int profileImport(const Request& request)
{
    const std::string bytes = readFile(request.file, largestFile, Exit::Input);
    std::vector<Named> profiles =
        request.raw ? fromRecord(request, bytes) : Reader(request, bytes).read();
    giveName(request, profiles);
    storeAll(profiles, checkAgainstStore(request, profiles));
    if (!request.json)
        return 0;
    Json list = Json::array();
    for (const Named& profile : profiles)
        list.push_back(describe(profile.name, profile.record, request.showSecrets));
    printJson(list);
    return 0;
}

} // namespace ctl
