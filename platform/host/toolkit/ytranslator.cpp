#include "ytranslator.h"

#include <cstring>

#include <QCoreApplication>

namespace {

bool isResourceId(const char* id)
{
    return std::strncmp(id, "TXT_RID_", 8) == 0 || std::strncmp(id, "FMT_RID_", 8) == 0;
}

// Texts may be asked for before the first widget exists, so the translator comes with the
// application object, whoever created it.
void installTranslator()
{
    auto* translator = new YTranslator(QCoreApplication::instance());
    QCoreApplication::installTranslator(translator);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installTranslator)

QString YTranslator::translate(const char* /*context*/, const char* id, const char* defaultText,
                               int /*n*/) const
{
    if (!id || !isResourceId(id) || !defaultText)
        return QString();
    return QString::fromUtf8(defaultText);
}
