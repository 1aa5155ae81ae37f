// Finds the text of a resource id.
#ifndef YTRANSLATOR_H
#define YTRANSLATOR_H

#include <QHash>
#include <QTranslator>

#include "platform_export.h"

// The toolkit's texts are asked for by a resource id (TXT_RID_..., FMT_RID_...) with a default text
// in the place of Qt's disambiguation. The catalogue's text is the answer, and the default where
// there is none. Everything that is no resource id is left to other translators.
class VORN_PLATFORM_API YTranslator : public QTranslator
{
    Q_OBJECT

public:
    // Takes the catalogue of `locale` ("de", "zh_CN", also "de_AT.UTF-8"). Without one, as for
    // "en", every text is its default.
    YTranslator(QObject* parent, const QString& locale);

    // The locale of the user: VORN_LANG, else the system's.
    static QString chosenLocale();

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* id, const char* defaultText,
                      int n) const override;

private:
    QHash<QByteArray, QString> m_texts;
};

#endif
