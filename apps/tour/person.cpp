#include "person.h"

#include <cstdio>
#include <cstdlib>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QTimer>
#include <QWindow>

#include <toolkit/yscreen.h>

namespace {

const int interval = 10; // milliseconds between two looks at the screen
const int longest = 10000 / interval;

} // namespace

Person::Person(const QDir& pictureFolder) : m_folder(pictureFolder) {}

void Person::add(const QString& what, std::function<bool()> tryIt)
{
    m_deeds.push_back({what, std::move(tryIt)});
}

namespace {

bool send(int key, const QString& text)
{
    QWindow* window = YScreen::instance()->window()->windowHandle();
    if (!window)
        return false;
    for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(window, &event);
    }
    return true;
}

} // namespace

void Person::press(int key, int times)
{
    for (int i = 0; i < times; ++i)
        add(QString("press a key"), [key] { return send(key, QString()); });
}

void Person::type(const QString& text)
{
    for (const QChar letter : text)
        add(QString("type"), [letter] { return send(Qt::Key_unknown, QString(letter)); });
}

void Person::lookAt(const char* className, const QString& picture)
{
    add(QString("see %1").arg(className), [this, className, picture] {
        const QWidget* layer = YScreen::instance()->activeLayer();
        return layer && layer->inherits(className) && take(picture);
    });
}

void Person::look(const QString& picture)
{
    add(QString("see the screen"), [this, picture] { return take(picture); });
}

bool Person::take(const QString& picture)
{
    const QString name = QString("%1-%2.png").arg(m_taken + 1, 2, 10, QChar('0')).arg(picture);
    const QString path = m_folder.filePath(name);
    if (!YScreen::instance()->grab().save(path)) {
        std::fprintf(stderr, "the picture %s cannot be written\n", qPrintable(path));
        QCoreApplication::exit(1);
        return false;
    }
    std::printf("picture %s\n", qPrintable(path));
    ++m_taken;
    return true;
}

void Person::begin()
{
    if (m_next < m_deeds.size())
        QTimer::singleShot(interval, this, SLOT(act()));
}

// A key may open a dialog and so not come back until that is closed; the next thing is then done in
// the dialog's event loop, so it is asked for first.
void Person::act()
{
    const Deed deed = m_deeds[m_next++];
    begin();
    if (deed.tryIt()) {
        m_waited = 0;
        return;
    }
    if (++m_waited > longest) {
        std::fprintf(stderr, "could not %s\n", qPrintable(deed.what));
        std::exit(1);
    }
    if (m_next == m_deeds.size())
        QTimer::singleShot(interval, this, SLOT(act()));
    --m_next;
}
