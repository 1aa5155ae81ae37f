#include "common/gui_test.h"

#include <algorithm>
#include <memory>
#include <sstream>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <toolkit/yscreen.h>
#include <yapplication.h>

namespace {

std::vector<std::string> warnings;

void collect(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg)
        warnings.push_back(text.toStdString());
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

// The application is made only when tests run: listing them must work where there is no display.
class ApplicationEnvironment : public ::testing::Environment
{
public:
    void SetUp() override
    {
        qInstallMessageHandler(collect);
        m_application = std::make_unique<YApplication>(m_argc, m_argv);
        // Tests open and close the screen's window all the time; that must end no event loop.
        m_application->setQuitOnLastWindowClosed(false);
        YScreen::instance();
    }

    void TearDown() override
    {
        m_application.reset();
        qInstallMessageHandler(nullptr);
    }

private:
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    int m_argc = 1;
    std::unique_ptr<YApplication> m_application;
};

std::string describe(const QWidget& widget)
{
    std::ostringstream out;
    out << widget.metaObject()->className() << " \"" << widget.objectName().toStdString() << '"';
    return out.str();
}

std::set<const QWidget*> allWidgets()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return std::set<const QWidget*>(widgets.begin(), widgets.end());
}

// The window that takes the input: the screen's, or that of the widget in which the screen lies.
// Keys come only to an active window, and a window manager takes its time.
QWindow* inputWindow()
{
    QWindow* window = YScreen::instance()->window()->windowHandle();
    return window && QTest::qWaitForWindowActive(window) ? window : nullptr;
}

// An opened screen becomes the active window only after a while; a step that had to wait for it
// would let the next step overtake it.
void runWhenReady(std::function<void()> step, int tries)
{
    QTimer::singleShot(tries == 10000 ? 0 : 1, qApp, [step = std::move(step), tries] {
        const QWindow* window = YScreen::instance()->window()->windowHandle();
        if (YScreen::instance()->isVisible() && window && !window->isActive() && tries > 0)
            runWhenReady(step, tries - 1);
        else
            step();
    });
}

void moveFinger(const QPoint& from, const QPoint& to, bool rest)
{
    QWindow* window = inputWindow();
    ASSERT_TRUE(window) << "the screen is not open";
    const auto inWindow = [](const QPoint& point) {
        return YScreen::instance()->mapTo(YScreen::instance()->window(), point);
    };
    constexpr int steps = 10;
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, inWindow(from));
    for (int step = 1; step <= steps; ++step)
        QTest::mouseMove(window, inWindow(from + (to - from) * step / steps), 10);
    // A finger that rests has no speed left.
    for (int step = 0; rest && step < 3; ++step)
        QTest::mouseMove(window, inWindow(to + QPoint(step % 2, 0)), 60);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, inWindow(to));
}

} // namespace

void GuiTest::press(Qt::Key key)
{
    QWindow* window = inputWindow();
    ASSERT_TRUE(window) << "the screen is not open";
    QTest::keyClick(window, key);
}

void GuiTest::type(const QString& text)
{
    QWindow* window = inputWindow();
    ASSERT_TRUE(window) << "the screen is not open";
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

void GuiTest::tap(const QPoint& point)
{
    QWindow* window = inputWindow();
    ASSERT_TRUE(window) << "the screen is not open";
    const QPoint inWindow = YScreen::instance()->mapTo(YScreen::instance()->window(), point);
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, inWindow);
}

void GuiTest::tap(const QWidget* widget)
{
    tap(widget->mapTo(YScreen::instance(), widget->rect().center()));
}

void GuiTest::drag(const QPoint& from, const QPoint& to)
{
    moveFinger(from, to, true);
}

void GuiTest::flick(const QPoint& from, const QPoint& to)
{
    moveFinger(from, to, false);
}

QWidget* GuiTest::screen()
{
    return YScreen::instance();
}

QWidget* GuiTest::activeLayer()
{
    return YScreen::instance()->activeLayer();
}

void GuiTest::later(std::function<void()> step)
{
    runWhenReady(std::move(step), 10000);
}

void GuiTest::later(std::vector<std::function<void()>> steps)
{
    if (steps.empty())
        return;
    later([steps = std::move(steps)]() mutable {
        const std::function<void()> first = steps.front();
        steps.erase(steps.begin());
        // A step may enter a nested loop, in which the next one has to run.
        later(std::move(steps));
        first();
    });
}

void GuiTest::settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool GuiTest::waitFor(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 10000);
}

void GuiTest::expectWarning(const std::string& part)
{
    m_announced.push_back(part);
}

void GuiTest::allowWarnings(const std::string& part)
{
    m_allowed.push_back(part);
}

void GuiTest::SetUp()
{
    settle();
    m_widgetsBefore = allWidgets();
    warnings.clear();
}

std::vector<std::string> GuiTest::findings() const
{
    std::vector<std::string> found;
    std::vector<std::string> unannounced = warnings;
    for (const std::string& part : m_announced) {
        const auto match = std::find_if(unannounced.begin(), unannounced.end(),
                                        [&part](const std::string& warning) {
                                            return warning.find(part) != std::string::npos;
                                        });
        if (match == unannounced.end())
            found.push_back("the warning did not come: " + part);
        else
            unannounced.erase(match);
    }
    for (const std::string& warning : unannounced) {
        if (!isAllowed(warning))
            found.push_back("unannounced warning: " + warning);
    }
    for (const QWidget* widget : allWidgets())
        // Qt makes its desktop widget when it is first needed, and keeps it.
        if (isTop(*widget) && widget->windowType() != Qt::Desktop)
            found.push_back("left behind: " + describe(*widget));
    return found;
}

// A widget that was left behind speaks for its children.
bool GuiTest::isTop(const QWidget& widget) const
{
    const QWidget* parent = widget.parentWidget();
    return !m_widgetsBefore.count(&widget) && (!parent || m_widgetsBefore.count(parent));
}

bool GuiTest::isAllowed(const std::string& warning) const
{
    return std::any_of(m_allowed.begin(), m_allowed.end(), [&warning](const std::string& part) {
        return warning.find(part) != std::string::npos;
    });
}

void GuiTest::TearDown()
{
    settle();
    for (const std::string& finding : findings())
        ADD_FAILURE() << finding;
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);
    return RUN_ALL_TESTS();
}
