// The validator of numeric fields: address segments and ports.
#ifndef IPADDRESSEDIT_VALIDATOR_H
#define IPADDRESSEDIT_VALIDATOR_H

#include <qvalidator.h>

#include "vornqtnapi_export.h"

class QWidget;

// Accepts a whole decimal number within the range, and the empty text as one that is not finished.
// Every other text is invalid, so that a line edit refuses the key that would lead to it:
//
//     #include <ylineedit.h>
//
//     YLineEdit* port = new YLineEdit(form, 0, 39);
//     IPAddressEdit_Validator* validator = new IPAddressEdit_Validator(port);
//     validator->setRange(0, 65535);
//     port->setValidator(validator);
//
// GUI thread only.
class VORNQTNAPI_EXPORT IPAddressEdit_Validator : public QIntValidator
{
public:
    // `parent`, which may be null, deletes the validator; pass the line edit that it guards. The
    // range is that of int until setRange() narrows it.
    IPAddressEdit_Validator(QWidget* parent);
    ~IPAddressEdit_Validator();

    // Acceptable (2) when `text` is a number from bottom() to top(): blanks around it, one sign
    // right before it and leading zeros are allowed. Intermediate (1) when it is empty. Invalid (0)
    // otherwise, for blanks or a sign alone and for a number that does not fit 32 bits too. Changes
    // neither `text` nor `position`, which is not used.
    State validate(QString& text, int& position) const override;
};

#endif
