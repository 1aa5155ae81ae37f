#include "ipaddressedit_validator.h"

#include "support/number.h"
#include "support/object.h"

IPAddressEdit_Validator::IPAddressEdit_Validator(QWidget* parent)
    : SUPPORT_VALIDATOR(parent, nullptr)
{}

IPAddressEdit_Validator::~IPAddressEdit_Validator() {}

QValidator::State IPAddressEdit_Validator::validate(QString& text, int&) const
{
    bool isNumber = false;
    const int number = support::toInt32(text, &isNumber);
    if (isNumber && bottom() <= number && number <= top())
        return Acceptable;
    return text.isEmpty() ? Intermediate : Invalid;
}
