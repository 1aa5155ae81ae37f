// Keys and taps by chance, over the wizard, the selection dialog, the not-found flow and the
// connecting popup, with records and results by chance. VORN_TEST_EVENTS says how many events;
// VORN_SEED replays a run.
#include <cstdlib>
#include <iostream>
#include <random>

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>

#include <profilefunctions.h>
#include <ydatasessionmanager.h>

#include "wizard/world/record_generator.h"
#include "wizard/world/wizard_fixture.h"

namespace {

constexpr int shortRun = 2000;

long eventsWanted()
{
    const char* given = std::getenv("VORN_TEST_EVENTS");
    return given ? std::strtol(given, nullptr, 10) : shortRun;
}

const char scenarios[] = R"({"bearer": "scenario", "scenario": {"profiles": {
    "Late": {"afterMs": 2}, "Fail": {"outcome": "fail", "cause": 5, "detail": 691},
    "Never": {"outcome": "never"}, "Breaks": {"breakAfterMs": 2}}}})";

const char* const linkNames[] = {"Late", "Fail", "Never", "Breaks", "Absent"};

class Monkey : public Wizard
{
protected:
    Monkey() : m_seed(firstSeed()), m_random(m_seed), m_records(m_seed) {}

    void SetUp() override
    {
        Wizard::SetUp();
        writeFile("etc/network.json", scenarios);
        // Of letters for which this machine has no font.
        allowWarnings("OpenType support missing");
        m_widgetsBefore = QApplication::allWidgets().size();
    }

    // Runs `act`, which may open dialogs, with events by chance meanwhile, until it has returned.
    template <typename Act> auto withEvents(Act act)
    {
        m_isOver = false;
        m_left = 20 + below(200);
        m_tries = 0;
        goOn();
        const auto result = act();
        m_isOver = true;
        return result;
    }

    // Lets the events go on, outside any dialog's own loop, until the screen is empty.
    void waitForEvents()
    {
        QEventLoop loop;
        m_loop = &loop;
        loop.exec();
        m_loop = nullptr;
        m_isOver = true;
    }

    void expectNothingLeft(const char* what)
    {
        waitFor([this] { return m_pending == 0; });
        settle();
        ASSERT_EQ(activeLayer(), nullptr) << what;
        // Qt keeps one or the other of its own, once it has made it.
        ASSERT_LE(QApplication::allWidgets().size(), m_widgetsBefore + 4) << what;
    }

    void drawWorld()
    {
        napi.profiles.clear();
        QDir folders(root.filePath("vornlocal/download/appwrite/NetProfile"));
        for (unsigned count = below(7); count > 0; --count) {
            const std::string drawn = drawName();
            napi.profiles[drawn] = m_records.record().record();
            folders.mkpath(QString::fromStdString(drawn));
        }
        for (int* result : {&napi.listResult, &napi.validResult, &napi.readResult,
                            &napi.createResult, &napi.modifyResult})
            *result = below(8) ? 0 : oneOf({-152, -205, -206, -208, -216, -217});
        setWifi(below(2));
        setDefaultPreference(std::to_string(int(below(5)) - 1));
        name = QString::fromStdString(
            napi.profiles.empty() || below(6) == 0 ? drawName() : napi.profiles.begin()->first);
    }

    std::string drawName()
    {
        return oneOf<const char*>({"Profile1", "Home", "\xe7\xbd\x91\xe7\xbb\x9c", "A b c", "x",
                                   "A name of twenty-two b"});
    }

    unsigned below(unsigned limit) { return unsigned(m_random() % limit); }

    template <typename Value> Value oneOf(std::initializer_list<Value> values)
    {
        return values.begin()[below(unsigned(values.size()))];
    }

    long events() const { return m_events; }

private:
    // The next event is under way before this one, which may run a loop of its own.
    void goOn()
    {
        ++m_pending;
        later([this] {
            --m_pending;
            if (m_isOver)
                return;
            goOn();
            if (m_loop && !activeLayer())
                m_loop->quit();
            if (!activeLayer() || !screen()->isVisible())
                return;
            ++m_events;
            if (--m_left > 0)
                act();
            else
                leave();
        });
    }

