// Pages and their options menu.
#include <QListWidget>
#include <QPointer>
#include <QSignalSpy>

#include <yappinfoarea.h>
#include <yoptionsmenu.h>

#include "toolkit/form_page.h"

namespace {

// Counts the calls of the slots that a page connects its keys and items to.
class Receiver : public QObject
{
    Q_OBJECT

public:
    int calls = 0;
    std::function<void()> inside;

public slots:
    void called()
    {
        ++calls;
        if (inside)
            inside();
    }
};

class Page : public FormTest
{};

TEST_F(Page, IsHiddenUntilItIsShown)
{
    EXPECT_TRUE(page->isHidden());
    page->show();
    EXPECT_EQ(activeLayer(), page.get());
    page->hide();
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Page, GivesItsPartsTheirPlaces)
{
    auto* info = new YAppInfoArea(page.get(), "T", nullptr, YSkinService::AppInfoArea);
    page->setTitleBarWidget(info);
    EXPECT_EQ(page->titleBarWidget(), info);
    open();
    EXPECT_EQ(page->geometry(), YGlobal::getHomeR(false));
    EXPECT_EQ(form->geometry(), YGlobal::getMainContentR());
    EXPECT_EQ(page->softKey()->geometry(), YGlobal::getCstR());
    EXPECT_EQ(info->width(), 0);
    info->appendText(1, "2/3", QString());
    settle();
    EXPECT_GT(info->width(), 10);
    EXPECT_EQ(info->geometry().right(), page->rect().right());
}

TEST_F(Page, InfoAreaJoinsItsTextsAndSkipsEmptyOnes)
{
    YAppInfoArea info(nullptr, "T", "info", YSkinService::AppInfoArea);
    info.appendText(1, "", QString());
    EXPECT_EQ(info.sizeHint().width(), 0);
    info.appendText(1, "a", "b");
    info.appendText(1, "c", QString());
    EXPECT_EQ(info.text(1), "a b c");
    EXPECT_EQ(info.text(0), "");
    info.clear(1);
    EXPECT_EQ(info.sizeHint().width(), 0);
}

TEST_F(Page, DeletesThePartThatIsReplaced)
{
    QPointer<QWidget> old(form);
    page->setContentWidget(new QWidget);
    EXPECT_TRUE(old.isNull());
    EXPECT_EQ(page->contentWidget()->parentWidget(), page.get());
}

TEST_F(Page, CallsItsOwnHideWhenTheWindowIsClosed)
{
    class Counted : public YKbMainWidget
    {
    public:
        Counted() : YKbMainWidget(nullptr, nullptr, 0) {}
        void hide() override
        {
            ++hidden;
            YKbMainWidget::hide();
        }
        int hidden = 0;
    };
    Counted counted;
    counted.show();
    settle();
    screen()->close();
    EXPECT_EQ(counted.hidden, 1);
    EXPECT_FALSE(counted.isVisible());
}

TEST_F(Page, LiesAboveThePageShownBeforeItAndGivesTheFocusBack)
{
    addRows("eee");
    row(1)->setFocus();
    open();
    YKbMainWidget second(nullptr, nullptr, 0);
    second.show();
    EXPECT_EQ(activeLayer(), &second);
    type("x");
    EXPECT_EQ(static_cast<YLineEdit*>(row(1))->text(), "");
    // A row may be given the focus while its page lies below.
    row(2)->setFocus();
    page->show();
    second.hide();
    EXPECT_EQ(activeLayer(), page.get());
    EXPECT_EQ(focusedRow(), 2);
}

TEST_F(Page, GoesWithItsOwner)
{
    auto owner = std::make_unique<QWidget>();
    QPointer<YKbMainWidget> owned(new YKbMainWidget(owner.get(), nullptr, 0));
    owned->show();
    owner.reset();
    EXPECT_TRUE(owned.isNull());
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Page, KeepsItsTitleAndMorphMode)
{
    EXPECT_EQ(page->morphMode(), YKbMainWidget::NoMorph);
    page->setMorphMode(3);
    page->setMainWidgetTitle("Connection Setup");
    EXPECT_EQ(page->morphMode(), YKbMainWidget::FormMorph);
    EXPECT_EQ(page->mainWidgetTitle(), "Connection Setup");
}

// The menu of the left soft key, with a usual, a switched-off and a checkable item.
class Menu : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        QRect room = YGlobal::getHomeR(false);
        room.setSize(QSize(200, room.height() - YGlobal::getCstR().height()));
        menu = new YOptionsMenu(room, page.get(), nullptr, 0, YSkinService::OptionsMenu);
        save = menu->insertItem("Save", nullptr, &receiver, SLOT(called()), true, false, false, -1,
                                -1, false);
        off = menu->insertItem("Off", nullptr, &receiver, SLOT(called()), false, false, false, -1,
                               -1, false);
        check = menu->insertItem("Check", nullptr, &receiver, SLOT(called()), true, true, false, 77,
                                 -1, false);
        page->softKey()->setText(YSoftKey::Left, "Options", 0);
        page->softKey()->setOptionsMenu(YSoftKey::Left, menu);
        open();
    }

    void tapItem(int row)
    {
        auto* list = menu->findChild<QListWidget*>();
        const QRect place = list->visualItemRect(list->item(row));
        tap(list->viewport()->mapTo(screen(), place.center()));
    }

    static QPoint middleOfKey(int button)
    {
        const QRect bar = YGlobal::getCstR();
        return QPoint(bar.width() / 4 + button * bar.width() / 2, bar.center().y());
    }

    Receiver receiver;
    YOptionsMenu* menu = nullptr;
    int save = 0;
    int off = 0;
    int check = 0;
};

