// Renders every scene in both themes to PNG files.
#include <algorithm>
#include <cstdio>

#include <QCommandLineParser>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <toolkit/look/ytheme.h>
#include <toolkit/yscreen.h>
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
    for (const auto& kind : {dialogScenes(), formScenes(), iconScenes()})
        scenes.insert(scenes.end(), kind.begin(), kind.end());
    return scenes;
}

// One picture of many: row by row, with a little room between them.
class Sheet
{
public:
    // The sheet shows each pixel of a picture, however many of them a logical pixel has.
    void add(QPixmap picture)
    {
        picture.setDevicePixelRatio(1);
        m_pictures.push_back(picture);
    }

    bool save(const QString& file) const
    {
        constexpr int columns = 11;
        constexpr int gap = 8;
        if (m_pictures.empty())
            return false;
        const QSize cell = m_pictures.front().size() + QSize(gap, gap);
        const int rows = (static_cast<int>(m_pictures.size()) + columns - 1) / columns;
        QImage sheet(cell.width() * columns + gap, cell.height() * rows + gap,
                     QImage::Format_RGB32);
        sheet.fill(QColor(0x50, 0x56, 0x5E));
        QPainter painter(&sheet);
        for (std::size_t i = 0; i < m_pictures.size(); ++i) {
            const int column = static_cast<int>(i) % columns;
            const int row = static_cast<int>(i) / columns;
            painter.drawPixmap(gap + column * cell.width(), gap + row * cell.height(),
                               m_pictures[i]);
        }
        painter.end();
        return sheet.save(file);
    }

private:
    std::vector<QPixmap> m_pictures;
};

QPixmap render(const Scene& scene, YTheme::Scheme scheme)
{
    YTheme::use(scheme);
    Stage stage;
    scene.build(stage);
    QCoreApplication::processEvents();
    return YScreen::instance()->grab();
}

// Writes the scenes' pictures and a sheet of them all; the number of pictures, or -1.
int renderAll(const std::vector<Scene>& scenes, const QDir& folder, const QString& suffix)
{
    int written = 0;
    for (const Look& look : looks) {
        Sheet sheet;
        for (const Scene& scene : scenes) {
            const QPixmap picture = render(scene, look.scheme);
            const QString file = QString("%1-%2%3.png").arg(scene.name, look.name, suffix);
            if (!picture.save(folder.filePath(file)))
                return -1;
            sheet.add(picture);
            ++written;
        }
        if (!sheet.save(folder.filePath(QString("sheet-%1%2.png").arg(look.name, suffix))))
            return -1;
    }
    return written;
}

std::vector<Scene> scenesNamed(const QString& name)
{
    std::vector<Scene> scenes = allScenes();
    scenes.erase(std::remove_if(scenes.begin(), scenes.end(),
                                [&name](const Scene& scene) { return name != scene.name; }),
                 scenes.end());
    return scenes;
}

// Result: the status with which the program ends.
int render(const std::vector<Scene>& scenes, const QDir& folder, const QString& suffix)
{
    if (scenes.empty()) {
        std::fprintf(stderr, "gallery: there is no scene of this name\n");
        return 2;
    }
    const int written = renderAll(scenes, folder, suffix);
    if (written < 0) {
        std::fprintf(stderr, "gallery: the pictures cannot be written to %s\n",
                     qPrintable(folder.path()));
        return 1;
    }
    std::printf("%d pictures in %s\n", written, qPrintable(folder.absolutePath()));
    return 0;
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
    const std::vector<Scene> scenes =
        options.isSet(only) ? scenesNamed(options.value(only)) : allScenes();
    return render(scenes, folder, options.value(suffix));
}
