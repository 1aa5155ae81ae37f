// Popups, selections, messages and notices.
#include "scene.h"

#include <QPixmap>

#include <ylabel.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <ysingleselectdlg.h>
#include <ysoftkey.h>
#include <ystatedialog.h>

namespace {

constexpr bool modal = true;

void addRow(YSingleSelectDlg& dialog, const QString& text)
{
    auto* item = new YListBoxItem(dialog.getListBox(), "%R%M240");
    item->appendSubItem(1, text, false, nullptr);
    dialog.getListBox()->insertItem(item, -1, true);
}

YSingleSelectDlg& selection(Stage& stage, const QString& title, const QStringList& rows)
{
    auto& dialog = stage.make<YSingleSelectDlg>(title, QString(), nullptr, nullptr, modal, 0U, 0);
    dialog.getListBox()->setItemType("%R%M240");
    for (const QString& row : rows)
        addRow(dialog, row);
    return dialog;
}

QString selectConnection()
{
    return YSingleSelectDlg::tr("TXT_RID_HEADER_SELECT_CONNECTION", "Select Connection");
}

void connecting(Stage& stage)
{
    stage.make<YStateDialog>().show();
}

void connectingWithText(Stage& stage)
{
    auto& dialog = stage.make<YStateDialog>();
    dialog.setStateString(QString::fromUtf8("Connecting to Profile3…"));
    dialog.show();
}

void popupWithPicture(Stage& stage)
{
    auto& popup = stage.make<YPopup>(0, nullptr, nullptr, modal, YPopup::ProgressStyle, 0);
    QPixmap picture(50, 50);
    picture.fill(QColor(0x14, 0x5F, 0xC8));
    auto* icon = new YLabel(&popup, nullptr, 0, 86);
    icon->setGeometry(8, 11, 50, 50);
    icon->setPixmap(picture);
    auto* text = new YLabel(&popup, nullptr, 0, 86);
    text->setGeometry(72, 11, popup.width() - 80, 50);
    text->setText("With a picture of its own");
    popup.show();
}

void notFound(Stage& stage)
{
    auto& dialog = selection(
        stage, YSingleSelectDlg::tr("TXT_RID_HEADER_DATA_CONNECTION", "Data Connection"),
        {YSingleSelectDlg::tr("TXT_RID_LIST_A_CREATE_NEW_CONNECTION", "Create New Connection"),
         YSingleSelectDlg::tr("TXT_RID_LIST_A_CHOOSE_CONNECTION", "Choose Connection")});
    dialog.setInstructText(
        YSingleSelectDlg::tr("TXT_RID_INSTRUCTIONALTXT_INTERNET_CONNECTION_NOT_FOUND",
                             "Internet connection not found."));
    dialog.getListBox()->checkItem(0, true);
    dialog.show();
}

void selectionEmpty(Stage& stage)
{
    selection(stage, selectConnection(), {}).show();
}

void selectionShort(Stage& stage)
{
    auto& dialog = selection(stage, selectConnection(), {"Home", "Work", "Profile3"});
    dialog.getListBox()->checkItem(1, true);
    dialog.getListBox()->setCurrentItem(2);
    dialog.show();
}

void selectionLong(Stage& stage)
{
    QStringList rows = {"Profile1", "A profile name of sixty-three bytes is as long as they get",
                        QString::fromUtf8("中国移动互联网"), QString(63, 'W')};
    for (int i = 5; i < 60; ++i)
        rows << QString("Profile%1").arg(i);
    auto& dialog = selection(stage, selectConnection(), rows);
    dialog.getListBox()->checkItem(1, true);
    dialog.show();
}

void selectionTwoTexts(Stage& stage)
{
    auto& dialog = selection(stage, "Two texts in a row", {});
    const char* const rows[][2] = {{"Speed", "9600"},
                                   {"A first text that is long", "kept whole"},
                                   {"Kept whole", "a second text that is long"}};
    const YListBoxItem::ShowPriority priorities[] = {
        YListBoxItem::ShowEvenly, YListBoxItem::ShowSecond, YListBoxItem::ShowFirst};
    for (int i = 0; i < 3; ++i) {
        auto* item = new YListBoxItem(dialog.getListBox(), "%M240");
        item->appendSubItem(1, rows[i][0], rows[i][1], nullptr, 50, priorities[i]);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.show();
}

void selectionPictures(Stage& stage)
{
    auto& dialog = selection(stage, selectConnection(), {});
    const QColor colours[] = {QColor(0x1E, 0x8E, 0x4B), QColor(0xC6, 0x2B, 0x2B)};
    for (int i = 0; i < 4; ++i) {
        QPixmap picture(24, 24);
        picture.fill(colours[i % 2]);
        auto* item = new YListBoxItem(dialog.getListBox(), i < 2 ? "%R%M240" : "%M240");
        item->appendSubItem(1, i % 2 == 0 ? "A row" : "A strong row", i % 2 == 1, &picture);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.getListBox()->checkItem(1, true);
    dialog.show();
}

void message(Stage& stage)
{
    stage
        .make<YMessageDlg>(
            YMessageDlg::tr("TXT_RID_HEADER_MEMORY_FULL", "Memory Full"),
            YMessageDlg::tr("TXT_RID_INSTRUCTIONALTXT_THERE_IS_INSUFFICIENT_MEMORY_TO_CREATE_A_"
                            "NEW_CONNECTION_DELETE_SOME_FILES",
                            "There is insufficient memory to create a new connection. You may "
                            "delete some files in order to add a new one."),
            YMessageDlg::Information, 0, nullptr, nullptr, modal, 0U)
        .show();
}

void messageLong(Stage& stage)
{
    stage
        .make<YMessageDlg>("A long message",
                           QString("A message too long for the screen. ").repeated(40),
                           YMessageDlg::Confirmation, 0, nullptr, nullptr, modal, 0U)
        .show();
}

void question(Stage& stage)
{
    stage
        .make<YMessageDlg>("Delete Profile?", "Profile3 will be gone for good.",
                           YMessageDlg::Question, 0, nullptr, nullptr, modal, 0U)
        .show();
}

void noticeOfSuccess(Stage& stage)
{
    const QString text =
        YNoticeDlg::tr("FMT_RID_INSTRUCTIONALTXT_YOU_HAVE_SUCCESSFULLY_SAVED_THE_PROFILE_NAMED",
                       "You have successfully saved the profile named: %1.");
    stage
        .make<YNoticeDlg>(YNoticeDlg::Success, QString(), text.arg("Profile3"), nullptr, nullptr,
                          modal, 0U)
        .show();
}

void noticeOfFailure(Stage& stage)
{
    stage
        .make<YNoticeDlg>(YNoticeDlg::Failure, "Not saved", "Try again.", nullptr, nullptr, modal,
                          0U)
        .show();
}

void nested(Stage& stage)
{
    selectionLong(stage);
    question(stage);
    noticeOfFailure(stage);
}

} // namespace

std::vector<Scene> dialogScenes()
{
    return {{"connecting", connecting},
            {"connecting-text", connectingWithText},
            {"popup-picture", popupWithPicture},
            {"not-found", notFound},
            {"select-empty", selectionEmpty},
            {"select", selectionShort},
            {"select-long", selectionLong},
            {"select-two-texts", selectionTwoTexts},
            {"select-pictures", selectionPictures},
            {"message", message},
            {"message-long", messageLong},
            {"question", question},
            {"notice-success", noticeOfSuccess},
            {"notice-failure", noticeOfFailure},
            {"nested", nested}};
}
