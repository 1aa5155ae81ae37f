// Pages with forms, their rows in every state, and the options menu.
#include "scene.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QPushButton>

#include <toolkit/input/ykeypad.h>
#include <yappinfoarea.h>
#include <yapplication.h>
#include <ycombobox.h>
#include <yformcontainer.h>
#include <yglobal.h>
#include <yinputfield.h>
#include <ykbmainwidget.h>
#include <ylabel.h>
#include <ylineedit.h>
#include <ymessagedlg.h>
#include <yoptionsmenu.h>
#include <ypressbutton.h>
#include <ysegmentfield.h>
#include <yseparator.h>
#include <ysingleselectdlg.h>
#include <yskinservice.h>
#include <ysoftkey.h>

namespace {

QString tr(const char* id, const char* text)
{
    return YFormContainer::tr(id, text);
}

// A page with a form, soft keys and an options menu.
class FormPage : public YKbMainWidget
{
public:
    FormPage() : YKbMainWidget(nullptr, nullptr, 0)
    {
        setMainWidgetTitle(tr("TXT_RID_HEADER_CONNECTION_SETUP", "Connection Setup"));
        form = new YFormContainer(this, nullptr, YSkinService::FormContainer);
        setContentWidget(form);
        info = new YAppInfoArea(this, "T", nullptr, YSkinService::AppInfoArea);
        setTitleBarWidget(info);
        QRect room = YGlobal::getHomeR(false);
        room.setSize(QSize(200, room.height() - YGlobal::getCstR().height()));
        menu = new YOptionsMenu(room, this, nullptr, 0, YSkinService::OptionsMenu);
        menu->insertItem(tr("TXT_RID_OPTION_CANCEL_PROFILE", "Cancel Profile"), nullptr, nullptr,
                         nullptr, true, false, false, -1, -1, false);
        auto* keys = new YSoftKey("CST_2A", this, this);
        keys->setText(YSoftKey::Left, tr("TXT_RID_SOFTKEY_OPTIONS", "Options"), 0);
        keys->setText(YSoftKey::Right, tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"), 0);
        keys->setOptionsMenu(YSoftKey::Left, menu);
        setSoftKey(keys);
    }

    YLineEdit* addEdit(const QString& label, const QString& text = QString())
    {
        auto* edit = new YLineEdit(form->viewport(), nullptr, YSkinService::FormLineEdit);
        edit->setLabel(label);
        edit->setText(text);
        form->addChild(edit, true, nullptr);
        return edit;
    }

    YLineEdit* addPassword(const QString& text)
    {
        YLineEdit* edit = addEdit(tr("TXT_RID_LABEL_FORMITEM_PASSWORD_COLON", "Password:"), text);
        edit->setEchoMode(QLineEdit::Password);
        edit->getInputField()->setInputMode(YInputField::PasswordInput);
        return edit;
    }

    YComboBox* addCombo(const QString& label, const QStringList& items)
    {
        auto* combo = new YComboBox(form->viewport(), nullptr, true);
        combo->setTitle(label);
        combo->setDlgTitle(label, YComboBox::MarkedDlg);
        for (const QString& item : items)
            combo->insertItem(item);
        form->addChild(combo, false, nullptr);
        return combo;
    }

    YComboBox* addPreference()
    {
        return addCombo(tr("TXT_RID_LABEL_FORMITEM_CONNECTION_PREFERENCE_COLON_ASTERISK",
                           "Connection Preference:*"),
                        {tr("TXT_RID_COMBOBOX_WIFI_THEN_CELLULAR", "WiFi, then Cellular"),
                         tr("TXT_RID_COMBOBOX_WIFI_ONLY", "WiFi Only"),
                         tr("TXT_RID_COMBOBOX_CELLULAR_ONLY", "Cellular Only")});
    }

    YSeparator* addSeparator()
    {
        auto* line = new YSeparator(form->viewport(), nullptr, 0, YSkinService::Separator);
        auto* label = new YLabel(line, nullptr, 0, YSkinService::PlainLabel);
        label->setText(tr("TXT_RID_SEPARATOR_CELLULAR_CONNECTION_SETTINGS_COLON",
                          "Cellular Connection Settings:"));
        line->setAutoResize(true);
        line->setLabel(label);
        form->addChild(line, true, nullptr);
        return line;
    }

    YPressButton* addButton(const QString& text)
    {
        auto* button = new YPressButton(form->viewport(), nullptr, YSkinService::FormPressButton);
        button->setText(text);
        form->addChild(button, false, nullptr);
        return button;
    }

    void showAt(QWidget* row)
    {
        show();
        row->setFocus();
    }

    YFormContainer* form;
    YAppInfoArea* info;
    YOptionsMenu* menu;
};

void key(QWidget* row, Qt::Key pressed)
{
    QKeyEvent event(QEvent::KeyPress, pressed, Qt::NoModifier);
    QCoreApplication::sendEvent(row, &event);
}

// The first page of a profile, as its user sees it.
FormPage& profilePage(Stage& stage)
{
    auto& page = stage.make<FormPage>();
    page.addEdit(tr("TXT_RID_LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK", "Profile Name:*"),
                 "Profile3");
    page.addPreference();
    page.addSeparator();
    page.addEdit(tr("TXT_RID_LABEL_FORMITEM_PROXY_1_COLON", "Proxy 1:"));
    page.addEdit(tr("TXT_RID_LABEL_FORMITEM_PORT_1_COLON", "Port 1:"), "8080");
    page.addEdit(tr("TXT_RID_LABEL_FORMITEM_DOMAIN_1_COLON", "Domain 1:"));
    page.addEdit(tr("TXT_RID_LABEL_FORMITEM_GPRS_APN_COLON", "GPRS APN:"), "internet.example");
    page.addEdit(tr("TXT_RID_LABEL_FORMITEM_USER_NAME_COLON", "User Name:"), "user");
    page.addPassword("secret");
    page.addCombo(
        tr("TXT_RID_LABEL_FORMITEM_QUALITY_OF_SERVICE_POLICY_COLON", "Quality of service Policy:"),
        {tr("TXT_RID_COMBOBOX_DATA", "Data"), tr("TXT_RID_COMBOBOX_VOICE", "Voice")});
    page.addButton(tr("TXT_RID_BUTTON_ADDITIONAL_SETTINGS", "Additional settings:"));
    return page;
}

void profileTop(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.showAt(page.form->getFirstChild());
}

void profileMiddle(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.show();
    QWidget* row = page.form->getFirstChild();
    for (int i = 0; i < 4; ++i)
        row = page.form->getNextChild(row);
    page.form->setContentsPos(0, page.form->childY(row));
    row->setFocus();
}

void profileEnd(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.showAt(page.form->getFirstChild());
    key(page.form->getFirstChild(), Qt::Key_Up);
}

void profileOff(Stage& stage)
{
    FormPage& page = profilePage(stage);
    QWidget* focused = nullptr;
    for (QWidget* row = page.form->getFirstChild(); row; row = page.form->getNextChild(row)) {
        if (row == page.form->getFirstChild() || page.form->childY(row) < 60)
            continue;
        if (auto* edit = qobject_cast<YLineEdit*>(row)) {
            edit->setEnabled(false);
            edit->setReadOnly(true);
            focused = focused ? focused : edit;
        } else if (auto* button = qobject_cast<YButton*>(row)) {
            button->setEnabled(qobject_cast<YComboBox*>(row) == page.form->getFirstChild());
        } else if (auto* line = qobject_cast<YSeparator*>(row)) {
            line->setEnabled(false);
        }
    }
    page.showAt(focused);
}

void profileOffEnd(Stage& stage)
{
    profileOff(stage);
    auto* form = QApplication::focusWidget()->parentWidget();
    key(form, Qt::Key_Up);
    key(form, Qt::Key_Up);
    key(form, Qt::Key_Up);
}

void edits(Stage& stage)
{
    auto& page = stage.make<FormPage>();
    page.setMainWidgetTitle("Texts");
    page.addEdit("Empty:");
    YLineEdit* focused =
        page.addEdit("Longer than its field:", "http://wap.internet.example/a/path/that/is/long");
    page.addEdit("To be read only:", "192.168.0.1")->setReadOnly(true);
    YLineEdit* off = page.addEdit("Switched off:", "internet.example");
    off->setEnabled(false);
    page.addEdit("", "Without a label");
    page.showAt(focused);
}

// What Return on a choice opens; the row's own dialog would wait for its user.
void choiceDialog(Stage& stage, int type)
{
    auto& page = stage.make<FormPage>();
    YComboBox* combo = page.addCombo("GPRS Timeout:", {"Off", "15 min", "1 hour", "2 hour"});
    combo->setDlgTitle("GPRS Timeout:", type);
    combo->setCurrentItem(1);
    page.show();
    auto& dialog =
        stage.make<YSingleSelectDlg>(combo->dlgTitle(), QString(), nullptr, nullptr, true, 0U, 0);
    dialog.getListBox()->setItemType(type == YComboBox::PlainDlg ? "%M" : "%R%M");
    for (int i = 0; i < combo->count(); ++i) {
        auto* item = new YListBoxItem(dialog.getListBox(), QString());
        item->appendSubItem(1, combo->text(i), false, nullptr);
        dialog.getListBox()->insertItem(item, -1, false);
    }
    dialog.getListBox()->checkItem(combo->currentItem(), true);
    dialog.show();
}

void choiceMarked(Stage& stage)
{
    choiceDialog(stage, YComboBox::MarkedDlg);
}

void choicePlain(Stage& stage)
{
    choiceDialog(stage, YComboBox::PlainDlg);
}

void messageOverPage(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.showAt(page.form->getFirstChild());
    stage
        .make<YMessageDlg>(tr("TXT_RID_HEADER_MISSING_REQUIRED_FIELD", "Missing Required Field(s)"),
                           tr("TXT_RID_INSTRUCTIONALTXT_ENTER_A_GPRS_APN_OR_CSD_NUMBER",
                              "Please enter  a GPRS APN or CSD number."),
                           YMessageDlg::Information, 0, nullptr, nullptr, true, 0U)
        .show();
}

// A finger is on the right soft key.
void softKeyPressed(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.showAt(page.form->getFirstChild());
    page.softKey()->findChildren<QPushButton*>()[YSoftKey::Right]->setDown(true);
}

void passwords(Stage& stage)
{
    auto& page = stage.make<FormPage>();
    page.setMainWidgetTitle("Passwords");
    page.addPassword("");
    page.addPassword("not in use");
    YLineEdit* edit = page.addPassword("secret");
    page.addPassword("switched off")->setEnabled(false);
    page.showAt(edit);
    for (const Qt::Key pressed : {Qt::Key_End, Qt::Key_Right})
        key(edit, pressed);
}

void passwordShown(Stage& stage)
{
    passwords(stage);
    key(QApplication::focusWidget(), Qt::Key_Return);
}

void keypad(Stage& stage)
{
    YKeypad::setPresent(true);
    auto& page = stage.make<FormPage>();
    page.setMainWidgetTitle("Keypad");
    YLineEdit* edit = page.addEdit("A label that is too long for one line of a narrow screen:");
    page.showAt(edit);
    for (int i = 0; i < 2; ++i) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_2, Qt::KeypadModifier, "2");
        QCoreApplication::sendEvent(edit, &event);
    }
}

