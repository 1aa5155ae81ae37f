// The checks of the form, over a network API of the test's own.

#include <ostream>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <napi.h>

#include "support/text.h"
#include "wizard/form/array_form.h"
#include "wizard/form/formcheck.h"

namespace {

std::set<std::string> storedNames;
std::string askedNames;

} // namespace

int NAPI_IsProfileValid(const char* name)
{
    askedNames += "<" + std::string(name) + ">";
    return storedNames.count(name) ? 0 : NAPI_ERR_NO_PROFILE;
}

namespace wizard {

void PrintTo(FormFault fault, std::ostream* out)
{
    static const char* const names[] = {"None",        "DuplicateName",      "NameMissing",
                                        "NameInvalid", "ApnOrNumberMissing", "DnsInvalid"};
    *out << names[int(fault)];
}

} // namespace wizard

namespace {

using wizard::Choice;
using wizard::FormFault;
using wizard::Text;

class FormCheck : public testing::Test
{
protected:
    FormCheck()
    {
        storedNames = {"Taken", "Old"};
        askedNames.clear();
        setText(Text::ProfileName, "New");
        setText(Text::GprsApn, "internet");
    }

    void setText(Text field, const char* text) { form.setText(field, support::fromUtf8(text)); }
    FormFault check() { return wizard::checkForm(form, purpose); }
    void edit(const char* storedName)
    {
        purpose.isCreating = false;
        purpose.storedName = storedName;
    }

    ArrayForm form;
    wizard::FormPurpose purpose;
};

TEST_F(FormCheck, PassesAGoodForm)
{
    EXPECT_EQ(FormFault::None, check());
    EXPECT_EQ(askedNames, "<New>");
}

TEST_F(FormCheck, ANameIsTrimmedBeforeItIsLookedUp)
{
    setText(Text::ProfileName, "  Taken\t");
    EXPECT_EQ(FormFault::DuplicateName, check());
    EXPECT_EQ(askedNames, "<Taken>");
    EXPECT_EQ(QString("Taken"), wizard::profileNameOf(form));
}

TEST_F(FormCheck, ANameIsLookedUpInUtf8AndByItsCase)
{
    storedNames = {"\xC3\xA4", "taken"};
    setText(Text::ProfileName, "Taken");
    EXPECT_EQ(FormFault::None, check());
    setText(Text::ProfileName, "\xC3\xA4");
    EXPECT_EQ(FormFault::DuplicateName, check());
}

TEST_F(FormCheck, EveryAnswerButZeroMeansThatTheNameIsFree)
{
    setText(Text::ProfileName, "No such");
    EXPECT_EQ(FormFault::None, check());
}

TEST_F(FormCheck, AnUnchangedNameOfAnEditedProfileIsNotLookedUp)
{
    edit("Old");
    setText(Text::ProfileName, " Old ");
    EXPECT_EQ(FormFault::None, check());
    EXPECT_EQ(askedNames, "");
}

TEST_F(FormCheck, AnEditedProfileMayNotTakeAnotherOnesName)
{
    edit("Old");
    setText(Text::ProfileName, "Taken");
    EXPECT_EQ(FormFault::DuplicateName, check());
}

TEST_F(FormCheck, AnEditedProfileMayTakeAFreeName)
{
    edit("Old");
    setText(Text::ProfileName, "old");
    EXPECT_EQ(FormFault::None, check());
    EXPECT_EQ(askedNames, "<old>");
}

TEST_F(FormCheck, ACopyMayNotTakeTheNameOfItsSource)
{
    setText(Text::ProfileName, "Old");
    EXPECT_EQ(FormFault::DuplicateName, check());
}

TEST_F(FormCheck, ANameOfBlanksIsMissingAndIsLookedUpFirst)
{
    for (const char* name : {"", " ", " \t\n", "\xE3\x80\x80"}) {
        askedNames.clear();
        setText(Text::ProfileName, name);
        EXPECT_EQ(FormFault::NameMissing, check()) << name;
        EXPECT_EQ(askedNames, "<>");
    }
}

TEST_F(FormCheck, ALeadingDotIsRefusedBehindBlanksToo)
{
    for (const char* name : {".x", " .x", ".", ".."}) {
        setText(Text::ProfileName, name);
        EXPECT_EQ(FormFault::NameInvalid, check()) << name;
    }
    setText(Text::ProfileName, "x.");
    EXPECT_EQ(FormFault::None, check());
}

TEST_F(FormCheck, TheNameComesBeforeEverythingElse)
{
    setText(Text::ProfileName, "");
    setText(Text::GprsApn, "");
    EXPECT_EQ(FormFault::NameMissing, check());
}

TEST_F(FormCheck, AnAccessPointOrANumberIsNeeded)
{
    setText(Text::GprsApn, "");
    EXPECT_EQ(FormFault::ApnOrNumberMissing, check());
    setText(Text::CsdNumber, "1");
    EXPECT_EQ(FormFault::None, check());
}

TEST_F(FormCheck, OneBlankIsAnAccessPoint)
{
    setText(Text::GprsApn, " ");
    EXPECT_EQ(FormFault::None, check());
}

TEST_F(FormCheck, EachNameServerHasToBeAnAddressOrEmpty)
{
    for (Text field : {Text::CsdDns1, Text::CsdDns2, Text::GprsDns1, Text::GprsDns2}) {
        setText(field, "1.2.3");
        EXPECT_EQ(FormFault::DnsInvalid, check()) << int(field);
        setText(field, "1.2.3.4");
        EXPECT_EQ(FormFault::None, check()) << int(field);
        setText(field, " ");
        EXPECT_EQ(FormFault::DnsInvalid, check()) << int(field);
        setText(field, "");
    }
}

TEST_F(FormCheck, AMissingAccessPointComesBeforeANameServer)
{
    setText(Text::GprsApn, "");
    setText(Text::GprsDns1, "x");
    EXPECT_EQ(FormFault::ApnOrNumberMissing, check());
}

TEST_F(FormCheck, WifiOnlyNeedsANameAlone)
{
    purpose.hasWifi = true;
    form.setChoice(Choice::Preference, 1);
    setText(Text::GprsApn, "");
    setText(Text::GprsDns2, "x");
    EXPECT_EQ(FormFault::None, check());
    setText(Text::ProfileName, "Taken");
    EXPECT_EQ(FormFault::DuplicateName, check());
}

TEST_F(FormCheck, OtherPreferencesNeedTheRest)
{
    purpose.hasWifi = true;
    setText(Text::GprsApn, "");
    for (int item : {0, 2}) {
        form.setChoice(Choice::Preference, item);
        EXPECT_EQ(FormFault::ApnOrNumberMissing, check());
    }
}

TEST_F(FormCheck, WithoutTheWifiFeatureThePreferenceIsNotLookedAt)
{
    form.setChoice(Choice::Preference, 1);
    setText(Text::GprsApn, "");
    EXPECT_EQ(FormFault::ApnOrNumberMissing, check());
}

} // namespace
