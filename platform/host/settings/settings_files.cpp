#include "settings/settings_files.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <mutex>

#include <pthread.h>
#include <sys/stat.h>

#include "base/durable_file.h"
#include "base/root.h"

namespace settingsfiles {

using base::JsonDocument;
using base::JsonKind;
using base::JsonValue;
using settingshost::Code;
using settingshost::Result;
using settingshost::Setting;

Code codeOf(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
        return Code::Access;
    case ENOSPC:
    case EDQUOT:
        return Code::Full;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return Code::Root;
    case ETIMEDOUT:
        return Code::Busy;
    case base::notSynced:
        return Code::NotSynced;
    default:
        return Code::Io;
    }
}

namespace {

// Ok when `path` is a folder or is not there.
Result checkFolder(const std::string& path)
{
    struct stat status;
    if (stat(path.c_str(), &status) == 0)
        return S_ISDIR(status.st_mode) ? Result() : Result{Code::Root, path + ": not a folder"};
    if (errno == ENOENT)
        return {};
    return {codeOf(errno), path + ": " + std::strerror(errno)};
}

std::string complaint(const JsonDocument& document, const JsonValue& value,
                      const std::string& expected, const std::string& used)
{
    return base::describe(document.path(),
                          {value.line(), value.key(), expected, value.description(), used});
}

// A file that is there and is not one to be read, a loop of symbolic links for instance, is damage.
Code codeOfUnreadable(int error)
{
    return error == 0 || codeOf(error) == Code::Root ? Code::Broken : codeOf(error);
}

// An integer that means nothing is still read, as it is on the phone.
std::string ignoredValue(const JsonDocument& document, const std::string& name,
                         const JsonValue& value, const Setting& setting)
{
    const KnownNode* node = knownNode(name);
    const bool isIgnored = node && setting.type == Setting::Type::Integer &&
                           (setting.integer < node->low || setting.integer > node->high);
    return isIgnored ? complaint(document, value, node->expected, node->used) : std::string();
}

Leaf leafOf(const JsonDocument& document, const std::string& name, const JsonValue& value,
            const std::string& used)
{
    Leaf leaf;
    leaf.name = name;
    if (std::optional<Setting> setting = settingOf(value)) {
        leaf.value = *setting;
        leaf.ignored = ignoredValue(document, name, value, *setting);
    } else {
        leaf.problem = complaint(document, value, settingExpected, used.empty() ? "" : "no value");
    }
    return leaf;
}

// A file with more wrong lines than a person reads costs no memory for a sentence about each.
void shorten(Leaf& leaf)
{
    leaf.ignored = {};
    if (!leaf.problem.empty())
        leaf.problem = "not usable";
}

} // namespace

Result checkRoot()
{
    const std::string root = base::rootFolder();
    if (root.empty())
        return {Code::Root, "no folder stands for the phone's file system: set VORN_ROOT"};
    if (root.front() != '/')
        return {Code::Root, "VORN_ROOT is not an absolute path: " + root};
    for (const std::string& folder : {root, root + "/etc"})
        if (Result result = checkFolder(folder); !result.isOk())
            return result;
    return {};
}

Result checkDocument(const JsonDocument& document, const std::string& used)
{
    switch (document.state()) {
    case JsonDocument::State::Missing:
        return {};
    case JsonDocument::State::Unreadable:
        return {codeOfUnreadable(document.error()),
                base::describe(document.path(), document.refusal())};
    case JsonDocument::State::Broken:
        return {Code::Broken, base::describe(document.path(), document.refusal())};
    case JsonDocument::State::Good:
        break;
    }
    const JsonValue root = document.root();
    if (root.kind() == JsonKind::Object)
        return {};
    return {Code::Broken, complaint(document, root, "an object", used)};
}

Result readLeaves(std::vector<Leaf>* leaves, const std::string& used)
{
    if (Result root = checkRoot(); !root.isOk())
        return root;
    const JsonDocument document = JsonDocument::read(settingshost::settingsFile(), used);
    if (Result result = checkDocument(document, used); !result.isOk())
        return result;
    constexpr std::size_t mostSentences = 1000;
    std::size_t sentences = 0;
    for (const auto& [name, value] : document.root().members()) {
        leaves->push_back(leafOf(document, name, value, used));
        Leaf& leaf = leaves->back();
        if (leaf.problem.empty() && leaf.ignored.empty())
            continue;
        if (++sentences > mostSentences)
            shorten(leaf);
    }
    return {};
}

Result readFeatures(std::map<int, FeatureLine>* lines, const std::string& used)
{
    if (Result root = checkRoot(); !root.isOk())
        return root;
    const JsonDocument document = JsonDocument::read(settingshost::featuresFile(), used);
    if (Result result = checkDocument(document, used); !result.isOk())
        return result;
    for (const auto& [name, value] : document.root().members()) {
        const int number = featureNumber(name);
        if (number == 0)
            continue;
        if (std::optional<bool> isAvailable = featureOf(value))
            (*lines)[number] = {*isAvailable, {}};
        else
            (*lines)[number] = {false, complaint(document, value, featureExpected, "false")};
    }
    return {};
}

namespace {

// What was said last of each subject. The mutex is held over a fork, so that the child finds it
// free. Of a file with thousands of wrong values, the first ones are told.
class Said
{
public:
    static Said& instance()
    {
        static Said* said = [] {
            auto created = new Said;
            ::pthread_atfork(lock, unlock, unlock);
            return created;
        }();
        return *said;
    }

    // Whether `message` is to be said.
    bool isNew(const std::string& subject, const std::string& message)
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        const auto found = m_last.find(subject);
        if (found == m_last.end())
            return !message.empty() && m_last.size() < mostSubjects &&
                   m_last.emplace(subject, message).second;
        if (found->second == message)
            return false;
        found->second = message;
        return !message.empty();
    }

private:
    static constexpr std::size_t mostSubjects = 1000;

    static void lock() { instance().m_mutex.lock(); }
    static void unlock() { instance().m_mutex.unlock(); }

    std::mutex m_mutex;
    std::map<std::string, std::string> m_last;
};

} // namespace

void sayOnce(const std::string& subject, const std::string& message)
{
    if (Said::instance().isNew(subject, message))
        std::cerr << message + '\n' << std::flush;
}

} // namespace settingsfiles
