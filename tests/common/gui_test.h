// The fixture of tests with widgets: one application object, a person's keys and finger, and
// nothing left behind. Link vorn_gui_test, which has main().
#ifndef GUI_TEST_H
#define GUI_TEST_H

#include <functional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

class GuiTest : public ::testing::Test
{
public:
    // A key of the phone, pressed and released on the screen's window, so that it takes the way of
    // a real key.
    static void press(Qt::Key key);
    // Letters, one key each.
    static void type(const QString& text);

    // A finger on the screen, in its pixels, or on the middle of a widget of the screen. Whatever
    // lies on top there gets it.
    static void tap(const QPoint& point);
    static void tap(const QWidget* widget);

    // A finger that goes from one place to another in a tenth of a second and stays there before it
    // leaves the screen, so that nothing runs on.
    static void drag(const QPoint& from, const QPoint& to);
    // The same without the stay: what it moves may run on.
    static void flick(const QPoint& from, const QPoint& to);

    // The screen's widget, the layer that has the input, and the popup's or page's text with the
    // focus.
    static QWidget* screen();
    static QWidget* activeLayer();

    // Runs `step` once the event loop is idle: from inside exec(), for instance.
    static void later(std::function<void()> step);
    // Runs one after the other, each in an idle event loop of its own.
    static void later(std::vector<std::function<void()>> steps);
    // Handles all that waits in the event loop, deferred deletions too.
    static void settle();
    // Waits in the event loop until `condition` holds; false after ten seconds.
    static bool waitFor(const std::function<bool()>& condition);

    // A warning of Qt that has to come in this test, exactly once for each call, and contains
    // `part`.
    void expectWarning(const std::string& part);
    // Warnings that may come in this test, any number of them, and contain `part`.
    void allowWarnings(const std::string& part);

protected:
    void SetUp() override;
    void TearDown() override;

    // What TearDown() would complain of at this moment.
    std::vector<std::string> findings() const;

private:
    bool isTop(const QWidget& widget) const;
    bool isAllowed(const std::string& warning) const;

    std::set<const QWidget*> m_widgetsBefore;
    std::vector<std::string> m_announced;
    std::vector<std::string> m_allowed;
};

#endif