TEST_F(Menu, OpensFromItsSoftKeyByKeyAndByFinger)
{
    press(Qt::Key_F1);
    EXPECT_EQ(activeLayer(), menu);
    EXPECT_EQ(menu->getSoftKey()->text(YSoftKey::Right), "Cancel");
    press(Qt::Key_Escape);
    EXPECT_EQ(activeLayer(), page.get());
    tap(middleOfKey(YSoftKey::Left));
    EXPECT_EQ(activeLayer(), menu);
    tap(middleOfKey(YSoftKey::Right));
    EXPECT_EQ(activeLayer(), page.get());
    EXPECT_EQ(receiver.calls, 0);
}

TEST_F(Menu, ClosesAndThenCallsTheItemsSlotByEachWay)
{
    bool open = true;
    receiver.inside = [&] { open = menu->isVisible(); };
    const std::vector<std::pair<const char*, std::function<void()>>> ways = {
        {"Return", [] { press(Qt::Key_Return); }},
        {"the left soft key", [] { press(Qt::Key_F1); }},
        {"the digit", [] { press(Qt::Key_1); }},
        {"a tap", [this] { tapItem(0); }},
        {"a tap on the left soft key", [] { tap(middleOfKey(YSoftKey::Left)); }},
        {"Down, Up and Return", [] {
             for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return})
                 press(key);
         }}};
    for (const auto& [name, way] : ways) {
        receiver.calls = 0;
        open = true;
        press(Qt::Key_F1);
        way();
        EXPECT_EQ(receiver.calls, 1) << name;
        EXPECT_FALSE(open) << name;
        EXPECT_EQ(activeLayer(), page.get()) << name;
    }
}

TEST_F(Menu, DoesNothingForAnItemThatIsSwitchedOff)
{
    press(Qt::Key_F1);
    press(Qt::Key_2);
    tapItem(1);
    EXPECT_EQ(receiver.calls, 0);
    EXPECT_EQ(activeLayer(), menu);
    menu->setItemEnabled(off, true);
    EXPECT_TRUE(menu->isItemEnabled(off));
    tapItem(1);
    EXPECT_EQ(receiver.calls, 1);
}