void addresses(Stage& stage)
{
    YKeypad::setPresent(false);
    auto& page = stage.make<FormPage>();
    page.setMainWidgetTitle("Addresses");
    YSegmentField* focused = nullptr;
    for (const char* label : {"", "Address:", "Switched off:"}) {
        auto* field =
            new YSegmentField(page.form->viewport(), nullptr, 0, YSkinService::SegmentField);
        field->setNumSegments(4);
        field->setLabel(label);
        for (int i = 0; i < 4; ++i) {
            field->getField(i)->setMaxLength(3);
            field->getField(i)->setAlignment(36);
            field->getField(i)->setText(QString::number(192 + i));
        }
        page.form->addChild(field, true, nullptr);
        focused = focused ? focused : field;
    }
    static_cast<YSegmentField*>(page.form->getNextChild(page.form->getNextChild(focused)))
        ->setEnabled(false);
    page.showAt(focused);
}

void buttons(Stage& stage)
{
    auto& page = stage.make<FormPage>();
    page.setMainWidgetTitle("A title that is longer than the bar");
    page.addButton("Usual");
    YPressButton* focused = page.addButton("With the focus");
    page.addButton("Pressed")->setDown(true);
    page.addButton("Switched off")->setEnabled(false);
    page.addButton("A text that is too long for one line of a narrow screen");
    page.showAt(focused);
}

