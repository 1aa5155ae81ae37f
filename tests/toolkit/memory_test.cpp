// Memory that runs out in the toolkit while one of its widgets is made, at each allocation in turn:
// an exception as of any other constructor, and nothing left of the widget. That its private part
// goes, too, is what LeakSanitizer sees at the end.
#include <memory>
#include <new>

#include <QApplication>
#include <QRect>

#include <yappinfoarea.h>
#include <ybutton.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <ylistbox.h>
#include <ylistboxitem.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <yoptionsmenu.h>
#include <ypressbutton.h>
#include <yscrollpanel.h>
#include <ysegmentfield.h>
#include <yseparator.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>

#include "common/failing_memory.h"
#include "common/gui_test.h"

namespace {

using failingmemory::Of;
using Made = std::shared_ptr<void>; // deletes as what it was made as

struct Kind
{
    const char* name;
    Made (*make)();
};

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

template <class Widget> Made plain()
{
    return std::make_unique<Widget>(nullptr, "x", 0);
}

template <class Widget> Made withClass()
{
    return std::make_unique<Widget>(nullptr, "x", 0, 0);
}

const Kind kinds[] = {
    {"AppInfoArea", []() -> Made { return std::make_unique<YAppInfoArea>(nullptr, "", "x", 0); }},
    {"Button", plain<YButton>},
    {"ComboBox", plain<YComboBox>},
    {"FormContainer", plain<YFormContainer>},
    {"InputField", []() -> Made { return std::make_unique<YInputField>(nullptr); }},
    {"KbMainWidget", plain<YKbMainWidget>},
    {"Label", withClass<YLabel>},
    {"LineEdit", plain<YLineEdit>},
    {"ListBox", plain<YListBox>},
    {"ListBoxItem", []() -> Made { return std::make_unique<YListBoxItem>(nullptr, "%R"); }},
    {"MessageDlg",
     []() -> Made { return std::make_unique<YMessageDlg>("a", "b", 0, 0, nullptr, "x", true, 0); }},
    {"NoticeDlg",
     []() -> Made { return std::make_unique<YNoticeDlg>(0, "a", "b", nullptr, "x", true, 0); }},
    {"OptionsMenu",
     []() -> Made { return std::make_unique<YOptionsMenu>(QRect(), nullptr, "x", 0, 0); }},
    {"Popup", []() -> Made { return std::make_unique<YPopup>(0, nullptr, "x", true, 0, 0); }},
    {"PressButton", plain<YPressButton>},
    {"ScrollPanel", plain<YScrollPanel>},
    {"SegmentField", withClass<YSegmentField>},
    {"Separator", withClass<YSeparator>},
    {"SingleSelectDlg",
     []() -> Made { return std::make_unique<YSingleSelectDlg>(nullptr, "x", true, 0); }},
    {"SoftKey", []() -> Made { return std::make_unique<YSoftKey>("CST_2A", nullptr, nullptr); }},
};

class ToolkitMemory : public GuiTest, public testing::WithParamInterface<Kind>
{};

TEST_P(ToolkitMemory, ThatRunsOutLeavesNothingOfAWidget)
{
    GetParam().make(); // so that what the toolkit keeps is there
    settle();
    const qsizetype before = QApplication::allWidgets().size();
    const int allocations = failingmemory::forEachAllocation([before](int number) {
        failingmemory::failAt(number, Of::Toolkit);
        bool hasFailed = false;
        bool isMade = true;
        try {
            const Made widget = GetParam().make();
            hasFailed = failingmemory::stop();
        } catch (const std::bad_alloc&) {
            hasFailed = failingmemory::stop();
            isMade = false;
        }
        EXPECT_TRUE(isMade || hasFailed) << number;
        settle();
        EXPECT_EQ(QApplication::allWidgets().size(), before) << number;
        return hasFailed;
    });
    EXPECT_GE(allocations, 1);
}

INSTANTIATE_TEST_SUITE_P(Widgets, ToolkitMemory, testing::ValuesIn(kinds),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
