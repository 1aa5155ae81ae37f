#include "support/translate.h"

#include <gtest/gtest.h>

#include "support/notation.h"

using support::translate;

TEST(Translate, GivesTheTextWithoutATranslator)
{
    EXPECT_EQ(shown(translate("Cancel")), "Cancel");
    EXPECT_EQ(shown(translate("TXT_RID_SOFTKEY_CANCEL", "Cancel")), "TXT_RID_SOFTKEY_CANCEL");
    EXPECT_EQ(shown(translate("%1 and %n", "comment")), "%1 and %n");
}

TEST(Translate, KeepsEmptyAndNullApart)
{
    EXPECT_EQ(shown(translate("")), "");
    EXPECT_EQ(shown(translate(nullptr)), "NULL");
}
