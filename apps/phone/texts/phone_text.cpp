#include "texts/phone_text.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <toolkit/look/ytranslator.h>

namespace phone {

QString text(const char* id, const char* english)
{
    const QString found = QCoreApplication::translate("phone", id, english);
    return found.isEmpty() || found == QLatin1String(id) ? QString::fromUtf8(english) : found;
}

PhoneTranslator::PhoneTranslator(QObject* parent, const QString& locale) : QTranslator(parent)
{
    QFile file(QStringLiteral(":/vornphone/texts/%1.json").arg(YTranslator::catalogueOf(locale)));
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
