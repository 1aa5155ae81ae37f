#include "toolkit/look/ytranslator.h"

#include <cstring>

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include "toolkit/yenvironment.h"

namespace {

bool isResourceId(const char* id)
{
    return std::strncmp(id, "TXT_RID_", 8) == 0 || std::strncmp(id, "FMT_RID_", 8) == 0;
}

// The catalogue's name, or an empty text. Traditional Chinese is another script, which a reader of
// one may not read in the other.
QString catalogueOf(const QLocale& locale)
{
    if (locale.language() == QLocale::German)
        return QStringLiteral("de");
    if (locale.language() == QLocale::Chinese &&
        locale.script() == QLocale::SimplifiedChineseScript)
        return QStringLiteral("zh_CN");
    return QString();
}

QHash<QByteArray, QString> readCatalogue(const QString& catalogue)
{
    QHash<QByteArray, QString> texts;
    QFile file(QStringLiteral(":/vorn/texts/%1.json").arg(catalogue));
    if (catalogue.isEmpty() || !file.open(QIODevice::ReadOnly))
        return texts;
    const QJsonObject entries = QJsonDocument::fromJson(file.readAll()).object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry)
        texts.insert(entry.key().toLatin1(), entry.value().toString());
    return texts;
}

// Texts may be asked for before the first widget exists, so the translator comes with the
// application object, whoever created it.
void installTranslator()
{
    QCoreApplication* application = QCoreApplication::instance();
    QCoreApplication::installTranslator(new YTranslator(application, YTranslator::chosenLocale()));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installTranslator)

YTranslator::YTranslator(QObject* parent, const QString& locale)
    : QTranslator(parent), m_texts(readCatalogue(catalogueOf(QLocale(locale))))
{}

QString YTranslator::chosenLocale()
{
    return YEnvironment::locale();
}

QString YTranslator::translate(const char* /*context*/, const char* id, const char* defaultText,
                               int /*n*/) const
{
    if (!id || !isResourceId(id))
        return QString();
    const QString text = m_texts.value(QByteArray::fromRawData(id, qsizetype(std::strlen(id))));
    if (!text.isEmpty())
        return text;
    return defaultText ? QString::fromUtf8(defaultText) : QString();
}
