#include "wizard/boxes.h"

#include <ymessagedlg.h>
#include <ynoticedlg.h>

#include "support/loop.h"
#include "support/toolkitnumbers.h"
#include "support/translate.h"

using support::translate;

namespace wizard {

namespace {

// A title and a text, each as resource id and default text.
struct Message
{
    const char* titleId;
    const char* title;
    const char* textId;
    const char* text;
};

// A resource id stands in one piece, however long it is, so that it can be searched for.
// clang-format off
const Message duplicateName = {
    "TXT_RID_HEADER_DUPLICATE_PROFILE", "Duplicate Profile",
    "FMT_RID_INSTRUCTIONALTXT_YOU_ALREADY_HAVE_A_PROFILE_NAMED_1_PLEASE_CHOOSE_ANOTHER_NAME",
    "You already have a Profile named: %1. Please choose another name."};
const Message nameMissing = {
    "TXT_RID_HEADER_REQUIRED_FIELDS", "Required Fields",
    "TXT_RID_INSTRUCTIONALTXT_PLEASE_COMPLETE_THE_REQUIRED_FIELDS_REQUIRED_FIELDS_ARE_INDICATED_WITH_A_ASTERISK",
    "Please complete the required fields.Required fields are indicated with a *."};
const Message nameInvalid = {
    "TXT_RID_HEADER_INVALID_NAME", "Invalid Name",
    "TXT_RID_INSTRUCTIONALTXT_A_PROFILE_NAME_CANNOT_START_WITH",
    "A Profile name cannot start with \".\"."};
const Message apnOrNumberMissing = {
    "TXT_RID_HEADER_MISSING_REQUIRED_FIELD", "Missing Required Field(s)",
    "TXT_RID_INSTRUCTIONALTXT_ENTER_A_GPRS_APN_OR_CSD_NUMBER",
    "Please enter  a GPRS APN or CSD number."};
const Message dnsInvalid = {
    "TXT_RID_HEADER_INVALID_DNS", "Invalid DNS",
    "TXT_RID_INSTRUCTIONALTXT_WRONG_DNS_ONLY_IP",
    "You've entered wrong DNS, only IP address is accepted"};
const Message memoryFull = {
    "TXT_RID_HEADER_MEMORY_FULL", "Memory Full",
    "TXT_RID_INSTRUCTIONALTXT_THERE_IS_INSUFFICIENT_MEMORY_TO_CREATE_A_NEW_CONNECTION_DELETE_SOME_FILES",
    "There is insufficient memory to create a new connection. You may delete some files in order to add a new one."};
const Message wifiOnly = {
    "TXT_RID_COMBOBOX_WIFI_ONLY", "WiFi Only",
    "TXT_RID_INSTRUCTIONALTXT_YOUR_CONNECTION_PREFERENCE_IS_WIFI_ONLYNO_GPRS_OR_CSD_CONNECTION_IS_USED_FOR_THIS_PROFILE",
    "Your connection preference is WiFi only.No GPRS or CSD connection is used for this profile."};
// A notice has no title; an empty one is not looked up.
const Message stored = {
    nullptr, "",
    "FMT_RID_INSTRUCTIONALTXT_YOU_HAVE_SUCCESSFULLY_SAVED_THE_PROFILE_NAMED",
    "You have successfully saved the profile named: %1."};
// clang-format on

QString textOf(const Message& message)
{
    return translate(message.textId, message.text);
}

void show(const Message& message, const QString& text)
{
    YMessageDlg dialog(translate(message.titleId, message.title), text, toolkit::Information, 0, 0,
                       0, true, 0);
    support::runDialog(dialog);
}

} // namespace

void showFault(FormFault fault, const FormFields& form)
{
    switch (fault) {
    case FormFault::None:
        return;
    case FormFault::DuplicateName:
        return show(duplicateName, textOf(duplicateName).arg(form.text(Text::ProfileName)));
    case FormFault::NameMissing:
        return show(nameMissing, textOf(nameMissing));
    case FormFault::NameInvalid:
        return show(nameInvalid, textOf(nameInvalid));
    case FormFault::ApnOrNumberMissing:
        return show(apnOrNumberMissing, textOf(apnOrNumberMissing));
    case FormFault::DnsInvalid:
        return show(dnsInvalid, textOf(dnsInvalid));
    }
}

void showMemoryFull()
{
    show(memoryFull, textOf(memoryFull));
}

void showWifiOnly()
{
    show(wifiOnly, textOf(wifiOnly));
}

void showStored(const QString& name)
{
    YNoticeDlg dialog(toolkit::Success, stored.title, textOf(stored).arg(name), 0, 0, true, 0);
    support::runDialog(dialog);
}

} // namespace wizard
