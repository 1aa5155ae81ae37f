// Has the user choose a connection, or make one where there is none, and prints its name:
//     choose
// Ends with 0 when a connection was chosen, 1 when the user did not want one, 2 when the stored
// ones cannot be read.

#include <cstdio>

#include <napi.h>
#include <profilefunctions.h>
#include <vornqtnapi_texts.h>
#include <yapplication.h>

namespace {

// The number of stored profiles, or the network API's negative result.
int storedProfiles()
{
    unsigned int count = 0;
    const int result = NAPI_ListAllProfile(nullptr, &count);
    return result < 0 ? result : static_cast<int>(count);
}

} // namespace

int main(int argc, char** argv)
{
    YApplication application(argc, argv);
    const int stored = storedProfiles();
    if (stored < 0) {
        std::fprintf(stderr, "the connections cannot be read: %s\n", vornResultText(stored));
        return 2;
    }
    QString name;
    // Where there is none, the user is told so and may make one.
    const int result = stored > 0 ? getProfileNamebySelect(name) : getProfileIfNoFound(name);
    if (result != 0) {
        std::fprintf(stderr, "no connection is chosen\n");
        return 1;
    }
    std::printf("%s\n", name.toUtf8().constData());
    return 0;
}
