#include "wizard/page1rows.h"

namespace wizard {

// Values that the toolkit gives a meaning to: how the dialog of a choice shows its items.
static const int markedDialog = 0;
static const int plainDialog = 1;

// The order of the items is that of the codes in codetables.h.
static const PhoneText preferences[] = {
    {"TXT_RID_COMBOBOX_WIFI_THEN_CELLULAR", "WiFi, then Cellular"},
    {"TXT_RID_COMBOBOX_WIFI_ONLY", "WiFi Only"},
    {"TXT_RID_COMBOBOX_CELLULAR_ONLY", "Cellular Only"},
};
static const PhoneText policies[] = {
    {"TXT_RID_COMBOBOX_DATA", "Data"},
    {"TXT_RID_COMBOBOX_VOICE", "Voice"},
};
static const PhoneText timeouts[] = {
    {"TXT_RID_COMBOBOX_OFF", "Off"},        {"TXT_RID_COMBOBOX_15_MIN", "15 min"},
    {"TXT_RID_COMBOBOX_1_HOUR", "1 hour"},  {"TXT_RID_COMBOBOX_2_HOURS", "2 hour"},
    {"TXT_RID_COMBOBOX_6_HOURS", "6 hour"}, {"TXT_RID_COMBOBOX_24_HOURS", "24 hour"},
};

// clang-format off
const Page1Row page1Rows[page1RowCount] = {
    {textRow(RowKind::PlainText, Text::ProfileName,
             {"TXT_RID_LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK", "Profile Name:*"}, 20), false},
    {choiceRow(RowKind::GuardedChoice, Choice::Preference,
               {"TXT_RID_LABEL_FORMITEM_CONNECTION_PREFERENCE_COLON_ASTERISK", "Connection Preference:*"},
               preferences, markedDialog), true},
    {plainRow(RowKind::Separator,
              {"TXT_RID_SEPARATOR_CELLULAR_CONNECTION_SETTINGS_COLON", "Cellular Connection Settings:"}), true},
    {textRow(RowKind::PlainText, Text::Proxy1,
             {"TXT_RID_LABEL_FORMITEM_PROXY_1_COLON", "Proxy 1:"}, 100), false},
    {textRow(RowKind::Port, Text::Port1,
             {"TXT_RID_LABEL_FORMITEM_PORT_1_COLON", "Port 1:"}, 0), false},
    {textRow(RowKind::PlainText, Text::Domain1,
             {"TXT_RID_LABEL_FORMITEM_DOMAIN_1_COLON", "Domain 1:"}, 100), false},
    {textRow(RowKind::PlainText, Text::GprsApn,
             {"TXT_RID_LABEL_FORMITEM_GPRS_APN_COLON", "GPRS APN:"}, 99), false},
    {textRow(RowKind::PlainText, Text::GprsUserName,
             {"TXT_RID_LABEL_FORMITEM_USER_NAME_COLON", "User Name:"}, 64), false},
    {textRow(RowKind::Password, Text::GprsPassword,
             {"TXT_RID_LABEL_FORMITEM_PASSWORD_COLON", "Password:"}, 64), false},
    {textRow(RowKind::PlainText, Text::GprsDns1,
             {"TXT_RID_LABEL_FORMITEM_GPRS_DNS1_COLON", "GPRS DNS 1:"}, 0), false},
    {textRow(RowKind::PlainText, Text::GprsDns2,
             {"TXT_RID_LABEL_FORMITEM_GPRS_DNS2_COLON", "GPRS DNS 2:"}, 0), false},
    {choiceRow(RowKind::GuardedChoice, Choice::QosPolicy,
               {"TXT_RID_LABEL_FORMITEM_QUALITY_OF_SERVICE_POLICY_COLON", "Quality of service Policy:"},
               policies, plainDialog), false},
    {choiceRow(RowKind::GuardedChoice, Choice::GprsTimeout,
               {"TXT_RID_LABEL_FORMITEM_GPRS_TIMEOUT_COLON", "GPRS Timeout:"},
               timeouts, plainDialog), false},
    {plainRow(RowKind::PressButton,
              {"TXT_RID_BUTTON_ADDITIONAL_SETTINGS", "Additional settings:"}), false},
};
// clang-format on

} // namespace wizard
