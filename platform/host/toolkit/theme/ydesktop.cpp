#include "toolkit/theme/ydesktop.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPalette>
#include <QPointer>
#include <QStyle>

#include "toolkit/theme/ychoice.h"
#include "toolkit/theme/yportal.h"

namespace {

constexpr char service[] = "org.freedesktop.portal.Desktop";
constexpr char path[] = "/org/freedesktop/portal/desktop";
constexpr char interface[] = "org.freedesktop.portal.Settings";
constexpr char appearance[] = "org.freedesktop.appearance";
constexpr char colourScheme[] = "color-scheme";
constexpr int mostMilliseconds = 300; // that a program waits for the desktop when it starts
constexpr unsigned int dark = 1;

// The value may be wrapped more than once.
QVariant unwrapped(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

bool isPaletteDark()
{
    static const bool darkWindow =
        QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    return darkWindow;
}

} // namespace

YPortal::YPortal(QObject* parent) : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << QString(appearance) << QString(colourScheme);
    const QDBusMessage answer = bus.call(question, QDBus::Block, mostMilliseconds);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        m_scheme = unwrapped(answer.arguments().first()).toUInt();
    // Qt knows the types of D-Bus, which the slot's are compared with, from the first message on.
    bus.connect(service, path, interface, "SettingChanged", this,
                SLOT(change(QString, QString, QDBusVariant)));
}

void YPortal::change(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group != appearance || key != colourScheme)
        return;
    m_scheme = unwrapped(value.variant()).toUInt();
    if (YLook::current().theme == QLatin1String("system"))
        YChoice::remake();
}

bool YDesktop::isDark()
{
    static QPointer<YPortal> portal;
    const bool darkPalette = isPaletteDark();
    if (!portal)
        portal = new YPortal(QCoreApplication::instance());
    return portal->scheme() ? *portal->scheme() == dark : darkPalette;
}

bool YDesktop::moves()
{
    const bool hasWidgets = qobject_cast<QApplication*>(QCoreApplication::instance());
    return !hasWidgets ||
           QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}