TEST_F(Menu, ChangesTheMarkOfACheckableItemBeforeItsSlot)
{
    bool checkedInside = false;
    receiver.inside = [&] { checkedInside = menu->isItemChecked(check); };
    QSignalSpy activated(menu, SIGNAL(activated(int)));
    press(Qt::Key_F1);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(checkedInside);
    press(Qt::Key_F1);
    tapItem(2);
    EXPECT_FALSE(menu->isItemChecked(check));
    ASSERT_EQ(activated.count(), 2);
    EXPECT_EQ(activated[0][0].toInt(), check);
}

TEST_F(Menu, ClosesAtATapBesideIt)
{
    press(Qt::Key_F1);
    tap(QPoint(230, 100));
    EXPECT_EQ(activeLayer(), page.get());
    EXPECT_EQ(receiver.calls, 0);
}

TEST_F(Menu, StandsAtTheBottomOfItsRoom)
{
    press(Qt::Key_F1);
    auto* list = menu->findChild<QListWidget*>();
    const QRect place(list->mapTo(screen(), QPoint()), list->size());
    EXPECT_LT(place.right(), 200);
    EXPECT_LT(place.bottom(), YGlobal::getCstR().top());
    EXPECT_GT(place.bottom(), YGlobal::getCstR().top() - 10);
}

TEST_F(Menu, KeepsToAScreenThatIsNarrowerThanItsRoom)
{
    YOptionsMenu wide(QRect(0, 0, 1000, 286), page.get(), nullptr, 0, YSkinService::OptionsMenu);
    wide.insertItem("Save", nullptr, nullptr, nullptr, true, false, false, -1, -1, false);
    wide.show();
    auto* list = wide.findChild<QListWidget*>();
    const QRect place(list->mapTo(screen(), QPoint()), list->size());
    EXPECT_TRUE(screen()->rect().contains(place));
}

TEST_F(Menu, ScrollsWhenItHasMoreItemsThanRoom)
{
    for (int i = 0; i < 30; ++i)
        menu->insertItem(QString("Item %1").arg(i), nullptr, nullptr, nullptr, true, false, false,
                         -1, -1, false);
    press(Qt::Key_F1);
    auto* list = menu->findChild<QListWidget*>();
    EXPECT_GE(list->mapTo(screen(), QPoint()).y(), 0);
    for (int i = 0; i < 31; ++i)
        press(Qt::Key_Down);
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualItemRect(list->currentItem())));
}

TEST_F(Menu, GivesNumbersAndFindsItemsByThem)
{
    EXPECT_EQ(check, 77);
    EXPECT_NE(save, off);
    const int first =
        menu->insertItem("First", nullptr, nullptr, nullptr, true, false, false, -1, 0, false);
    EXPECT_EQ(menu->text(first), "First");
    EXPECT_EQ(menu->text(save), "Save");
    EXPECT_EQ(menu->text(12345), "");
    menu->removeItem(save);
    menu->removeItem(12345);
    menu->setItemEnabled(12345, true);
    menu->setItemChecked(12345, true);
    EXPECT_EQ(menu->count(), 3);
    EXPECT_FALSE(menu->isItemEnabled(save));
}

TEST_F(Menu, MayGoWithItsPageInTheItemsSlot)
{
    receiver.inside = [this] { page.reset(); };
    press(Qt::Key_F1);
    press(Qt::Key_Return);
    EXPECT_EQ(receiver.calls, 1);
    EXPECT_EQ(activeLayer(), nullptr);
}

TEST_F(Menu, OffersNothingToSelectWithoutItems)
{
    for (const int id : {save, off, check})
        menu->removeItem(id);
    press(Qt::Key_F1);
    EXPECT_FALSE(menu->getSoftKey()->isButtonVisible(YSoftKey::Left));
    press(Qt::Key_Return);
    EXPECT_EQ(activeLayer(), menu);
    press(Qt::Key_F2);
    EXPECT_EQ(activeLayer(), page.get());
}

} // namespace

#include "page_test.moc"
