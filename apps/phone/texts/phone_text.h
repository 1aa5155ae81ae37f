// The texts of the program, in the user's language.
#ifndef PHONE_TEXTS_PHONE_TEXT_H
#define PHONE_TEXTS_PHONE_TEXT_H

#include <QHash>
#include <QString>
#include <QTranslator>

namespace phone {

// The text of a resource id ("TXT_RID_PHONE_...") in the language of the catalogue; `english` where
// there is none.
QString text(const char* id, const char* english);

// Finds the program's own texts. Of an id that its catalogue does not have it says nothing, so that
// the toolkit's texts come from the toolkit.
class PhoneTranslator : public QTranslator
{
    Q_OBJECT

public:
    // Takes the catalogue of `locale` ("de", "zh_CN", also "de_AT.UTF-8").
    PhoneTranslator(QObject* parent, const QString& locale);

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* id, const char* defaultText,
                      int n) const override;

private:
    QHash<QByteArray, QString> m_texts;
};

} // namespace phone

#endif
