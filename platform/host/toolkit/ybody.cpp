#include "ybody.h"

#include <cstdio>
#include <cstdlib>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QWidget>

#include <dlfcn.h>

#include "yenvironment.h"

namespace {

using MakeBody = QWidget* (*)(const char* kind, QWidget* display);

// Only what was installed with the toolkit is loaded, wherever that lies.
QString bodyLibrary()
{
    Dl_info own{};
    if (!dladdr(reinterpret_cast<void*>(&YBody::around), &own) || !own.dli_fname)
        return {};
    const QFileInfo toolkit(QString::fromLocal8Bit(own.dli_fname));
    return QFileInfo(toolkit.canonicalFilePath()).path() +
           QStringLiteral("/vornqtnapi/libvornbody.so");
}

MakeBody load()
{
    QLibrary library(bodyLibrary());
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto make = reinterpret_cast<MakeBody>(library.resolve("vornMakeBody"));
    if (!make)
        std::fprintf(stderr, "VORN_BODY=%s: the phone cannot be loaded: %s\n",
                     qPrintable(YEnvironment::body()), qPrintable(library.errorString()));
    return make;
}

MakeBody bodyMaker()
{
    static const MakeBody make = load();
    return make;
}

// Before a window is shown, so that the door for the browser is closed to everybody else when it
// opens. Without the library there would be no door.
void loadEarly()
{
    if (!YEnvironment::body().isEmpty() && !bodyMaker() &&
        YEnvironment::body() == QLatin1String("web"))
        std::exit(1);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(loadEarly)

QWidget* YBody::around(QWidget* display)
{
    const QString kind = YEnvironment::body();
    const MakeBody make = kind.isEmpty() ? nullptr : bodyMaker();
    return make ? make(qPrintable(kind), display) : nullptr;
}
