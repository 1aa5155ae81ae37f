// Connection texts in the forms that Qt 2.3 and Qt 6 both take; the lint of tests/guard/ holds the
// library to them.
#include <gtest/gtest.h>

#include "support/receiver.h"

namespace {

int messages = 0;

void count(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++messages;
}

struct Row
{
    const char* name;
    const char* signal;
    const char* slot;
};

const Row withoutArguments[] = {
    {"plain", SIGNAL(changed(int, const QString&)), SLOT(act())},
    {"void", SIGNAL(changed(int, const QString&)), SLOT(act(void))},
    {"blanks inside", "2changed ( int , const QString & )", "1act ( )"},
    {"made at run time", "2changed(int,const QString&)", "1act( void )"},
};

const Row withArguments[] = {
    {"plain", SIGNAL(changed(int, const QString&)), SLOT(choose(int))},
    {"blanks inside", "2changed ( int , const QString & )", "1choose ( int )"},
};

// How often the slot is called for one emission.
int callsOf(Receiver& receiver, const Row& row)
{
    Receiver sender;
    const bool connected = QObject::connect(&sender, row.signal, &receiver, row.slot);
    EXPECT_TRUE(connected);
    sender.change(7, "text");
    return receiver.calls;
}

} // namespace

TEST(Connect, ReachesASlotWithoutArgumentsInEachSpelling)
{
    for (const Row& row : withoutArguments) {
        SCOPED_TRACE(row.name);
        Receiver receiver;
        EXPECT_EQ(callsOf(receiver, row), 1);
    }
}

TEST(Connect, HandsTheLeadingArgumentsToTheSlotInEachSpelling)
{
    for (const Row& row : withArguments) {
        SCOPED_TRACE(row.name);
        Receiver receiver;
        EXPECT_EQ(callsOf(receiver, row), 1);
        EXPECT_EQ(receiver.lastIndex, 7);
    }
}

TEST(Connect, OfUnlikeArgumentsIsReported)
{
    Receiver receiver;
    messages = 0;
    const QtMessageHandler before = qInstallMessageHandler(count);
    QObject::connect(&receiver, SIGNAL(changed(int, const QString&)), &receiver,
                     SLOT(choose(QString)));
    qInstallMessageHandler(before);
    EXPECT_EQ(messages, 1);
}
