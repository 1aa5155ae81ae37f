#include "toolkit/look/ytranslator.h"

#include <algorithm>
#include <cstring>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QPointer>

#include "toolkit/yenvironment.h"

namespace {

bool isResourceId(const char* id)
{
    return std::strncmp(id, "TXT_RID_", 8) == 0 || std::strncmp(id, "FMT_RID_", 8) == 0;
}

constexpr char folder[] = ":/vorn/texts/";
constexpr char english[] = "en"; // the language of the defaults

QHash<QByteArray, QString> readCatalogue(const QString& catalogue)
{
    QHash<QByteArray, QString> texts;
    QFile file(folder + catalogue + QStringLiteral(".json"));
    if (!file.open(QIODevice::ReadOnly))
        return texts;
    const QJsonObject entries = QJsonDocument::fromJson(file.readAll()).object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry)
        texts.insert(entry.key().toLatin1(), entry.value().toString());
    return texts;
}

// What use() was called with.
QString& ownLocale()
{
    static QString locale;
    return locale;
}

// Another script of the same language is another catalogue, which a reader of one may not read.
bool isReadBy(const QString& catalogue, const QLocale& reader)
{
    const QLocale own(catalogue);
    return own.language() == reader.language() && own.script() == reader.script();
}

// Texts may be asked for before the first widget exists, so the translator comes with the
// application object, whoever created it.
void installTranslator()
{
    static QPointer<YTranslator> installed;
    QCoreApplication* application = QCoreApplication::instance();
    delete installed;
    installed = new YTranslator(application, YTranslator::chosenLocale());
    QCoreApplication::installTranslator(installed);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installTranslator)

YTranslator::YTranslator(QObject* parent, const QString& locale)
    : QTranslator(parent), m_texts(readCatalogue(catalogueOf(locale)))
{}

QString YTranslator::chosenLocale()
{
    return ownLocale().isEmpty() ? YEnvironment::locale() : ownLocale();
}

void YTranslator::use(const QString& locale)
{
    ownLocale() = locale;
    if (QCoreApplication::instance())
        installTranslator();
}

Qt::LayoutDirection YTranslator::direction()
{
    return QLocale(catalogueOf(chosenLocale())).textDirection();
}

QStringList YTranslator::catalogues()
{
    QStringList names{english};
    for (const QString& file : QDir(folder).entryList({QStringLiteral("*.json")}, QDir::Files))
        names << file.chopped(5);
    return names;
}

QString YTranslator::catalogueOf(const QString& locale)
{
    const QLocale reader(locale);
    const QStringList names = catalogues();
    const auto found = std::find_if(names.begin(), names.end(), [&reader](const QString& name) {
        return isReadBy(name, reader);
    });
    return found == names.end() ? QString(english) : *found;
}

QString YTranslator::nameOf(const QString& catalogue)
{
    return YTranslator(nullptr, catalogue)
        .translate("YTranslator", "TXT_RID_LANGUAGE_OWN_NAME", "English", -1);
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
