// The helpers in a program that has no QApplication, as in the loading and unloading of a library.
#include <gtest/gtest.h>

#include <qapplication.h>

#include "support/loop.h"
#include "support/notation.h"
#include "support/translate.h"

using namespace support;

TEST(WithoutApplication, EnteringALoopReturnsAtOnce)
{
    ASSERT_FALSE(qApp);
    enterLoop();
    exitLoop();
    enterLoop();
}

TEST(WithoutApplication, ProcessingAndWakingDoNothing)
{
    ASSERT_FALSE(qApp);
    processPending();
    wakeLoop();
}

TEST(WithoutApplication, TranslateGivesTheTextItself)
{
    ASSERT_FALSE(qApp);
    EXPECT_EQ(shown(translate("TXT_RID_SOFTKEY_CANCEL", "Cancel")), "TXT_RID_SOFTKEY_CANCEL");
    EXPECT_EQ(shown(translate("Cancel")), "Cancel");
    EXPECT_EQ(shown(translate("")), "");
    EXPECT_EQ(shown(translate(nullptr)), "NULL");
}
