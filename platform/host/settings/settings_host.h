// What the host offers beyond the phone's settings calls, for the programs that play the phone:
// changing the settings tree and the features, and looking for what is wrong in their files.
// Applications do without it.
//
// Thread-safe. Reading never waits for anybody; writing waits for another process that is writing,
// 10 seconds at the longest, and is on the disk when the call returns, whole or not at all. Writing
// keeps everything else that stands in the file, and refuses to touch a file that it cannot read
// through. Names and texts are UTF-8.
#ifndef SETTINGS_HOST_H
#define SETTINGS_HOST_H

#include <string>
#include <utility>
#include <vector>

#include "platform_export.h"

namespace settingshost {

enum class Code {
    Ok = 0,
    // No node name: 1 to 255 bytes of valid UTF-8 without control characters. Nothing was touched.
    Name = -1,
    // No feature number: 0 or less. Nothing was touched.
    Number = -2,
    // A text that is not valid UTF-8, holds a NUL or has more than 4096 bytes. Nothing was touched.
    Value = -3,
    // There is no such node.
    NoNode = -4,
    // The node is there, but is neither an integer of 32 bits nor a text nor a truth value.
    Unusable = -5,
    // The file is not JSON, its outermost value is no object, it is no regular file, or it is
    // larger than 4 MiB.
    Broken = -6,
    // The folder that stands for the phone's file system cannot be used: none is named, it is not
    // an absolute path, or it or its etc/ is no folder.
    Root = -7,
    // The file system refused: permissions, or mounted read-only.
    Access = -8,
    // The disk or the quota is full, or the file would grow beyond 4 MiB.
    Full = -9,
    // Reading or writing failed for another reason.
    Io = -10,
    // Another program has been writing for 10 seconds and has not ended. Nothing was touched.
    Busy = -11,
    // The change stands and everybody sees it, but the disk has not confirmed it: after a loss of
    // power there may be the old file or the new one.
    NotSynced = -12
};

struct Result
{
    Code code = Code::Ok;
    // A sentence for people with the file, where there is one, and its line; "" for Ok.
    std::string message;

    bool isOk() const { return code == Code::Ok; }
};

// A node's value; the member that `type` names counts.
struct Setting
{
    enum class Type { Integer, Text, Boolean };

    Type type = Type::Integer;
    int integer = 0;
    std::string text;
    bool boolean = false;
};

typedef std::vector<std::pair<std::string, Setting>> Settings;
typedef std::vector<std::pair<int, bool>> Features;

// etc/settings.json and etc/features.json below the root; "" when no root is named.
VORN_PLATFORM_API std::string settingsFile();
VORN_PLATFORM_API std::string featuresFile();

// True for the nodes that the library for the phone reads as integers.
VORN_PLATFORM_API bool isReadAsInteger(const std::string& name);

// Reads one node. Result: Ok, Name, NoNode, Unusable, Broken, Root, Access, Io. `*setting` changes
// only with Ok.
VORN_PLATFORM_API Result getSetting(const std::string& name, Setting* setting);

// Sets one node, or makes it; a node may change its type. Result: Ok, Name, Value, Broken, Root,
// Access, Full, Io, Busy, NotSynced.
VORN_PLATFORM_API Result setSetting(const std::string& name, const Setting& setting);

// Removes one node. Result: Ok, Name, NoNode, Broken, Root, Access, Full, Io, Busy.
VORN_PLATFORM_API Result removeSetting(const std::string& name);

// All nodes of usable values, in the order of the file. A missing file has none. Result: Ok,
// Broken, Root, Access, Io; `*settings` changes only with Ok.
VORN_PLATFORM_API Result listSettings(Settings* settings);

// Sets whether the feature of this number is available. Result: Ok, Number, Broken, Root, Access,
// Full, Io, Busy, NotSynced.
VORN_PLATFORM_API Result setFeature(int number, bool isAvailable);

// Removes a feature from the file, so that it is not available. Result: Ok, Number, NoNode, Broken,
// Root, Access, Full, Io, Busy.
VORN_PLATFORM_API Result removeFeature(int number);

// The features that the file names, by number; all others are not available. A missing file names
// none. Result: Ok, Broken, Root, Access, Io; `*features` changes only with Ok.
VORN_PLATFORM_API Result listFeatures(Features* features);

// What a feature number stands for, in English: "WiFi" for 431; "" for a number of no known
// meaning.
VORN_PLATFORM_API const char* featureText(int number);

// One thing that is wrong in a file.
struct Finding
{
    std::string path; // "file:line", or the file alone
    std::string
        problem;        // "DefConnPrefer: expected an integer, a text or a truth value, found null"
    std::string remedy; // what a person can do about it
};

// Looks through both files without changing anything: one finding for each thing wrong, in the
// order of the files; then the rights of others to change them or their folder, and what ended
// programs have left of them. Missing files are no findings.
VORN_PLATFORM_API std::vector<Finding> inspectSettings();

} // namespace settingshost

#endif
