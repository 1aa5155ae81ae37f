// Opening and closing a thousand times leaves nothing: no widget, no descriptor, no memory.
#include <malloc.h>

#include <QCoreApplication>
#include <QDir>

#include <ycombobox.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ylineedit.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <yoptionsmenu.h>
#include <ypressbutton.h>
#include <ysegmentfield.h>
#include <ysingleselectdlg.h>
#include <yskinservice.h>

#include "common/gui_test.h"

namespace {

struct Opening
{
    const char* name;
    void (*open)(); // shows it, lets it be painted, and deletes it
};

std::ostream& operator<<(std::ostream& out, const Opening& row)
{
    return out << row.name;
}

void showOnce(QWidget& widget)
{
    widget.show();
    QCoreApplication::processEvents();
}

void openPopup()
{
    YPopup popup(0, nullptr, nullptr, true, YPopup::ProgressStyle, 0);
    showOnce(popup);
}

void openSelection()
{
    YSingleSelectDlg dialog("Title", "Instruction", nullptr, nullptr, true, 0, 0);
    for (const char* text : {"Home", "Work", "Away"}) {
        auto* item = new YListBoxItem(dialog.getListBox(), "%R%M240");
        item->appendSubItem(1, text, false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.getListBox()->checkItem(1, true);
    showOnce(dialog);
}

void openMessage()
{
    YMessageDlg message("Title", "Text", 2, 0, nullptr, nullptr, true, 0);
    showOnce(message);
}

void openNotice()
{
    YNoticeDlg notice(0, "Title", "Text", nullptr, nullptr, true, 0);
    showOnce(notice);
}

void openForm()
{
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* form = new YFormContainer(&page, nullptr, YSkinService::FormContainer);
    page.setContentWidget(form);
    for (int i = 0; i < 4; ++i) {
        auto* edit = new YLineEdit(form->viewport(), nullptr, YSkinService::FormLineEdit);
        edit->setLabel("Label:");
        form->addChild(edit, true, nullptr);
    }
    auto* field = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    field->setNumSegments(4);
    form->addChild(field, true, nullptr);
    form->addChild(new YPressButton(form->viewport(), nullptr, YSkinService::FormPressButton),
                   false, nullptr);
    showOnce(page);
}

void openChoice()
{
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* combo = new YComboBox(&page, nullptr, true);
    combo->insertItem("Off");
    page.setContentWidget(combo);
    showOnce(page);
    GuiTest::later([] { GuiTest::press(Qt::Key_Escape); });
    combo->click();
}

void openMenu()
{
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* menu =
        new YOptionsMenu(QRect(0, 0, 200, 286), &page, nullptr, 0, YSkinService::OptionsMenu);
    menu->insertItem("Save", nullptr, &page, SLOT(hide()), true, false, false, -1, -1, false);
    page.show();
    showOnce(*menu);
}

class OpeningAThousandTimes : public GuiTest, public ::testing::WithParamInterface<Opening>
{
protected:
    static long growth(int times);
};

std::size_t descriptors()
{
    return static_cast<std::size_t>(QDir("/proc/self/fd").count());
}

std::size_t heap()
{
    return mallinfo2().uordblks;
}

// What the heap has more after so many times.
long OpeningAThousandTimes::growth(int times)
{
    settle();
    const std::size_t before = heap();
    for (int i = 0; i < times; ++i)
        GetParam().open();
    settle();
    return static_cast<long>(heap()) - static_cast<long>(before);
}

TEST_P(OpeningAThousandTimes, LeavesNothing)
{
    // The screen's window stays open.
    YPopup below(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    below.show();
    // The first ones fill the caches of fonts and pictures.
    growth(200);
    const std::size_t open = descriptors();
    // The smallest block of memory takes 32 bytes; one forgotten each time is too much. A cache
    // that is filled late grows in one round only.
    constexpr long tolerated = 32000;
    const long first = growth(1000);
    if (first >= tolerated) {
        EXPECT_LT(growth(1000), tolerated) << "and " << first << " before";
    }
    EXPECT_EQ(descriptors(), open);
}

INSTANTIATE_TEST_SUITE_P(All, OpeningAThousandTimes,
                         ::testing::Values(Opening{"Popup", openPopup},
                                           Opening{"Selection", openSelection},
                                           Opening{"Message", openMessage},
                                           Opening{"Notice", openNotice}, Opening{"Form", openForm},
                                           Opening{"Choice", openChoice},
                                           Opening{"Menu", openMenu}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
