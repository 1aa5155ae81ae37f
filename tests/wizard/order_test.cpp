// The end of page 1 and what a page does that runs already: among the calls to the toolkit stand
// the log and the record's memory.

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <ykbmainwidget.h>

#include "common/interposed.h"
#include "support/log.h"
#include "wizard/dataconnection_newwiz1.h"
#include "wizard/world/record_bytes.h"
#include "wizard/world/toolkit_words.h"
#include "wizard/world/wizard_fixture.h"

using interposed::Call;

// In the place of the library's own.
void support::logPrint(int level, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const std::string text = interposed::formatted(format, arguments);
    va_end(arguments);
    const Call call("log " + std::to_string(level) + ' ' + text);
}

extern "C" __attribute__((visibility("default"))) void _ZN13YKbMainWidgetD2Ev(void* page)
{
    const Call call("end of " + toolkitcalls::nameOf(static_cast<QObject*>(page)));
    nextOf<void (*)(void*)>("_ZN13YKbMainWidgetD2Ev")(page);
}

namespace {

// The record that a page has read, until it is freed.
void* volatile watched = nullptr;

} // namespace

#ifdef __SANITIZE_ADDRESS__
#define FREE_OF_LIBC __interceptor_free
#else
#define FREE_OF_LIBC __libc_free
#endif

extern "C" void FREE_OF_LIBC(void* place);

// Runs before the sanitizers are ready.
extern "C" __attribute__((visibility("default"), no_sanitize("address", "undefined"))) void
free(void* place)
{
    if (place && place == watched) {
        watched = nullptr;
        const Call call("free the record");
    }
    FREE_OF_LIBC(place);
}

namespace {

typedef std::vector<std::string> Calls;

class Order : public Wizard
{
protected:
    void SetUp() override
    {
        Wizard::SetUp();
        setDefaultPreference("2");
        napi.profiles["Old"] = RecordBytes().word(4, 0x400).text(8, "a").record();
    }
    void TearDown() override
    {
        watched = nullptr;
        Wizard::TearDown();
    }

    std::unique_ptr<DataConnection_NewWiz1> newPage()
    {
        auto page = std::make_unique<DataConnection_NewWiz1>("Old", false, nullptr, nullptr, 0);
        watched = napi.lastRead;
        return page;
    }
};

const Calls ending = {"end of DataConnection_NewWiz2", "free the record",
                      "hide DataConnection_NewWiz1", "log 8 Destory an object...\n ",
                      "end of DataConnection_NewWiz1"};

TEST_F(Order, OfTheEndIsPageTwoTheRecordThePageItselfAndTheLog)
{
    auto page = newPage();
    EXPECT_EQ(ending, interposed::callsOf([&page] { page.reset(); }));
}

TEST_F(Order, OfTheEndIsTheSameWhileThePageRuns)
{
    auto page = newPage();
    Calls calls;
    perform([&] { calls = interposed::callsOf([&page] { delete page.release(); }); });
    EXPECT_EQ(page->run(), 2);
    EXPECT_EQ(ending, calls);
}

TEST_F(Order, OfAPageThatWasHiddenHidesItOnceMore)
{
    auto page = newPage();
    perform([&page] { page->hide(); });
    page->run();
    EXPECT_EQ(ending, interposed::callsOf([&page] { page.reset(); }));
}

TEST_F(Order, OfASecondRunIsTheResultAtOnce)
{
    auto page = newPage();
    int second = -1;
    bool isOver = false;
    perform({[&] {
                 const Calls calls = interposed::callsOf([&] { second = page->run(); });
                 EXPECT_EQ(calls.front(), "show DataConnection_NewWiz1");
                 EXPECT_EQ(second, 2);
                 EXPECT_FALSE(isOver);
                 EXPECT_TRUE(page->isVisible());
             },
             [&page] { page->slotGotoPrevious(); }});
    const int first = page->run();
    isOver = true;
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
}

TEST_F(Order, OfASecondRunBehindTheStoringIsItsResult)
{
    auto page = newPage();
    int second = -1;
    perform({opening([&page] { page->slotSaveProfile(); }),
             [&] {
                 EXPECT_NE(popupText(), "");
                 second = page->run();
             },
             dismiss});
    EXPECT_EQ(page->run(), 0);
    EXPECT_EQ(second, 0);
}

} // namespace
