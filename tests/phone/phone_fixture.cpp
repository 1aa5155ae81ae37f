#include "phone/phone_fixture.h"

#include <cstring>

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QVBoxLayout>

#include <network/napi_host.h>
#include <toolkit/look/ytheme.h>
#include <toolkit/yscreen.h>
#include <ymessagedlg.h>

const char scenarios[] = R"({"bearer": "scenario", "scenario": {
    "default": {"device": "lo", "address": "10.1.2.3", "nameServers": ["10.1.2.1"]},
    "profiles": {"Fails": {"outcome": "fail", "cause": 5, "detail": 17},
                 "Never": {"outcome": "never"}}}})";

void PhoneTest::SetUp()
{
    GuiTest::SetUp();
    qputenv("VORN_ROOT", root.path().toUtf8());
    qputenv("VORN_LANG", "en");
    qputenv("HOME", root.path().toUtf8());
    writeFile("etc/network.json", scenarios);
    settings = std::make_unique<phone::Settings>();
}

void PhoneTest::TearDown()
{
    program.reset();
    window.reset();
    settings.reset();
    YTheme::use(YTheme::Scheme::Light);
    GuiTest::TearDown();
}

void PhoneTest::store(const QString& name, const char* accessPoint)
{
    NetworkProfile record = {};
    record.storedMark = 1;
    record.flags = NAPI_PREFER_CELLULAR_ONLY;
    std::strcpy(record.gprsApn, accessPoint);
    ASSERT_EQ(NAPI_CreateProfile(name.toUtf8().constData(), &record, 0, 0), 0);
}

void PhoneTest::damage(const QString& name)
{
    QFile record(QString::fromStdString(napihost::profilesFolder()) + '/' + name + "/profile");
    ASSERT_TRUE(record.resize(10));
}

void PhoneTest::writeFile(const QString& path, const QByteArray& bytes)
{
    QDir(root.path()).mkpath(QFileInfo(below(path)).absolutePath());
    QFile file(below(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray PhoneTest::readFile(const QString& path)
{
    QFile file(below(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void PhoneTest::start()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    layout->setContentsMargins(0, 0, 0, 0);
    display = new phone::Display;
    layout->addWidget(display);
    program = std::make_unique<phone::Phone>(display);
    window->show();
    settle();
}

void PhoneTest::live(phone::Person& person)
{
    QEventLoop loop;
    bool isDone = false;
    QObject::connect(&person, &phone::Person::done, &loop, [&] {
        isDone = true;
        loop.quit();
    });
    QObject::connect(&person, &phone::Person::gaveUp, &loop, [&](const QString& what) {
        const QWidget* active = YScreen::instance()->activeLayer();
        ADD_FAILURE() << "did not " << what.toStdString() << "; on the screen is "
                      << (active ? active->metaObject()->className() : "nothing") << " \""
                      << message().toStdString() << '"';
        while (YScreen::instance()->activeLayer() &&
               YScreen::instance()->activeLayer()->objectName() != QLatin1String("home"))
            YScreen::instance()->activeLayer()->hide();
        loop.quit();
    });
    person.begin();
    loop.exec();
    settle();
}

QString PhoneTest::card(const QString& name)
{
    phone::ProfileModel& profiles = program->home().profiles();
    return profiles.index(profiles.row(name), 0).data(Qt::AccessibleTextRole).toString();
}

QString PhoneTest::message()
{
    const auto* dialog = qobject_cast<YMessageDlg*>(YScreen::instance()->activeLayer());
    return dialog ? dialog->text() : QString();
}

void PhoneTest::answer(phone::Person& person, const QString& part, int key)
{
    person.await(QStringLiteral("be told ") + part, [part] { return message().contains(part); });
    person.press(key);
}
