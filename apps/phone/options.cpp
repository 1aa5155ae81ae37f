#include "options.h"

#include <cstdio>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace phone {

bool Options::read(int argc, char** argv, int* status)
{
    CLI::App app("The phone's program for connections: make, change and open them.", "vornphone");
    app.set_version_flag("--version", "vornphone " VORN_VERSION, "Print the version and end");
    app.add_option("--log", log, "The file of the library's log [log/vornphone.log below the root]")
        ->type_name("FILE");
    app.add_option("--tour", tour, "Play the typical use and leave pictures of it in a folder")
        ->type_name("FOLDER");
    addBodyOptions(app, body);
    try {
        app.parse(takeProgram(argc, argv, body), argv);
        return true;
    } catch (const CLI::CallForHelp&) {
        std::fputs(app.help().c_str(), stdout);
        *status = 0;
    } catch (const CLI::CallForVersion& version) {
        std::printf("%s\n", version.what());
        *status = 0;
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "vornphone: %s\n  \"vornphone --help\" tells more.\n", error.what());
        *status = 2;
    }
    return false;
}

} // namespace phone
