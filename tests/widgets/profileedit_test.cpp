#include "profileedit.h"

#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ypopup.h>
#include <yskinservice.h>

#include "common/gui_test.h"

namespace {

// The field in a popup, with another field that can take the focus.
class NameField : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        popup->setGeometry(screen()->rect());
        other = new YLineEdit(popup.get(), nullptr, YSkinService::FormLineEdit);
        field = new ProfileEdit(popup.get(), "profile");
        other->setGeometry(0, 0, 240, 40);
        field->setGeometry(0, 50, 240, 40);
        popup->show();
        other->setFocus();
        ASSERT_TRUE(waitFor([this] { return other->hasFocus(); }));
    }

    void TearDown() override
    {
        popup.reset();
        GuiTest::TearDown();
    }

    void enter() { field->setFocus(); }
    void leave() { other->setFocus(); }
    std::string text() const { return field->text().toStdString(); }

    std::unique_ptr<YPopup> popup;
    YLineEdit* other = nullptr;
    ProfileEdit* field = nullptr;
};

TEST_F(NameField, IsALineEditOfItsOwnClass)
{
    EXPECT_STREQ(field->metaObject()->className(), "ProfileEdit");
    EXPECT_STREQ(field->metaObject()->superClass()->className(), "YLineEdit");
    EXPECT_EQ(field->metaObject()->methodCount(), field->metaObject()->superClass()->methodCount());
    EXPECT_EQ(field->objectName(), "profile");
    EXPECT_EQ(text(), "");
}

TEST_F(NameField, KeepsItsTextWhenTheDefaultNameIsSet)
{
    field->setText("Home");
    field->setDefaultProfileName("Profile3");
    EXPECT_EQ(text(), "Home");
}

TEST_F(NameField, EmptiesTheDefaultNameOnEnteringAndBringsItBackOnLeaving)
{
    field->setDefaultProfileName("Profile3");
    field->setText("Profile3");
    enter();
    EXPECT_EQ(text(), "");
    leave();
    EXPECT_EQ(text(), "Profile3");
}

TEST_F(NameField, TakesATypedNameInThePlaceOfTheDefault)
{
    field->setDefaultProfileName("Profile3");
    field->setText("Profile3");
    tap(field);
    type("Work");
    leave();
    EXPECT_EQ(text(), "Work");
    enter();
    EXPECT_EQ(text(), "Work");
}

TEST_F(NameField, EmptiesATypedTextThatEqualsTheDefaultName)
{
    field->setDefaultProfileName("Home");
    enter();
    type("Home");
    leave();
    EXPECT_EQ(text(), "Home");
    enter();
    EXPECT_EQ(text(), "");
}

TEST_F(NameField, ComparesTheDefaultNameExactly)
{
    field->setDefaultProfileName("Home");
    for (const char* name : {"home", "Home ", "Hom"}) {
        field->setText(name);
        enter();
        EXPECT_EQ(text(), name);
        leave();
        EXPECT_EQ(text(), name);
    }
}

TEST_F(NameField, KeepsABlankOnLeaving)
{
    field->setDefaultProfileName("Home");
    enter();
    type(" ");
    leave();
    EXPECT_EQ(text(), " ");
}

TEST_F(NameField, StaysEmptyWithoutADefaultName)
{
    enter();
    leave();
    EXPECT_EQ(text(), "");
    enter();
    type("x");
    press(Qt::Key_Backspace);
    leave();
    EXPECT_EQ(text(), "");
}

TEST_F(NameField, TakesTheDefaultNameThatWasSetLast)
{
    field->setDefaultProfileName("Home");
    enter();
    field->setDefaultProfileName("Work");
    leave();
    EXPECT_EQ(text(), "Work");
}

TEST_F(NameField, CanBeEnteredAndLeftByKeysInAForm)
{
    YKbMainWidget page(nullptr, nullptr, 0);
    YFormContainer form(&page, nullptr, YSkinService::FormContainer);
    auto* above = new YLineEdit(form.viewport(), nullptr, YSkinService::FormLineEdit);
    auto* name = new ProfileEdit(form.viewport());
    form.addChild(above, true, nullptr);
    form.addChild(name, true, nullptr);
    name->setDefaultProfileName("Home");
    name->setText("Home");
    page.setContentWidget(&form);
    popup->hide();
    page.show();
    above->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(name->text(), "");
    press(Qt::Key_Up);
    EXPECT_EQ(name->text(), "Home");
    press(Qt::Key_Down);
    type("Work");
    press(Qt::Key_Up);
    EXPECT_EQ(name->text(), "Work");
}

TEST_F(NameField, CanBeEnteredAndLeftByTapping)
{
    field->setDefaultProfileName("Home");
    field->setText("Home");
    tap(field);
    EXPECT_EQ(text(), "");
    tap(other);
    EXPECT_EQ(text(), "Home");
}

} // namespace
