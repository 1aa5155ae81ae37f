#include "wizard/page2rows.h"

namespace wizard {

// The order of the items is that of the codes in codetables.h.
static const PhoneText speeds[] = {
    {"TXT_RID_COMBOBOX_AUTO", "Auto"}, {"TXT_RID_COMBOBOX_14400", "14400"},
    {"TXT_RID_COMBOBOX_9600", "9600"}, {"TXT_RID_COMBOBOX_4800", "4800"},
    {"TXT_RID_COMBOBOX_2400", "2400"},
};
static const PhoneText lineTypes[] = {
    {"TXT_RID_COMBOBOX_MODEM", "Modem"},
    {"TXT_RID_COMBOBOX_ISDN", "ISDN"},
};
static const PhoneText timeouts[] = {
    {"TXT_RID_COMBOBOX_OFF", "Off"},       {"TXT_RID_COMBOBOX_1_MIN", "1 min"},
    {"TXT_RID_COMBOBOX_5_MIN", "5 min"},   {"TXT_RID_COMBOBOX_15_MIN", "15 min"},
    {"TXT_RID_COMBOBOX_30_MIN", "30 min"}, {"TXT_RID_COMBOBOX_60_MIN", "60 min"},
};

// clang-format off
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
              {"TXT_RID_LABEL_FORMITEM_CSD_TIMEOUT_COLON", "CSD Timeout:"}, timeouts, 0),
    textRow(RowKind::PlainText, Text::CsdDns1,
            {"TXT_RID_LABEL_FORMITEM_DNS_1_COLON", "DNS 1:"}, 0),
    textRow(RowKind::PlainText, Text::CsdDns2,
            {"TXT_RID_LABEL_FORMITEM_DNS_2_COLON", "DNS 2:"}, 0),
};
// clang-format on

} // namespace wizard
