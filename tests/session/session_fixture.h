// A session manager over the recorded network API, with its signals noted.
#ifndef SESSION_FIXTURE_H
#define SESSION_FIXTURE_H

#include "common/gui_test.h"
#include "session/napi_recorder.h"
#include "session/signal_log.h"

class YStateDialog;

class Session : public GuiTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    // init(false), with the record of its calls dropped.
    void initialise();
    // openLink("Internet"), with the record of its call dropped.
    void open();
    // Sends one message and lets the event loop deliver it.
    void deliver(const NapiIndication& message);
    static void pass();

    // The popup on the screen; null when there is none.
    static YStateDialog* popup();
    static int popupCount();

    NapiRecorder napi;
    std::unique_ptr<YDataSessionManager> manager;
    std::unique_ptr<SignalLog> log;
};

#endif
