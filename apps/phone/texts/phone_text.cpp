#include "texts/phone_text.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

namespace phone {

namespace {

// "zh_CN" or "zh_TW" by the script, else the language alone.
QString catalogueOf(const QLocale& locale)
{
    if (locale.language() == QLocale::Chinese)
        return locale.script() == QLocale::TraditionalChineseScript ? QStringLiteral("zh_TW")
                                                                    : QStringLiteral("zh_CN");
    return locale.name().section('_', 0, 0);
}

} // namespace

QString text(const char* id, const char* english)
{
    const QString found = QCoreApplication::translate("phone", id, english);
    return found.isEmpty() || found == QLatin1String(id) ? QString::fromUtf8(english) : found;
}

PhoneTranslator::PhoneTranslator(QObject* parent, const QString& locale) : QTranslator(parent)
{
    QFile file(QStringLiteral(":/vornphone/texts/%1.json").arg(catalogueOf(QLocale(locale))));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonObject entries = QJsonDocument::fromJson(file.readAll()).object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry)
        m_texts.insert(entry.key().toLatin1(), entry.value().toString());
}

QString PhoneTranslator::translate(const char* /*context*/, const char* id,
                                   const char* /*defaultText*/, int /*n*/) const
{
    return id ? m_texts.value(QByteArray(id)) : QString();
}

} // namespace phone
