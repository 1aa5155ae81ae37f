// Opening and closing a thousand times leaves nothing: no widget, no descriptor, no memory.
#include <malloc.h>

#include <QCoreApplication>
#include <QDir>

#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ysingleselectdlg.h>

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

class OpeningAThousandTimes : public GuiTest, public ::testing::WithParamInterface<Opening>
{};

std::size_t descriptors()
{
    return static_cast<std::size_t>(QDir("/proc/self/fd").count());
}

std::size_t heap()
{
    return mallinfo2().uordblks;
}

TEST_P(OpeningAThousandTimes, LeavesNothing)
{
    // The screen's window stays open.
    YPopup below(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
    below.show();
    // The first ones fill the caches of fonts and pictures.
    for (int i = 0; i < 200; ++i)
        GetParam().open();
    settle();
    const std::size_t before = heap();
    const std::size_t open = descriptors();
    for (int i = 0; i < 1000; ++i)
        GetParam().open();
    settle();
    EXPECT_EQ(descriptors(), open);
    // The smallest block of memory takes 32 bytes; one forgotten each time is too much.
    EXPECT_LT(heap(), before + 32000);
}

INSTANTIATE_TEST_SUITE_P(All, OpeningAThousandTimes,
                         ::testing::Values(Opening{"Popup", openPopup},
                                           Opening{"Selection", openSelection},
                                           Opening{"Message", openMessage},
                                           Opening{"Notice", openNotice}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
