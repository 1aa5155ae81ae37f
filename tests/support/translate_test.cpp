#include "support/translate.h"

#include <gtest/gtest.h>

#include "support/notation.h"

using support::translate;

TEST(Translate, GivesTheTextWithoutATranslator)
{
    EXPECT_EQ("Cancel", shown(translate("Cancel")));
    EXPECT_EQ("TXT_RID_SOFTKEY_CANCEL", shown(translate("TXT_RID_SOFTKEY_CANCEL", "Cancel")));
    EXPECT_EQ("%1 and %n", shown(translate("%1 and %n", "comment")));
}

TEST(Translate, KeepsEmptyAndNullApart)
{
    EXPECT_EQ("", shown(translate("")));
    EXPECT_EQ("NULL", shown(translate(nullptr)));
}
