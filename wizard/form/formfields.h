// The fields of the wizard's form, as the record, its tables and its checks see them.
#ifndef WIZARD_FORMFIELDS_H
#define WIZARD_FORMFIELDS_H

#include <qstring.h>

namespace wizard {

// What is typed. The fields up to GprsDns2 are on page 1, in its order; the others on page 2.
enum class Text {
    ProfileName,
    Proxy1,
    Port1,
    Domain1,
    GprsApn,
    GprsUserName,
    GprsPassword,
    GprsDns1,
    GprsDns2,
    Proxy2,
    Port2,
    Domain2,
    CsdNumber,
    CsdUserName,
    CsdPassword,
    CsdDns1,
    CsdDns2
};

// What is chosen: the index of an item from 0, the meaning of which codetables.h knows. The first
// three are on page 1.
enum class Choice { Preference, QosPolicy, GprsTimeout, CsdSpeed, LineType, CsdTimeout };

enum { textCount = int(Text::CsdDns2) + 1, choiceCount = int(Choice::CsdTimeout) + 1 };

// The values of the form, wherever they are kept.
class FormFields
{
public:
    virtual ~FormFields() {}

    virtual QString text(Text field) const = 0;
    virtual void setText(Text field, const QString& text) = 0;

    // -1 when nothing is chosen.
    virtual int choice(Choice field) const = 0;
    virtual void setChoice(Choice field, int item) = 0;
};

} // namespace wizard

#endif
