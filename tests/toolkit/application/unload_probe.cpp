// A program that knows the library only at run time: it loads it, runs the wizard once, unloads it,
// and goes on with widgets of its own. Usage: unload_probe LIBRARY; exits with 0 when it could.
#include <cstdio>

#include <dlfcn.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QWindow>

using Wizard = int (*)(QString&);

namespace {

void press(QWidget* window, int key, const char* text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(window->windowHandle(), &event);
    }
}

void cancelTheWizard()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            press(window, Qt::Key_F2, "");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    void* library = argc == 2 ? dlopen(argv[1], RTLD_NOW) : nullptr;
    void* entry = library ? dlsym(library, "_Z19createProfilebyUserR7QString") : nullptr;
    if (!entry) {
        std::fprintf(stderr, "cannot load the library: %s\n", dlerror());
        return 2;
    }
    QTimer::singleShot(0, cancelTheWizard);
    QString name;
    const int result = reinterpret_cast<Wizard>(entry)(name);
    dlclose(library);
    QLineEdit edit;
    edit.show();
    edit.setFocus();
    QCoreApplication::processEvents();
    press(&edit, Qt::Key_A, "a");
    QCoreApplication::processEvents();
    return result == 1 && edit.text() == "a" ? 0 : 1;
}
