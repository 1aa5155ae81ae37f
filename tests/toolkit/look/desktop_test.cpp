// A theme that follows the desktop: what its settings portal says, at first and later.
#include <memory>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QTemporaryDir>
#include <QThread>

#include <toolkit/look/ytheme.h>
#include <toolkit/ylook.h>

#include "common/gui_test.h"
#include "network/fake/private_bus.h"

namespace {

constexpr char service[] = "org.freedesktop.portal.Desktop";
constexpr char path[] = "/org/freedesktop/portal/desktop";
constexpr char appearance[] = "org.freedesktop.appearance";
constexpr char colourScheme[] = "color-scheme";

// The portal as a desktop has it; it answers in a thread of its own.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(const QString& address)
    {
        m_thread.start();
        moveToThread(&m_thread);
        QMetaObject::invokeMethod(
            this, [this, address] { open(address); }, Qt::BlockingQueuedConnection);
    }

    ~Portal() override
    {
        QMetaObject::invokeMethod(this, &Portal::close, Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }

    void change(uint scheme)
    {
        QMetaObject::invokeMethod(this, [this, scheme] {
            m_scheme = scheme;
            emit SettingChanged(appearance, colourScheme, QDBusVariant(scheme));
        });
    }

public slots:
    QDBusVariant Read(const QString& group, const QString& key)
    {
        const bool known = group == appearance && key == colourScheme;
        // The portal wraps its answer once more.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? m_scheme : 99U)));
    }

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    // The object goes where it was, so that its owner may delete it.
    void close()
    {
        QDBusConnection("portal").unregisterObject(path);
        QDBusConnection::disconnectFromBus("portal");
        moveToThread(QCoreApplication::instance()->thread());
    }

    void open(const QString& address)
    {
        QDBusConnection bus = QDBusConnection::connectToBus(address, "portal");
        EXPECT_TRUE(bus.registerObject(
            path, this, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        EXPECT_TRUE(bus.registerService(service));
    }

    QThread m_thread;
    uint m_scheme = 1; // dark
};

// One process has one session bus, which is asked once.
TEST(Desktop, ItsPortalChoosesTheThemeAndChangesItLater)
{
    const QTemporaryDir folder;
    const fakebus::PrivateBus bus(folder.path().toStdString());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str());
    Portal portal(QString::fromStdString(bus.address()));
    YLook::use({"system", QString(), QString(), false});
    EXPECT_EQ(YTheme::current().scheme, YTheme::Scheme::Dark);
    // Qt hands on what the bus says once the event loop has run.
    GuiTest::settle();
    portal.change(2);
    EXPECT_TRUE(GuiTest::waitFor([] { return YTheme::current().scheme == YTheme::Scheme::Light; }));
    portal.change(1);
    EXPECT_TRUE(GuiTest::waitFor([] { return YTheme::current().scheme == YTheme::Scheme::Dark; }));
    YLook::use({"light", QString(), QString(), false});
    portal.change(2);
    portal.change(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(YTheme::current().scheme, YTheme::Scheme::Light);
}

} // namespace

#include "desktop_test.moc"
