// The phone in a window, with a root of its own and links that are only played.
#ifndef TESTS_PHONE_PHONE_FIXTURE_H
#define TESTS_PHONE_PHONE_FIXTURE_H

#include <memory>

#include <QTemporaryDir>

#include <napi.h>

#include "common/gui_test.h"
#include "display/display.h"
#include "home/homepage.h"
#include "home/profilemodel.h"
#include "phone.h"
#include "phone/hand.h"
#include "settings/settings.h"

class PhoneTest : public GuiTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    // Stores a profile of this access point.
    void store(const QString& name, const char* accessPoint = "internet");
    void damage(const QString& name);
    void writeFile(const QString& path, const QByteArray& bytes); // below the root
    QByteArray readFile(const QString& path);
    QString below(const QString& path) const { return root.filePath(path); }

    // The phone as it starts.
    void start();
    // The person does it all; then every popup is closed and the event loop handed back.
    void live(phone::Person& person);

    // What a screen reader says of a card of the home page; "" where there is none.
    QString card(const QString& name);
    // The text of the message that has the input.
    static QString message();
    // Waits until a message has the input, checks that it contains a text, and closes it.
    static void answer(phone::Person& person, const QString& part, int key = Qt::Key_Return);

    QTemporaryDir root;
    std::unique_ptr<phone::Settings> settings;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<phone::Phone> program;
    phone::Display* display = nullptr;
};

// A scenario whose links carry "Fails" and "Never" as their names say, and all others at once.
extern const char scenarios[];

#endif
