#include "phone.h"

#include <QApplication>
#include <QLocale>

#include <network/napi_host.h>
#include <toolkit/look/ytranslator.h>
#include <toolkit/ylook.h>

#include "display/display.h"
#include "display/statusbar.h"
#include "home/homepage.h"
#include "messages/failures.h"
#include "messages/messages.h"
#include "settings/settings.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

constexpr int signalLimitMs = 2000;

} // namespace

Phone::Phone(Display* display) : m_display(display)
{
    useLanguage();
    m_asking.setMaxThreadCount(1);
    connect(&m_links, SIGNAL(changed()), SLOT(showSigns()));
    connect(&m_links, SIGNAL(changed()), SLOT(askForSignal()));
    connect(&m_links, SIGNAL(activityChanged()), SLOT(showSigns()));
    // The clock wakes the program anyway.
    connect(m_display->statusBar(), SIGNAL(minutePassed()), SLOT(askForSignal()));
    // A message waits for its answer; the manager's signal is to be over by then.
    connect(&m_links, SIGNAL(connected(QString)), SLOT(tellConnected(QString)),
            Qt::QueuedConnection);
    connect(&m_links, SIGNAL(failed(QString, int, int)), SLOT(tellFailure(QString, int, int)),
            Qt::QueuedConnection);
    connect(&m_links, SIGNAL(broken(QString, int)), SLOT(tellBroken(QString, int)),
            Qt::QueuedConnection);
    build();
}

Phone::~Phone()
{
    m_asking.waitForDone();
}

void Phone::build()
{
    m_home.reset();
    m_home = std::make_unique<HomePage>(nullptr, m_links);
    connect(m_home.get(), SIGNAL(chosen(QString)), SLOT(takeChoice(QString)));
    connect(m_home.get(), SIGNAL(exitChosen()), SIGNAL(exitChosen()));
    m_home->show();
    showSigns();
}

void Phone::useLanguage()
{
    // The environment's, into which the choice is put.
    YLook::useLanguage(QString());
    const QString locale = YTranslator::chosenLocale();
    // The last one that is installed is asked first.
    m_ownTexts = std::make_unique<PhoneTranslator>(nullptr, locale);
    QCoreApplication::installTranslator(m_ownTexts.get());
    QLocale::setDefault(QLocale(locale));
    QApplication::setApplicationDisplayName(text("TXT_RID_PHONE_NAME", "Phone"));
}

void Phone::useLook()
{
    const Settings& settings = Settings::instance();
    YLook look = YLook::current();
    look.theme = settings.text(settingnames::theme);
    look.accent = settings.text(settingnames::accent);
    look.textSize = settings.text(settingnames::textSize);
    YLook::use(look);
}

void Phone::showSigns()
{
    if (!m_display)
        return;
    LinkSigns signs;
    for (const Link& link : m_links.links()) {
        if (!link.isUp)
            continue;
        signs.bearer = link.bearer;
        ++signs.count;
    }
    signs.isActive = m_links.isActive();
    signs.signal = m_signal;
    m_display->statusBar()->setSigns(signs);
}

// Links that are only played have no signal. One question at a time; the next minute asks again.
void Phone::askForSignal()
{
    m_signal = m_links.profiles().isEmpty() ? -1 : m_signal;
    if (m_links.profiles().isEmpty() || napihost::playsScenario() ||
        m_asking.activeThreadCount() > 0)
        return;
    const QString device = m_links.links().back().device;
    m_asking.start([this, device] {
        std::vector<napihost::LinkDevice> devices;
        napihost::listLinkDevices(&devices, signalLimitMs);
        for (const napihost::LinkDevice& known : devices)
            if (QString::fromStdString(known.interface) == device)
                QMetaObject::invokeMethod(
                    this, [this, device, percent = known.signal] { takeSignal(device, percent); },
                    Qt::QueuedConnection);
    });
}

void Phone::takeSignal(const QString& device, int percent)
{
    const bool isStillThere = !m_links.links().empty() && m_links.links().back().device == device;
    m_signal = isStillThere ? percent : -1;
    showSigns();
}

void Phone::takeChoice(const QString& name)
{
    const Settings& settings = Settings::instance();
    if (name == QLatin1String(settingnames::theme) || name == QLatin1String(settingnames::accent) ||
        name == QLatin1String(settingnames::textSize)) {
        useLook();
    } else if (name == QLatin1String(settingnames::keypad)) {
        qputenv("VORN_KEYPAD", settings.text(settingnames::keypad).toUtf8());
    } else if (name == QLatin1String(settingnames::screen) && m_display) {
        m_display->setScreenSize(settings.text(settingnames::screen));
    } else if (name == QLatin1String(settingnames::language)) {
        const QString language = settings.text(settingnames::language);
        if (language.isEmpty())
            qunsetenv("VORN_LANG");
        else
            qputenv("VORN_LANG", language.toUtf8());
        useLanguage();
        // The page on which it was chosen goes, too, and may have called.
        QMetaObject::invokeMethod(this, "build", Qt::QueuedConnection);
    }
}

void Phone::tellConnected(const QString& profile)
{
    if (m_links.profiles().contains(profile))
        notice(text("TXT_RID_PHONE_TOLD_CONNECTED", "Connected: %1").arg(profile));
}

void Phone::tellFailure(const QString& profile, int cause, int detail)
{
    tell(profile,
         text("TXT_RID_PHONE_TOLD_FAILED", "Cannot connect.") + ' ' + causeMessage(cause, detail));
}

void Phone::tellBroken(const QString& profile, int)
{
    tell(profile, text("TXT_RID_PHONE_TOLD_BROKEN", "The connection has broken."));
}

} // namespace phone
