// Popups: their nested loop, their soft keys, and what lies below them.
#include <memory>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include <ylabel.h>
#include <ypopup.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

constexpr bool modal = true;

std::unique_ptr<YPopup> makePopup(QWidget* owner = nullptr, int style = YPopup::PlainStyle)
{
    auto popup = std::make_unique<YPopup>(0, owner, nullptr, modal, style, 0);
    popup->getSoftKey()->setText(YSoftKey::Left, "OK", 0);
    popup->getSoftKey()->setText(YSoftKey::Right, "Cancel", 0);
    return popup;
}

QPoint middleOfKey(const YPopup& popup, int button)
{
    const YSoftKey* bar = popup.getSoftKey();
    const int x = bar->width() / 4 + (button == YSoftKey::Right ? bar->width() / 2 : 0);
    return bar->mapTo(popup.parentWidget(), QPoint(x, bar->height() / 2));
}

// What a person does to a popup, and what exec() then gives.
struct Answer
{
    const char* name;
    std::function<void(YPopup&)> act;
    int result;
};

std::ostream& operator<<(std::ostream& out, const Answer& answer)
{
    return out << answer.name;
}

class PopupAnswer : public GuiTest, public ::testing::WithParamInterface<Answer>
{};

TEST_P(PopupAnswer, EndsExecWithItsResultAndHidesThePopup)
{
    auto popup = makePopup();
    later([&] { GetParam().act(*popup); });
    EXPECT_EQ(popup->exec(), GetParam().result);
    EXPECT_TRUE(popup->isHidden());
    EXPECT_EQ(activeLayer(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PopupAnswer,
    ::testing::Values(
        Answer{"F1IsTheLeftKey", [](YPopup&) { GuiTest::press(Qt::Key_F1); }, 1},
        Answer{"F2IsTheRightKey", [](YPopup&) { GuiTest::press(Qt::Key_F2); }, 0},
        Answer{"EscapeRejects", [](YPopup&) { GuiTest::press(Qt::Key_Escape); }, 0},
        Answer{"TapOnTheLeftKey",
               [](YPopup& popup) { GuiTest::tap(middleOfKey(popup, YSoftKey::Left)); }, 1},
        Answer{"TapOnTheRightKey",
               [](YPopup& popup) { GuiTest::tap(middleOfKey(popup, YSoftKey::Right)); }, 0},
        Answer{"Hidden", [](YPopup& popup) { popup.hide(); }, 0},
        Answer{"ClosedWithTheWindow", [](YPopup&) { GuiTest::screen()->close(); }, 0}),
    [](const auto& row) { return std::string(row.param.name); });

class Popup : public GuiTest
{};

TEST_F(Popup, IsHiddenUntilItIsShown)
{
    auto popup = makePopup();
    EXPECT_TRUE(popup->isHidden());
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Popup, ShowReturnsAtOnceAndOpensTheScreen)
{
    auto popup = makePopup();
    popup->show();
    EXPECT_TRUE(popup->isVisible());
    EXPECT_TRUE(screen()->isVisible());
    EXPECT_EQ(activeLayer(), popup.get());
}

TEST_F(Popup, TheScreenClosesBehindTheLastPopup)
{
    auto popup = makePopup();
    popup->show();
    popup.reset();
    settle();
    EXPECT_FALSE(screen()->isVisible());
}

TEST_F(Popup, TheScreenStaysWhenOnePopupFollowsAnother)
{
    auto first = makePopup();
    first->show();
    first.reset();
    auto second = makePopup();
    second->show();
    settle();
    EXPECT_TRUE(screen()->isVisible());
}

TEST_F(Popup, AHiddenSoftKeyAnswersNeitherKeyNorFinger)
{
    auto popup = makePopup();
    popup->getSoftKey()->showButton(YSoftKey::Left, false);
    popup->show();
    press(Qt::Key_F1);
    tap(middleOfKey(*popup, YSoftKey::Left));
    EXPECT_TRUE(popup->isVisible());
}

TEST_F(Popup, AClickedSlotTakesThePlaceOfTheUsualOne)
{
    auto popup = makePopup();
    auto other = makePopup();
    popup->getSoftKey()->setClickedSlot(YSoftKey::Right, other.get(), SLOT(show()));
    popup->show();
    press(Qt::Key_F2);
    EXPECT_TRUE(popup->isVisible());
    EXPECT_TRUE(other->isVisible());
}

TEST_F(Popup, ALaterClickedSlotTakesThePlaceOfAnEarlierOne)
{
    auto popup = makePopup();
    auto earlier = makePopup();
    auto latest = makePopup();
    popup->getSoftKey()->setClickedSlot(YSoftKey::Right, earlier.get(), "1show()");
    popup->getSoftKey()->setClickedSlot(YSoftKey::Right, latest.get(), "1show()");
    popup->show();
    press(Qt::Key_F2);
    EXPECT_FALSE(earlier->isVisible());
    EXPECT_TRUE(latest->isVisible());
}

TEST_F(Popup, AWrongSlotTextIsWarnedOf)
{
    auto popup = makePopup();
    expectWarning("No such slot YPopup::noSuchSlot()");
    popup->getSoftKey()->setClickedSlot(YSoftKey::Right, popup.get(), "1noSuchSlot()");
}

TEST_F(Popup, AHeldKeyActsOnce)
{
    auto popup = makePopup();
    auto other = makePopup();
    popup->getSoftKey()->setClickedSlot(YSoftKey::Left, other.get(), SLOT(show()));
    other->getSoftKey()->setClickedSlot(YSoftKey::Left, popup.get(), SLOT(hide()));
    popup->show();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(popup.get(), &held);
    EXPECT_FALSE(other->isVisible());
}

TEST_F(Popup, MayBeDeletedByTheSlotOfItsSoftKey)
{
    QPointer<YPopup> popup(makePopup().release());
    popup->getSoftKey()->setClickedSlot(YSoftKey::Right, popup, SLOT(deleteLater()));
    popup->show();
    press(Qt::Key_F2);
    settle();
    EXPECT_TRUE(popup.isNull());
}

TEST_F(Popup, KeepsItsTexts)
{
    auto popup = makePopup();
    popup->setTitle("Select Connection");
    popup->setInstructText("Choose & go");
    EXPECT_EQ(popup->title(), "Select Connection");
    EXPECT_EQ(popup->instructText(), "Choose & go");
    EXPECT_EQ(popup->getSoftKey()->text(YSoftKey::Right), "Cancel");
}

TEST_F(Popup, TitleAndInstructionTakeTheirRoomFromTheContents)
{
    auto popup = makePopup();
    const QRect bare = popup->contentsR();
    popup->setTitle("Title");
    const QRect titled = popup->contentsR();
    EXPECT_GT(titled.top(), bare.top());
    popup->setInstructText("Instruction");
    EXPECT_GT(popup->contentsR().top(), titled.top());
    popup->setTitle(QString());
    popup->setInstructText(QString());
    EXPECT_EQ(popup->contentsR(), bare);
}

TEST_F(Popup, ASecondExecOfTheSamePopupReturnsAtOnce)
{
    auto popup = makePopup();
    int inner = -1;
    later([&] {
        inner = popup->exec();
        press(Qt::Key_F1);
    });
    EXPECT_EQ(popup->exec(), 1);
    EXPECT_EQ(inner, 0);
}

TEST_F(Popup, CanBeRunAgainWithAResultOfItsOwn)
{
    auto popup = makePopup();
    later([] { press(Qt::Key_F1); });
    EXPECT_EQ(popup->exec(), 1);
    later([] { press(Qt::Key_F2); });
    EXPECT_EQ(popup->exec(), 0);
}

TEST_F(Popup, ExecEndsWhenThePopupIsDeleted)
{
    QPointer<YPopup> popup(makePopup().release());
    later([&] { delete popup; });
    EXPECT_EQ(popup->exec(), 0);
    EXPECT_TRUE(popup.isNull());
}

TEST_F(Popup, ExecEndsWhenTheOwnerIsDeleted)
{
    auto owner = std::make_unique<QWidget>();
    QPointer<YPopup> popup(makePopup(owner.get()).release());
    later([&] { owner.reset(); });
    EXPECT_EQ(popup->exec(), 0);
    EXPECT_TRUE(popup.isNull());
}

TEST_F(Popup, ExecEndsWhenTheApplicationQuits)
{
    auto popup = makePopup();
    later([&] {
        later([] { QCoreApplication::quit(); });
        EXPECT_EQ(popup->exec(), 0);
        EXPECT_TRUE(popup->isHidden());
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(Popup, ExecEndsWhenTheEventLoopsAreLeftWithoutClosingTheWindows)
{
    auto popup = makePopup();
    later([&] {
        later([] { QCoreApplication::exit(3); });
        EXPECT_EQ(popup->exec(), 0);
        EXPECT_TRUE(popup->isHidden());
    });
    EXPECT_EQ(QCoreApplication::exec(), 3);
}

TEST_F(Popup, APopupInAPopupIsDeletedWithIt)
{
    QPointer<YPopup> outer(makePopup().release());
    QPointer<YPopup> inner(makePopup(outer).release());
    inner->show();
    delete outer;
    EXPECT_TRUE(inner.isNull());
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Popup, TheOwnerOutlivesAPopupDeletedBeforeIt)
{
    QWidget owner;
    delete makePopup(&owner).release();
    EXPECT_TRUE(owner.children().isEmpty());
}

// Presses a soft key of a popup, by key or by finger.
struct Way
{
    const char* name;
    void (*use)(const YPopup& popup, int button);
};

std::ostream& operator<<(std::ostream& out, const Way& way)
{
    return out << way.name;
}

class NestedPopups : public GuiTest, public ::testing::WithParamInterface<Way>
{};

TEST_P(NestedPopups, ThreeDeepEachAnswersInItsTurn)
{
    std::vector<int> ended;
    auto first = makePopup();
    auto second = makePopup();
    auto third = makePopup();
    later({[&] {
               EXPECT_EQ(second->exec(), 1);
               ended.push_back(2);
               GetParam().use(*first, YSoftKey::Right);
           },
           [&] {
               EXPECT_EQ(third->exec(), 0);
               ended.push_back(3);
               GetParam().use(*second, YSoftKey::Left);
           },
           [&] {
               EXPECT_EQ(activeLayer(), third.get());
               GetParam().use(*third, YSoftKey::Right);
           }});
    EXPECT_EQ(first->exec(), 0);
    EXPECT_EQ(ended, (std::vector<int>{3, 2}));
}

INSTANTIATE_TEST_SUITE_P(
    Ways, NestedPopups,
    ::testing::Values(Way{"Keys",
                          [](const YPopup&, int button) {
                              GuiTest::press(button == YSoftKey::Left ? Qt::Key_F1 : Qt::Key_F2);
                          }},
                      Way{"Finger", [](const YPopup& popup,
                                       int button) { GuiTest::tap(middleOfKey(popup, button)); }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Popup, ThreeDeepAllEndWhenTheirOwnerIsDeleted)
{
    std::vector<int> ended;
    auto owner = std::make_unique<QWidget>();
    YPopup* first = makePopup(owner.get()).release();
    YPopup* second = makePopup(first).release();
    YPopup* third = makePopup(owner.get()).release();
    later({[&] { ended.push_back(second->exec()); }, [&] { ended.push_back(third->exec()); },
           [&] { owner.reset(); }});
    ended.push_back(first->exec());
    EXPECT_EQ(ended, (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Popup, ThreeDeepAllEndWhenTheApplicationQuits)
{
    std::vector<int> ended;
    auto first = makePopup();
    auto second = makePopup();
    auto third = makePopup();
    later({[&] { ended.push_back(first->exec()); }, [&] { ended.push_back(second->exec()); },
           [&] { ended.push_back(third->exec()); }, [] { QCoreApplication::quit(); }});
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(ended, (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Popup, TheOuterOneEndedFirstStillWaitsForTheInner)
{
    auto outer = makePopup();
    auto inner = makePopup();
    later({[&] { EXPECT_EQ(inner->exec(), 1); },
           [&] {
               outer->hide();
               EXPECT_TRUE(inner->isVisible());
               press(Qt::Key_F1);
           }});
    EXPECT_EQ(outer->exec(), 0);
}

TEST_F(Popup, NothingBelowAModalOneHearsTheFinger)
{
    auto below = makePopup();
    below->setGeometry(screen()->rect());
    QPushButton button("Below", below.get());
    button.setGeometry(20, 20, 100, 40);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    below->show();
    tap(&button);
    ASSERT_EQ(clicks, 1);
    auto above = makePopup();
    above->show();
    tap(&button);
    EXPECT_EQ(clicks, 1);
    above->hide();
    tap(&button);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Popup, NothingBelowAModalOneHearsTheKeys)
{
    auto below = makePopup();
    QPushButton button("Below", below.get());
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    below->show();
    button.setFocus();
    press(Qt::Key_Space);
    ASSERT_EQ(clicks, 1);
    auto above = makePopup();
    above->show();
    // Not even when the program puts the focus there.
    button.setFocus();
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(clicks, 1);
    above->hide();
    press(Qt::Key_Space);
    EXPECT_EQ(clicks, 2) << "the focus has to be back where it was";
}

TEST_F(Popup, ShowsAnActivityOnlyWhileItIsShown)
{
    auto popup = makePopup(nullptr, YPopup::ProgressStyle);
    auto* ring = popup->findChild<QWidget*>("busy");
    ASSERT_TRUE(ring);
    EXPECT_FALSE(ring->isVisible());
    popup->show();
    EXPECT_TRUE(ring->isVisible());
    popup->hide();
    EXPECT_FALSE(ring->isVisible());
}

TEST_F(Popup, TheActivityLeavesTheRoomToATextBesideIt)
{
    auto popup = makePopup(nullptr, YPopup::ProgressStyle);
    auto* ring = popup->findChild<QWidget*>("busy");
    ASSERT_TRUE(ring);
    auto* label = new YLabel(popup.get(), nullptr, 0, 86);
    label->setGeometry(72, 11, 160, 50);
    popup->show();
    EXPECT_TRUE(ring->geometry().intersects(label->geometry()));
    label->setText("Connecting");
    settle();
    EXPECT_FALSE(ring->geometry().intersects(label->geometry()));
}

TEST_F(Popup, AThousandTimesOpenedLeavesNothing)
{
    for (int i = 0; i < 1000; ++i) {
        auto popup = makePopup();
        popup->show();
    }
    EXPECT_EQ(activeLayer(), nullptr);
}

} // namespace
