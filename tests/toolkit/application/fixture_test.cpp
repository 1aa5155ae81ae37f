// The fixture itself: it has to see what it is there to see.
#include "common/gui_test.h"

#include <memory>

#include <QPushButton>

#include <ypopup.h>

namespace {

class Fixture : public GuiTest
{};

TEST_F(Fixture, HasNothingToSayOfATestThatLeavesNothing)
{
    {
        YPopup popup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        popup.show();
        EXPECT_EQ(findings(), std::vector<std::string>{"left behind: YPopup \"\""});
    }
    EXPECT_TRUE(findings().empty());
}

TEST_F(Fixture, NamesAWidgetThatIsLeftBehind)
{
    auto left = std::make_unique<QPushButton>();
    left->setObjectName("forgotten");
    EXPECT_EQ(findings(), std::vector<std::string>{"left behind: QPushButton \"forgotten\""});
}

TEST_F(Fixture, TellsAWarningThatNobodyAnnounced)
{
    qWarning("something is wrong");
    EXPECT_EQ(findings(), std::vector<std::string>{"unannounced warning: something is wrong"});
    expectWarning("something is wrong");
    EXPECT_TRUE(findings().empty());
}

TEST_F(Fixture, TellsAWarningThatComesMoreOftenThanAnnounced)
{
    expectWarning("again");
    qWarning("again");
    qWarning("again");
    EXPECT_EQ(findings(), std::vector<std::string>{"unannounced warning: again"});
    expectWarning("again");
}

TEST_F(Fixture, TellsAnAnnouncedWarningThatDoesNotCome)
{
    expectWarning("a warning");
    EXPECT_EQ(findings(), std::vector<std::string>{"the warning did not come: a warning"});
    qWarning("now a warning comes");
}

} // namespace
