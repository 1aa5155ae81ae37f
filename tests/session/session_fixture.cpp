#include "session/session_fixture.h"

#include <QApplication>

#include <ystatedialog.h>

void Session::SetUp()
{
    GuiTest::SetUp();
    NapiRecorder::current = &napi;
    manager = std::make_unique<YDataSessionManager>();
    log = std::make_unique<SignalLog>(*manager);
}

void Session::TearDown()
{
    log.reset();
    manager.reset();
    pass();
    NapiRecorder::current = nullptr;
    GuiTest::TearDown();
}

void Session::initialise()
{
    ASSERT_GE(manager->init(false), 0);
    napi.take();
}

void Session::open()
{
    ASSERT_EQ(manager->openLink("Internet"), 5);
    napi.take();
}

void Session::deliver(const NapiIndication& message)
{
    napi.send(message);
    pass();
}

void Session::pass()
{
    QApplication::processEvents();
}

YStateDialog* Session::popup()
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (auto* dialog = qobject_cast<YStateDialog*>(widget))
            return dialog;
    }
    return nullptr;
}

int Session::popupCount()
{
    int count = 0;
    for (QWidget* widget : QApplication::allWidgets())
        count += qobject_cast<YStateDialog*>(widget) ? 1 : 0;
    return count;
}