void combos(Stage& stage)
{
    auto& page = stage.make<FormPage>();
    page.info->appendText(1, "2/3", QString());
    page.setMainWidgetTitle("Choices");
    page.addCombo("Empty:", {});
    YComboBox* focused = page.addPreference();
    page.addPreference()->setEnabled(false);
    page.addCombo("Two lines:", {"An item that is too long for one line of a narrow screen"});
    page.showAt(focused);
}

void options(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.show();
    page.menu->show();
}

void optionsLong(Stage& stage)
{
    FormPage& page = profilePage(stage);
    page.menu->insertItem("Switched off", nullptr, nullptr, nullptr, false, false, false, -1, 0,
                          false);
    QPixmap picture(20, 20);
    picture.fill(QColor(0x1E, 0x8E, 0x4B));
    page.menu->insertItem("With a picture", &picture, nullptr, nullptr, true, false, false, -1, -1,
                          false);
    page.menu->insertItem("Checked", nullptr, nullptr, nullptr, true, true, true, -1, -1, false);
    page.menu->insertItem("Not checked", nullptr, nullptr, nullptr, true, true, false, -1, -1,
                          false);
    page.menu->insertItem("A text that is too long for one line of the menu", nullptr, nullptr,
                          nullptr, true, false, false, -1, -1, false);
    page.show();
    page.menu->show();
}

} // namespace

std::vector<Scene> formScenes()
{
    return {{"form", profileTop},
            {"form-middle", profileMiddle},
            {"form-end", profileEnd},
            {"form-off", profileOff},
            {"form-off-end", profileOffEnd},
            {"edits", edits},
            {"choice-dialog", choiceMarked},
            {"choice-plain", choicePlain},
            {"message-over-page", messageOverPage},
            {"softkey-pressed", softKeyPressed},
            {"password", passwords},
            {"password-shown", passwordShown},
            {"keypad", keypad},
            {"segments", addresses},
            {"buttons", buttons},
            {"choices", combos},
            {"options", options},
            {"options-long", optionsLong}};
}
