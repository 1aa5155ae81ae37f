#include "ipaddressedit_validator.h"

#include <qwidget.h>

#include "support/number.h"

IPAddressEdit_Validator::IPAddressEdit_Validator(QWidget* parent) : QIntValidator(parent) {}

IPAddressEdit_Validator::~IPAddressEdit_Validator() {}

QValidator::State IPAddressEdit_Validator::validate(QString& text, int&) const
{
    bool isNumber = false;
    const int number = support::toInt32(text, &isNumber);
    if (isNumber && bottom() <= number && number <= top())
        return Acceptable;
    return text.isEmpty() ? Intermediate : Invalid;
}
