// A panel whose children lie where the program has put them.
#include <QScrollBar>
#include <QSignalSpy>

#include <ypopup.h>
#include <yscrollpanel.h>

#include "common/gui_test.h"

namespace {

constexpr int height = 100;

class ScrollPanel : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        panel = new YScrollPanel(popup.get(), nullptr, 0);
        panel->setGeometry(0, 0, 200, height);
    }

    void TearDown() override
    {
        popup.reset();
        GuiTest::TearDown();
    }

    QWidget* put(int x, int y, int high)
    {
        auto* child = new QWidget(panel->viewport());
        child->setGeometry(x, y, 40, high);
        child->show();
        return child;
    }

    void open()
    {
        popup->show();
        settle();
    }

    std::unique_ptr<YPopup> popup;
    YScrollPanel* panel = nullptr;
};

TEST_F(ScrollPanel, TellsWhereItsChildrenLie)
{
    QWidget* child = put(30, 250, 50);
    open();
    EXPECT_EQ(panel->contentsHeight(), 300);
    EXPECT_EQ(panel->childX(child), 30);
    EXPECT_EQ(panel->childY(child), 250);
    panel->setContentsPos(0, 120);
    EXPECT_EQ(panel->childY(child), 250) << "whether it is in sight or not";
    EXPECT_EQ(panel->childY(popup.get()), 0);
    EXPECT_EQ(panel->childX(nullptr), 0);
}

TEST_F(ScrollPanel, KeepsWithinItsContents)
{
    put(0, 0, 300);
    open();
    QSignalSpy moves(panel, SIGNAL(contentsMoving(int, int)));
    panel->setContentsPos(70, 999);
    EXPECT_EQ(panel->contentsX(), 0);
    EXPECT_EQ(panel->contentsY(), 200);
    panel->setContentsPos(0, -5);
    EXPECT_EQ(panel->contentsY(), 0);
    EXPECT_EQ(moves.count(), 2);
    EXPECT_EQ(moves[0][1].toInt(), 200);
}

struct Sight
{
    const char* name;
    int from; // the position before
    int top;  // of the child
    int high;
    int to;
};

std::ostream& operator<<(std::ostream& out, const Sight& row)
{
    return out << row.name;
}

class ScrollPanelSight : public ScrollPanel, public ::testing::WithParamInterface<Sight>
{};

TEST_P(ScrollPanelSight, MovesNoFurtherThanItMust)
{
    put(0, 0, 500);
    QWidget* child = put(0, GetParam().top, GetParam().high);
    open();
    panel->setContentsPos(0, GetParam().from);
    panel->ensureChildVisible(child);
    EXPECT_EQ(panel->contentsY(), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    Places, ScrollPanelSight,
    ::testing::Values(Sight{"InSight", 100, 120, 30, 100}, Sight{"JustInSight", 100, 170, 30, 100},
                      Sight{"PartlyBelow", 100, 171, 30, 101}, Sight{"FarBelow", 0, 400, 30, 330},
                      Sight{"PartlyAbove", 100, 99, 30, 99}, Sight{"FarAbove", 400, 20, 30, 20},
                      Sight{"TooHighForThePanel", 0, 200, 150, 200}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ScrollPanel, AWidgetThatIsNoChildMovesNothing)
{
    put(0, 0, 300);
    open();
    panel->setContentsPos(0, 50);
    panel->ensureChildVisible(popup.get());
    panel->ensureChildVisible(nullptr);
    EXPECT_EQ(panel->contentsY(), 50);
}

TEST_F(ScrollPanel, GrowsAndShrinksWithItsChildren)
{
    QWidget* last = put(0, 0, 300);
    open();
    panel->setContentsPos(0, 200);
    last->resize(40, 150);
    EXPECT_EQ(panel->contentsHeight(), 150);
    EXPECT_EQ(panel->contentsY(), 50);
}

} // namespace
