// The library's numbers and the names that the host's toolkit has for them.
#include "support/toolkitnumbers.h"

#include <gtest/gtest.h>

#include <yapplication.h>
#include <ycombobox.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ypopup.h>
#include <yskinservice.h>
#include <ysoftkey.h>

namespace {

struct Row
{
    const char* name;
    int ours;
    int theirs;
};

const Row rows[] = {
    {"AppInfoArea", toolkit::AppInfoArea, YSkinService::AppInfoArea},
    {"FormContainer", toolkit::FormContainer, YSkinService::FormContainer},
    {"FormLineEdit", toolkit::FormLineEdit, YSkinService::FormLineEdit},
    {"OptionsMenu", toolkit::OptionsMenu, YSkinService::OptionsMenu},
    {"FormPressButton", toolkit::FormPressButton, YSkinService::FormPressButton},
    {"SegmentField", toolkit::SegmentField, YSkinService::SegmentField},
    {"Separator", toolkit::Separator, YSkinService::Separator},
    {"PlainLabel", toolkit::PlainLabel, YSkinService::PlainLabel},
    {"DialNumberInput", toolkit::DialNumberInput, YInputField::DialNumberInput},
    {"NumericInput", toolkit::NumericInput, YInputField::NumericInput},
    {"PasswordInput", toolkit::PasswordInput, YInputField::PasswordInput},
    {"LeftKey", toolkit::LeftKey, YSoftKey::Left},
    {"RightKey", toolkit::RightKey, YSoftKey::Right},
    {"UsualType", toolkit::UsualType, YPopup::UsualType},
    {"ProgressStyle", toolkit::ProgressStyle, YPopup::ProgressStyle},
    {"Accepted", toolkit::Accepted, YPopup::Accepted},
    {"FormMorph", toolkit::FormMorph, YKbMainWidget::FormMorph},
    {"MarkedDialog", toolkit::MarkedDialog, YComboBox::MarkedDlg},
    {"PlainDialog", toolkit::PlainDialog, YComboBox::PlainDlg},
    {"Information", toolkit::Information, YMessageDlg::Information},
    {"Success", toolkit::Success, YNoticeDlg::Success},
};

TEST(ToolkitNumbers, AreThoseOfTheToolkit)
{
    for (const Row& row : rows)
        EXPECT_EQ(row.theirs, row.ours) << row.name;
}

} // namespace
