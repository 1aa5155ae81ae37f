#include "wizard/form/formcheck.h"

#include <napi.h>

#include "support/text.h"
#include "wizard/form/codetables.h"
#include "wizard/form/fieldtext.h"

namespace wizard {

QString profileNameOf(const FormFields& form)
{
    return support::trimmed(form.text(Text::ProfileName));
}

namespace {

bool isTaken(const QString& name)
{
    return NAPI_IsProfileValid(support::utf8(name).c_str()) == NAPI_OK;
}

} // namespace

FormFault checkName(const FormFields& form, const FormPurpose& purpose)
{
    const QString name = profileNameOf(form);
    const bool isNewName = purpose.isCreating || support::compare(name, purpose.storedName) != 0;
    if (isNewName && isTaken(name))
        return FormFault::DuplicateName;
    if (name.isEmpty())
        return FormFault::NameMissing;
    if (name[0] == '.')
        return FormFault::NameInvalid;
    return FormFault::None;
}

FormFault checkForm(const FormFields& form, const FormPurpose& purpose)
{
    const FormFault fault = checkName(form, purpose);
    if (fault != FormFault::None)
        return fault;
    if (purpose.hasWifi && form.choice(Choice::Preference) == WifiOnly)
        return FormFault::None;
    if (form.text(Text::GprsApn).isEmpty() && form.text(Text::CsdNumber).isEmpty())
        return FormFault::ApnOrNumberMissing;
    for (Text field : {Text::CsdDns1, Text::CsdDns2, Text::GprsDns1, Text::GprsDns2}) {
        if (!isAddressOrEmpty(form.text(field)))
            return FormFault::DnsInvalid;
    }
    return FormFault::None;
}

FaultFields fieldsToCorrect(FormFault fault)
{
    switch (fault) {
    case FormFault::None:
    case FormFault::DuplicateName:
        break;
    case FormFault::NameMissing:
    case FormFault::NameInvalid:
        return {{Text::ProfileName, Text::ProfileName}, 1};
    case FormFault::ApnOrNumberMissing:
        return {{Text::GprsApn, Text::CsdNumber}, 2};
    case FormFault::DnsInvalid:
        return {{Text::CsdDns1, Text::GprsDns1}, 2};
    }
    return {{Text::ProfileName, Text::ProfileName}, 0};
}

} // namespace wizard
