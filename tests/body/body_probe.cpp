// A program that knows nothing of the phone around it: it shows a list until it is told to end, and
// says what it sees. Usage: body_probe [STATUS]; ends with STATUS at once when that is given.
#include <cstdio>
#include <cstdlib>

#include <QAbstractItemView>
#include <QApplication>
#include <QTimer>

#include <yapplication.h>
#include <ylistbox.h>
#include <ysingleselectdlg.h>

int main(int argc, char** argv)
{
    YApplication application(argc, argv);
    YSingleSelectDlg dialog("Choose", QString(), nullptr, nullptr, true, 0U, 0);
    dialog.getListBox()->setItemType("%R%M240");
    for (const char* text : {"One", "Two"}) {
        auto* item = new YListBoxItem(dialog.getListBox(), "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.show();
    QTimer::singleShot(500, &application, [&] {
        const QWidget* window = dialog.window();
        const QWidget* screen = dialog.parentWidget();
        const double ratio = window->devicePixelRatioF();
        const auto* rows = dialog.getListBox()->findChild<QAbstractItemView*>();
        const int row = rows ? rows->visualRect(rows->model()->index(0, 0)).height() : 0;
        std::printf("window %s %.0fx%.0f screen %dx%d ratio %.2f row %.1f\n",
                    window->metaObject()->className(), window->width() * ratio,
                    window->height() * ratio, screen->width(), screen->height(), ratio,
                    row * ratio);
        std::fflush(stdout);
        if (argc > 1)
            application.exit(std::atoi(argv[1]));
    });
    return application.exec();
}
