// A program that is built with QT_NO_KEYWORDS: "signals", "slots" and "emit" are names of its own,
// and every header of the library and of the platform leaves them to it.
#include "every_header.h"

#include "common/gui_test.h"

namespace {

class Program : public QObject
{
    Q_OBJECT

public:
    int signals = 0;
    int slots = 0;
    int emit = 0;

public Q_SLOTS:
    void count(int row) { signals += row; }
    void count() { ++slots; }
};

class WithoutKeywords : public GuiTest
{};

TEST_F(WithoutKeywords, SignalsAndSlotsOfTheHeadersAreThere)
{
    Program program;
    YListBox list(nullptr, nullptr, 0);
    EXPECT_TRUE(QObject::connect(&list, SIGNAL(highlighted(int)), &program, SLOT(count(int))));
    list.insertItem(new YListBoxItem(&list, QString()), -1, false);
    list.insertItem(new YListBoxItem(&list, QString()), -1, false);
    list.setCurrentItem(1);
    EXPECT_EQ(program.signals, 1);
    QWSSocket socket;
    YDataSessionManager manager;
    EXPECT_TRUE(QObject::connect(&socket, SIGNAL(readyRead()), &program, SLOT(count())));
    EXPECT_TRUE(
        QObject::connect(&manager, SIGNAL(connected(int, YLinkInfo&)), &program, SLOT(count(int))));
}

} // namespace

#include "keywords_test.moc"
