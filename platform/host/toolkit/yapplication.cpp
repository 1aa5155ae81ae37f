#include <yapplication.h>

#include <QAbstractEventDispatcher>

YApplication::YApplication(int& argc, char** argv) : QApplication(argc, argv) {}

YApplication::~YApplication() = default;

void YApplication::wakeUpGuiThread()
{
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance(thread()))
        dispatcher->wakeUp();
}
