// Finds the text of a resource id.
#ifndef YTRANSLATOR_H
#define YTRANSLATOR_H

#include <QHash>
#include <QStringList>
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

    // The locale of the user: the one that use() was called with, else VORN_LANG, else the
    // system's.
    static QString chosenLocale();
    // Changes the language of the texts; "" for the user's own.
    static void use(const QString& locale);
    // The direction in which the chosen language is read.
    static Qt::LayoutDirection direction();

    // "en", whose texts are the defaults, and the names of the catalogues, in the alphabet's order.
    static QStringList catalogues();
    // The one of them for a locale: "zh_TW" for "zh_HK.UTF-8"; "en" for a language that has none.
    static QString catalogueOf(const QString& locale);
    // What its speakers call a catalogue's language.
    static QString nameOf(const QString& catalogue);

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* id, const char* defaultText,
                      int n) const override;

private:
    QHash<QByteArray, QString> m_texts;
};

#endif
