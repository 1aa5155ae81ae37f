// The application object: input methods of widgets, and waking the event loop.
#include <chrono>
#include <thread>

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTimer>

#include <yapplication.h>
#include <yinputfield.h>
#include <ylineedit.h>

#include "common/gui_test.h"

namespace {

YApplication* application()
{
    return static_cast<YApplication*>(QCoreApplication::instance());
}

class Application : public GuiTest
{};

struct Method
{
    const char* name;
    int mode;
    Qt::InputMethodHint hint;
};

std::ostream& operator<<(std::ostream& out, const Method& row)
{
    return out << row.name;
}

class InputMethods : public GuiTest, public ::testing::WithParamInterface<Method>
{
protected:
    static void choose(QWidget* widget)
    {
        YApplication::setInputMethod(widget, YApplication::keypadMethod(), GetParam().mode,
                                     QString());
    }
};

TEST_P(InputMethods, AreForRowsTheirFieldsAndQtsOwnLineEdits)
{
    YLineEdit row(nullptr, nullptr, 39);
    choose(&row);
    EXPECT_EQ(row.getInputField()->inputMode(), GetParam().mode);
    EXPECT_TRUE(row.getInputField()->inputMethodHints() & GetParam().hint);
    YLineEdit other(nullptr, nullptr, 39);
    choose(other.getInputField());
    EXPECT_EQ(other.getInputField()->inputMode(), GetParam().mode);
    QLineEdit plain;
    choose(&plain);
    EXPECT_TRUE(plain.inputMethodHints() & GetParam().hint);
}

INSTANTIATE_TEST_SUITE_P(Modes, InputMethods,
                         ::testing::Values(Method{"DialNumber", 4, Qt::ImhDialableCharactersOnly},
                                           Method{"Numeric", 6, Qt::ImhDigitsOnly},
                                           Method{"Password", 8, Qt::ImhSensitiveData}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Application, OtherWidgetsHaveNoInputMethod)
{
    QWidget widget;
    YApplication::setInputMethod(&widget, YApplication::keypadMethod(), 6, QString());
    YApplication::setInputMethod(nullptr, YApplication::keypadMethod(), 6, QString());
    EXPECT_EQ(widget.inputMethodHints(), Qt::ImhNone);
}

TEST_F(Application, IsWokenByAnotherThread)
{
    settle();
    constexpr int longest = 5000;
    QTimer::singleShot(longest, application(), [] {});
    std::thread other([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        application()->wakeUpGuiThread();
    });
    QElapsedTimer waited;
    waited.start();
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_LT(waited.elapsed(), longest - 1000);
    other.join();
}

} // namespace
