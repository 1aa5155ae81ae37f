#include "toolkit/ylook.h"

#include "toolkit/look/ytranslator.h"
#include "toolkit/theme/ychoice.h"

YLook YLook::current()
{
    return YChoice::look();
}

void YLook::use(const YLook& look)
{
    YChoice::setLook(look);
}

QStringList YLook::themes()
{
    return {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("system")};
}

QStringList YLook::accents()
{
    return YChoice::accents();
}

QStringList YLook::textSizes()
{
    return YChoice::textSizes();
}

QString YLook::language()
{
    return YTranslator::catalogueOf(YTranslator::chosenLocale());
}

void YLook::useLanguage(const QString& language)
{
    YTranslator::use(language);
    YChoice::remake();
}

QStringList YLook::languages()
{
    return YTranslator::catalogues();
}

QString YLook::nameOf(const QString& language)
{
    return YTranslator::nameOf(language);
}
