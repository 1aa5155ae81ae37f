#include "wizard/pagerows.h"

#include "support/toolkitnumbers.h"

namespace wizard {

namespace {

// The order of the items is that of the codes in codetables.h.
const PhoneText preferences[] = {
    {"TXT_RID_COMBOBOX_WIFI_THEN_CELLULAR", "WiFi, then Cellular"},
    {"TXT_RID_COMBOBOX_WIFI_ONLY", "WiFi Only"},
    {"TXT_RID_COMBOBOX_CELLULAR_ONLY", "Cellular Only"},
};
const PhoneText policies[] = {
    {"TXT_RID_COMBOBOX_DATA", "Data"},
    {"TXT_RID_COMBOBOX_VOICE", "Voice"},
};
const PhoneText gprsTimeoutItems[] = {
    {"TXT_RID_COMBOBOX_OFF", "Off"},        {"TXT_RID_COMBOBOX_15_MIN", "15 min"},
    {"TXT_RID_COMBOBOX_1_HOUR", "1 hour"},  {"TXT_RID_COMBOBOX_2_HOURS", "2 hour"},
    {"TXT_RID_COMBOBOX_6_HOURS", "6 hour"}, {"TXT_RID_COMBOBOX_24_HOURS", "24 hour"},
};

const PhoneText speeds[] = {
    {"TXT_RID_COMBOBOX_AUTO", "Auto"}, {"TXT_RID_COMBOBOX_14400", "14400"},
    {"TXT_RID_COMBOBOX_9600", "9600"}, {"TXT_RID_COMBOBOX_4800", "4800"},
    {"TXT_RID_COMBOBOX_2400", "2400"},
};
const PhoneText lineTypes[] = {
    {"TXT_RID_COMBOBOX_MODEM", "Modem"},
    {"TXT_RID_COMBOBOX_ISDN", "ISDN"},
};
const PhoneText csdTimeoutItems[] = {
    {"TXT_RID_COMBOBOX_OFF", "Off"},       {"TXT_RID_COMBOBOX_1_MIN", "1 min"},
    {"TXT_RID_COMBOBOX_5_MIN", "5 min"},   {"TXT_RID_COMBOBOX_15_MIN", "15 min"},
    {"TXT_RID_COMBOBOX_30_MIN", "30 min"}, {"TXT_RID_COMBOBOX_60_MIN", "60 min"},
};

} // namespace

// clang-format off
const Page1Row page1Rows[page1RowCount] = {
    {textRow(RowKind::PlainText, Text::ProfileName,
             {"TXT_RID_LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK", "Profile Name:*"}, 20), false},
    {choiceRow(RowKind::GuardedChoice, Choice::Preference,
               {"TXT_RID_LABEL_FORMITEM_CONNECTION_PREFERENCE_COLON_ASTERISK", "Connection Preference:*"},
               preferences, toolkit::MarkedDialog), true},
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
               policies, toolkit::PlainDialog), false},
    {choiceRow(RowKind::GuardedChoice, Choice::GprsTimeout,
               {"TXT_RID_LABEL_FORMITEM_GPRS_TIMEOUT_COLON", "GPRS Timeout:"},
               gprsTimeoutItems, toolkit::PlainDialog), false},
    {plainRow(RowKind::PressButton,
              {"TXT_RID_BUTTON_ADDITIONAL_SETTINGS", "Additional settings:"}), false},
};

const Row page2Rows[page2RowCount] = {
    textRow(RowKind::PlainText, Text::Proxy2,
            {"TXT_RID_LABEL_FORMITEM_PROXY_2_COLON", "Proxy 2:"}, 100),
    textRow(RowKind::Port, Text::Port2,
            {"TXT_RID_LABEL_FORMITEM_PORT_2_COLON", "Port 2:"}, 0),
    textRow(RowKind::PlainText, Text::Domain2,
            {"TXT_RID_LABEL_FORMITEM_DOMAIN_2_COLON", "Domain 2:"}, 100),
    textRow(RowKind::DialNumber, Text::CsdNumber,
            {"TXT_RID_LABEL_FORMITEM_CSD_NUMBER_COLON", "CSD Number:"}, 44),
    textRow(RowKind::PlainText, Text::CsdUserName,
            {"TXT_RID_LABEL_FORMITEM_USER_NAME_COLON", "User Name:"}, 64),
    textRow(RowKind::Password, Text::CsdPassword,
            {"TXT_RID_LABEL_FORMITEM_PASSWORD_COLON", "Password:"}, 64),
    choiceRow(RowKind::PlainChoice, Choice::CsdSpeed,
              {"TXT_RID_LABEL_FORMITEM_SPEED_LPARENS_BPS_RPARENS_COLON", "Speed(BPS):"}, speeds, 0),
    choiceRow(RowKind::PlainChoice, Choice::LineType,
              {"TXT_RID_LABEL_FORMITEM_LINE_TYPE_COLON", "Line Type:"}, lineTypes, 0),
    choiceRow(RowKind::PlainChoice, Choice::CsdTimeout,
              {"TXT_RID_LABEL_FORMITEM_CSD_TIMEOUT_COLON", "CSD Timeout:"}, csdTimeoutItems, 0),
    textRow(RowKind::PlainText, Text::CsdDns1,
            {"TXT_RID_LABEL_FORMITEM_DNS_1_COLON", "DNS 1:"}, 0),
    textRow(RowKind::PlainText, Text::CsdDns2,
            {"TXT_RID_LABEL_FORMITEM_DNS_2_COLON", "DNS 2:"}, 0),
};
// clang-format on

} // namespace wizard
