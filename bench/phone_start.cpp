// vornphone's home page as the program shows it, until it is painted; for phone_bench.py.
#include <QVBoxLayout>

#include <yapplication.h>

#include "cards/cardlist.h"
#include "display/display.h"
#include "home/homepage.h"
#include "phone.h"
#include "settings/settings.h"
#include "start_report.h"

int main(int argc, char** argv)
{
    phone::Settings settings;
    phone::applyLook();
    YApplication application(argc, argv);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* display = new phone::Display;
    layout->addWidget(display);
    phone::Phone program(display);
    auto* list = program.home().findChild<phone::CardList*>();
    PaintWatch watch(*list->viewport());
    window.show();
    watch.wait();
    report(sinceStart(), *list);
    return 0;
}
