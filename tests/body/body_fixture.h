// A screen that has opened in the body that VORN_BODY names.
#ifndef BODY_FIXTURE_H
#define BODY_FIXTURE_H

#include <memory>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QKeyEvent>
#include <QTest>

#include "toolkit/form_page.h"

// Remembers the keys that come to it: number, whether it went down, whether by repetition.
class KeyWitness : public QWidget
{
public:
    struct Key
    {
        int key;
        bool down;
        bool repeated;
        Qt::KeyboardModifiers modifiers;
    };

    explicit KeyWitness(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }

    std::vector<Key> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { remember(*event, true); }
    void keyReleaseEvent(QKeyEvent* event) override { remember(*event, false); }

private:
    void remember(const QKeyEvent& event, bool down)
    {
        keys.push_back({event.key(), down, event.isAutoRepeat(), event.modifiers()});
    }
};

class BodyTest : public FormTest
{
protected:
    // The body is made with the first layer and stays.
    static void SetUpTestSuite() { YKbMainWidget(nullptr, nullptr, 0).show(); }

    void SetUp() override
    {
        FormTest::SetUp();
        allowWarnings("propagateSizeHints"); // what a window offscreen has nobody to tell
    }

    static QWidget* body() { return screen()->window(); }

    static QAbstractButton* button(const QString& name)
    {
        return body()->findChild<QAbstractButton*>(name);
    }

    static QPoint centre(const QWidget* widget)
    {
        return widget->mapTo(body(), widget->rect().center());
    }

    static void click(const QWidget* widget)
    {
        QTest::mouseClick(body()->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre(widget));
        settle();
    }

    // The page with a witness in the place of its form.
    KeyWitness* openWitness()
    {
        auto* witness = new KeyWitness(page.get());
        page->setContentWidget(witness);
        open();
        witness->setFocus();
        return witness;
    }
};

#endif
