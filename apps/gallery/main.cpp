// Renders every scene in both themes to PNG files.
#include <cstdio>

#include <QCommandLineParser>
#include <QDir>
#include <QPixmap>

#include <toolkit/yscreen.h>
#include <toolkit/ytheme.h>
#include <yapplication.h>

#include "scene.h"

namespace {

struct Look
{
    const char* name;
    YTheme::Scheme scheme;
};

constexpr Look looks[] = {{"light", YTheme::Scheme::Light}, {"dark", YTheme::Scheme::Dark}};

std::vector<Scene> allScenes()
{
    std::vector<Scene> scenes;
    for (const auto& kind : {dialogScenes(), formScenes()})
        scenes.insert(scenes.end(), kind.begin(), kind.end());
    return scenes;
}

bool render(const Scene& scene, const Look& look, const QDir& folder, const QString& suffix)
{
    YTheme::use(look.scheme);
    Stage stage;
    scene.build(stage);
    QCoreApplication::processEvents();
    const QString file = folder.filePath(QString("%1-%2%3.png").arg(scene.name, look.name, suffix));
    if (YScreen::instance()->grab().save(file))
        return true;
    std::fprintf(stderr, "gallery: %s cannot be written\n", qPrintable(file));
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    YApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    QCommandLineParser options;
    options.setApplicationDescription("Renders the phone's widgets to PNG files.");
    options.addHelpOption();
    const QCommandLineOption suffix("suffix", "What the file names end with.", "text");
    const QCommandLineOption only("only", "The one scene to render.", "name");
    options.addOptions({suffix, only});
    options.addPositionalArgument("FOLDER", "Where the files go.");
    options.process(application);
    if (options.positionalArguments().size() != 1)
        options.showHelp(2);
    const QDir folder(options.positionalArguments().first());
    if (!folder.exists()) {
        std::fprintf(stderr, "gallery: there is no folder %s\n", qPrintable(folder.path()));
        return 2;
    }
    int written = 0;
    for (const Scene& scene : allScenes()) {
        if (options.isSet(only) && options.value(only) != scene.name)
            continue;
        for (const Look& look : looks) {
            if (!render(scene, look, folder, options.value(suffix)))
                return 1;
            ++written;
        }
    }
    std::printf("%d pictures in %s\n", written, qPrintable(folder.absolutePath()));
    return written > 0 ? 0 : 1;
}
