// The two files of the settings library, read.
#ifndef SETTINGS_FILES_H
#define SETTINGS_FILES_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/json_document.h"
#include "settings/settings_host.h"

namespace settingsfiles {

// One member of etc/settings.json; `value` counts where `problem` is empty.
struct Leaf
{
    std::string name;
    settingshost::Setting value;
    std::string problem; // file, line, what was expected and what was found
    std::string ignored; // the same of a value that can be read and means nothing
};

// A node that the library for the phone reads, as an integer, and which integers mean something.
struct KnownNode
{
    const char* name;
    int low, high;
    const char* expected; // for messages
    const char* used;     // what programs do with every other value
};

// Null for a node that the library does not read.
const KnownNode* knownNode(const std::string& name);

// What the errno of a call on the root, its etc/ or a file there means.
settingshost::Code codeOf(int error);

// Tells whether the folder of the files can be used: Ok, Root, Access or Io.
settingshost::Result checkRoot();

// Whether a text can be a node's name, or a node's text.
bool isNodeName(const std::string& text);
bool isNodeText(const std::string& text);

// The number that a key of etc/features.json stands for; 0 when it stands for none.
int featureNumber(const std::string& key);

// What a value must be, for messages, and the value when it is so.
extern const char settingExpected[];
extern const char featureExpected[];
std::optional<settingshost::Setting> settingOf(const base::JsonValue& value);
std::optional<bool> featureOf(const base::JsonValue& value);

// Ok, or the first problem as its message: the outermost value must be an object. Broken, or what
// the errno means of a file that cannot be read. `used` says what stands in the file's place.
settingshost::Result checkDocument(const base::JsonDocument& document, const std::string& used);

// Reads etc/settings.json: Ok, Broken, Root, Access or Io. A missing file has no leaves. `used` is
// what the messages say to stand in the place of a file that cannot be used; with "" they say
// nothing of it.
settingshost::Result readLeaves(std::vector<Leaf>* leaves, const std::string& used);

// One member of etc/features.json; `isAvailable` is false where `problem` is not empty.
struct FeatureLine
{
    bool isAvailable = false;
    std::string problem;
};

// Reads etc/features.json, by number, as readLeaves() does.
settingshost::Result readFeatures(std::map<int, FeatureLine>* lines, const std::string& used);

// Says on standard error what is wrong with `subject` (a file, or one member of it), unless just
// that was the last that was said of it. An empty message means that it is good.
void sayOnce(const std::string& subject, const std::string& message);

} // namespace settingsfiles

#endif
