// vornphone: the phone's own program for connections.

#include <yapplication.h>

#include <toolkit/look/ytranslator.h>

#include "body/body.h"
#include "display/display.h"
#include "home/homepage.h"
#include "options.h"
#include "texts/phone_text.h"

int main(int argc, char** argv)
{
    phone::Options options;
    int status = 0;
    if (!options.read(argc, argv, &status))
        return status;
    if (const std::optional<int> ended = phone::launch(options.body, argv))
        return *ended;
    YApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vornphone"));
    QCoreApplication::installTranslator(
        new phone::PhoneTranslator(&application, YTranslator::chosenLocale()));
    QApplication::setApplicationDisplayName(phone::text("TXT_RID_PHONE_NAME", "Phone"));
    const auto body = phone::makeBody(new phone::Display);
    phone::HomePage home;
    home.show();
    body->show();
    return application.exec();
}
