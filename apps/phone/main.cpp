// vornphone: the phone's own program for connections.

#include <cstdio>
#include <memory>
#include <optional>

#include <yapplication.h>

#include "body/body.h"
#include "display/display.h"
#include "log/logfile.h"
#include "options.h"
#include "phone.h"
#include "settings/settings.h"
#include "tour/tour.h"

namespace {

// Null where no tour is asked for.
std::unique_ptr<phone::Tour> beginTour(const phone::Options& options, phone::Phone& program,
                                       QWidget* display)
{
    if (options.tour.empty())
        return nullptr;
    const QDir folder(QString::fromStdString(options.tour));
    folder.mkpath(QStringLiteral("."));
    auto tour = std::make_unique<phone::Tour>(program, display, folder);
    tour->begin();
    return tour;
}

} // namespace

int main(int argc, char** argv)
{
    phone::Options options;
    int status = 0;
    if (!options.read(argc, argv, &status))
        return status;
    if (const std::optional<int> ended = phone::launch(options.body, argv))
        return *ended;
    phone::Settings settings;
    phone::applyLook();
    YApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vornphone"));
    if (!phone::attachLog(QString::fromStdString(options.log)))
        std::fprintf(stderr, "vornphone: the log cannot be opened; going on without it\n");
    auto* display = new phone::Display;
    const auto body = phone::makeBody(display);
    phone::Phone program(display);
    QObject::connect(&program, SIGNAL(exitChosen()), &application, SLOT(quit()));
    body->show();
    const std::unique_ptr<phone::Tour> tour = beginTour(options, program, display);
    return application.exec();
}