    void act()
    {
        const unsigned kind = below(10);
        if (kind < 6)
            press(oneOf({Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right,
                         Qt::Key_Return, Qt::Key_Return, Qt::Key_F1, Qt::Key_F2, Qt::Key_Backspace,
                         Qt::Key_Tab, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Delete,
                         Qt::Key_Escape}));
        else if (kind < 8)
            type(QString(oneOf<QChar>({u'0', u'1', u'9', u'.', u'a', u'Z', u' ', u'/', u'#',
                                       QChar(0x7f51), QChar(0xe4), QChar(0xd83d)})));
        else
            tap(QPoint(int(below(unsigned(screen()->width()))),
                       int(below(unsigned(screen()->height())))));
    }

    // The layer that takes the input, for a person to read.
    static std::string seen()
    {
        std::string text = activeLayer()->metaObject()->className();
        for (const QLabel* label : activeLayer()->findChildren<QLabel*>())
            text += " | " + label->text().toStdString();
        for (const QPushButton* button : activeLayer()->findChildren<QPushButton*>())
            text += " | [" + button->text().toStdString() + (button->isVisible() ? "]" : "] off");
        return text;
    }

    // Time to go: what a person does who wants to be out of it. A changed page is left over its
    // menu.
    void leave()
    {
        if (++m_tries == 1000) {
            ADD_FAILURE() << "no key leads out of " << seen();
            delete activeLayer();
            return;
        }
        press(below(2) ? Qt::Key_Escape
                       : oneOf({Qt::Key_F1, Qt::Key_F1, Qt::Key_Down, Qt::Key_Return,
                                Qt::Key_Return, Qt::Key_F2}));
    }

    unsigned m_seed;
    std::mt19937 m_random;
    RecordGenerator m_records;
    QEventLoop* m_loop = nullptr;
    bool m_isOver = true;
    int m_left = 0;
    int m_tries = 0;
    int m_pending = 0;
    long m_events = 0;
    qsizetype m_widgetsBefore = 0;
};

struct Entry
{
    const char* name;
    int (*function)(QString&);
    std::set<int> results; // beside those of the network API
};

const Entry entries[] = {
    {"create", createProfilebyUser, {0, 1, 2}},
    {"copy", copyProfilebyUser, {0, 1, 2}},
    {"edit", editProfilebyUser, {0, 1, 2}},
    {"select", getProfileNamebySelect, {0, -100}},
    {"not found", getProfileIfNoFound, {0, 1, 2, -1, -100}},
};

TEST_F(Monkey, LeavesEveryDialogWithADocumentedResultAndNothingBehind)
{
    int rounds = 0;
    for (; events() < eventsWanted() && !HasFailure(); ++rounds) {
        drawWorld();
        const Entry& entry = entries[below(unsigned(std::size(entries)))];
        const int result = withEvents([&] { return entry.function(name); });
        EXPECT_TRUE(entry.results.count(result) || (result < 0 && result == napi.listResult))
            << entry.name << " gave " << result;
        expectNothingLeft(entry.name);
        take();
    }
    std::cout << events() << " events in " << rounds << " dialogs\n";
}

TEST_F(Monkey, EndsEveryPopupWithItsLink)
{
    for (const char* link : {"Late", "Fail", "Never", "Breaks"})
        napi.profiles[link] = {};
    YDataSessionManager manager;
    ASSERT_GE(manager.init(false), 0);
    int rounds = 0;
    for (; events() < eventsWanted() / 4 && !HasFailure(); ++rounds) {
        const char* link = linkNames[below(unsigned(std::size(linkNames)))];
        const int id = withEvents([&] {
            const int opened = manager.openLink(link);
            if (opened >= 0)
                waitForEvents();
            return opened;
        });
        ASSERT_EQ(id >= 0, std::string(link) != "Absent") << link << " gave " << id;
        manager.closeLink(id);
        expectNothingLeft(link);
        if (rounds % 50 == 49)
            settle();
    }
    std::cout << events() << " events in " << rounds << " popups\n";
}

} // namespace
