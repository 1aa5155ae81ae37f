#include "messages/failures.h"

#include <cstring>

#include <napi.h>
#include <vornqtnapi_texts.h>

#include "texts/phone_text.h"

namespace phone {

namespace {

struct Remedy
{
    const char* id;
    const char* english;
};

const Remedy nothing = {nullptr, nullptr};
const Remedy again = {"TXT_RID_PHONE_DO_AGAIN", "Try again."};
const Remedy edit = {"TXT_RID_PHONE_DO_EDIT", "Edit the connection and check its values."};
const Remedy move = {"TXT_RID_PHONE_DO_MOVE", "Go where there is a network, then try again."};
const Remedy card = {"TXT_RID_PHONE_DO_SIM", "Insert the SIM card and enter its PIN."};
const Remedy service = {"TXT_RID_PHONE_DO_SERVICE", "Ask whoever looks after this device."};
const Remedy room = {"TXT_RID_PHONE_DO_ROOM", "Delete something, then try again."};
const Remedy replace = {"TXT_RID_PHONE_DO_REPLACE", "Import it again, or delete it."};

struct Meaning
{
    int code;
    const char* id;
    const Remedy& remedy;
};

// The English texts are those of vornqtnapi_texts.h.
const Meaning causes[] = {
    {NAPI_CAUSE_NO_BEARER, "TXT_RID_PHONE_CAUSE_NO_BEARER", edit},
    {NAPI_CAUSE_NO_SERVICE, "TXT_RID_PHONE_CAUSE_NO_SERVICE", move},
    {NAPI_CAUSE_SIM, "TXT_RID_PHONE_CAUSE_SIM", card},
    {NAPI_CAUSE_SUBSCRIPTION, "TXT_RID_PHONE_CAUSE_SUBSCRIPTION", edit},
    {NAPI_CAUSE_AUTHENTICATION, "TXT_RID_PHONE_CAUSE_AUTHENTICATION", edit},
    {NAPI_CAUSE_NO_ADDRESS, "TXT_RID_PHONE_CAUSE_NO_ADDRESS", again},
    {NAPI_CAUSE_MODEM, "TXT_RID_PHONE_CAUSE_MODEM", again},
    {NAPI_CAUSE_NO_CARRIER, "TXT_RID_PHONE_CAUSE_NO_CARRIER", move},
    {NAPI_CAUSE_DEVICE_GONE, "TXT_RID_PHONE_CAUSE_DEVICE_GONE", service},
    {NAPI_CAUSE_NO_SERVICE_DAEMON, "TXT_RID_PHONE_CAUSE_NO_DAEMON", service},
    {NAPI_CAUSE_NOT_PERMITTED, "TXT_RID_PHONE_CAUSE_NOT_PERMITTED", service},
    {NAPI_CAUSE_TIMEOUT, "TXT_RID_PHONE_CAUSE_TIMEOUT", again},
    {NAPI_CAUSE_CANCELLED, "TXT_RID_PHONE_CAUSE_CANCELLED", nothing},
    {NAPI_CAUSE_NOT_SUPPORTED, "TXT_RID_PHONE_CAUSE_NOT_SUPPORTED", edit},
    {NAPI_CAUSE_WIFI, "TXT_RID_PHONE_CAUSE_WIFI", move},
    {NAPI_CAUSE_BUSY, "TXT_RID_PHONE_CAUSE_BUSY", again},
};

const Meaning results[] = {
    {NAPI_ERR_MEMORY_FULL, "TXT_RID_PHONE_RESULT_FULL", room},
    {NAPI_ERR_NO_PROFILE, "TXT_RID_PHONE_RESULT_NO_PROFILE", nothing},
    {NAPI_ERR_EXISTS, "TXT_RID_PHONE_RESULT_EXISTS", nothing},
    {NAPI_ERR_DAMAGED, "TXT_RID_PHONE_RESULT_DAMAGED", replace},
    {NAPI_ERR_ACCESS, "TXT_RID_PHONE_RESULT_ACCESS", service},
    {NAPI_ERR_IO, "TXT_RID_PHONE_RESULT_IO", service},
    {NAPI_ERR_ROOT, "TXT_RID_PHONE_RESULT_ROOT", service},
    {NAPI_ERR_TOO_MANY_LINKS, "TXT_RID_PHONE_RESULT_LINKS", again},
    {NAPI_ERR_BUSY, "TXT_RID_PHONE_RESULT_BUSY", again},
};

QString sentence(QString words)
{
    if (words.isEmpty())
        return words;
    words[0] = words[0].toUpper();
    return words + (words.endsWith('.') ? QString() : QStringLiteral("."));
}

template <std::size_t count>
QString inWords(const Meaning (&meanings)[count], int code, const char* english)
{
    for (const Meaning& meaning : meanings) {
        if (meaning.code != code)
            continue;
        QString words = sentence(text(meaning.id, english));
        if (meaning.remedy.id)
            words += ' ' + text(meaning.remedy.id, meaning.remedy.english);
        return words;
    }
    return sentence(QString::fromUtf8(english));
}

// "(Network is down)", "(detail 30)"; "" where there is no more to say.
QString detailText(int detail)
{
    if (detail == 0)
        return QString();
    if (detail >= NAPI_DETAIL_ERRNO && detail < NAPI_DETAIL_ERRNO + 0x100)
        return QString::fromLocal8Bit(std::strerror(detail - NAPI_DETAIL_ERRNO));
    return text("TXT_RID_PHONE_DETAIL", "Detail %1").arg(detail);
}

} // namespace

QString causeMessage(int cause, int detail)
{
    const QString words = inWords(causes, cause, vornCauseText(cause));
    const QString more = detailText(detail);
    return more.isEmpty() ? words : words + QStringLiteral(" (") + more + ')';
}

QString resultMessage(int result)
{
    return inWords(results, result, vornResultText(result));
}

} // namespace phone
