// A translator that answers with the resource id itself, so that a test sees which of the phone's
// texts stands where.
#ifndef TESTS_COMMON_SHOWS_IDS_H
#define TESTS_COMMON_SHOWS_IDS_H

#include <QCoreApplication>
#include <QTranslator>

// For its lifetime a text reads "ID=default", with the start that all ids have left out: what is
// looked up as "TXT_RID_SOFTKEY_SAVE" with the default "Save" is "SOFTKEY_SAVE=Save".
class ShowsIds : public QTranslator
{
public:
    ShowsIds() { QCoreApplication::installTranslator(this); }
    ShowsIds(const ShowsIds&) = delete;
    ShowsIds& operator=(const ShowsIds&) = delete;
    ~ShowsIds() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char*, const char* id, const char* text, int) const override
    {
        const QString whole = QString::fromUtf8(id);
        return whole.mid(whole.indexOf("_RID_") + 5) + '=' + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};

#endif
