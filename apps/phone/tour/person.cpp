#include "tour/person.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>

#include <toolkit/yscreen.h>

namespace phone {

namespace {

constexpr int interval = 10; // milliseconds between two looks at the screen
constexpr int longest = 10000 / interval;

bool send(int key, const QString& text)
{
    QWindow* window = YScreen::instance()->window()->windowHandle();
    if (!window)
        return false;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(window, &event);
    }
    return true;
}

} // namespace

void Person::add(const QString& what, std::function<bool()> tryIt)
{
    m_deeds.push_back({what, std::move(tryIt)});
}

void Person::press(int key, int times)
{
    for (int i = 0; i < times; ++i)
        add(QStringLiteral("press a key"), [key] { return send(key, QString()); });
}

void Person::type(const QString& text)
{
    for (const QChar letter : text)
        add(QStringLiteral("type"), [letter] { return send(Qt::Key_unknown, QString(letter)); });
}

bool Person::isSeen(const QString& layer)
{
    const QWidget* active = YScreen::instance()->activeLayer();
    return active && (active->objectName() == layer || active->inherits(layer.toLatin1()));
}

void Person::see(const QString& layer)
{
    add(QStringLiteral("see ") + layer, [layer] { return isSeen(layer); });
}

void Person::await(const QString& what, std::function<bool()> isSo)
{
    add(what, std::move(isSo));
}

void Person::act(std::function<void()> deed)
{
    add(QStringLiteral("act"), [deed = std::move(deed)] {
        deed();
        return true;
    });
}

void Person::begin()
{
    if (m_next < m_deeds.size())
        QTimer::singleShot(interval, this, SLOT(next()));
    else
        emit done();
}

// A key may open a dialog and so not come back until that is closed; the next thing is then done in
// the dialog's event loop, so it is asked for first.
void Person::next()
{
    if (m_next >= m_deeds.size())
        return;
    const std::size_t at = m_next++;
    if (m_next < m_deeds.size())
        QTimer::singleShot(interval, this, SLOT(next()));
    const Deed deed = m_deeds[at];
    if (deed.tryIt()) {
        m_waited = 0;
        if (m_next == m_deeds.size() && at + 1 == m_next)
            emit done();
        return;
    }
    if (++m_waited > longest) {
        m_next = m_deeds.size();
        emit gaveUp(deed.what);
        return;
    }
    if (m_next == m_deeds.size())
        QTimer::singleShot(interval, this, SLOT(next()));
    --m_next;
}

} // namespace phone
