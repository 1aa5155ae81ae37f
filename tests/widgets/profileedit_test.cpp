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
        m_popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        m_popup->setGeometry(screen()->rect());
        m_other = new YLineEdit(m_popup.get(), nullptr, YSkinService::FormLineEdit);
        m_field = new ProfileEdit(m_popup.get(), "profile");
        m_other->setGeometry(0, 0, 240, 40);
        m_field->setGeometry(0, 50, 240, 40);
        m_popup->show();
        m_other->setFocus();
        ASSERT_TRUE(waitFor([this] { return m_other->hasFocus(); }));
    }

    void TearDown() override
    {
        m_popup.reset();
        GuiTest::TearDown();
    }

    void enter() { m_field->setFocus(); }
    void leave() { m_other->setFocus(); }
    std::string text() const { return m_field->text().toStdString(); }

    std::unique_ptr<YPopup> m_popup;
    YLineEdit* m_other = nullptr;
    ProfileEdit* m_field = nullptr;
};

TEST_F(NameField, IsALineEditOfItsOwnClass)
{
    EXPECT_STREQ(m_field->metaObject()->className(), "ProfileEdit");
    EXPECT_STREQ(m_field->metaObject()->superClass()->className(), "YLineEdit");
    EXPECT_EQ(m_field->metaObject()->methodCount(),
              m_field->metaObject()->superClass()->methodCount());
    EXPECT_EQ(m_field->objectName(), "profile");
    EXPECT_EQ(text(), "");
}

TEST_F(NameField, KeepsItsTextWhenTheDefaultNameIsSet)
{
    m_field->setText("Home");
    m_field->setDefaultProfileName("Profile3");
    EXPECT_EQ(text(), "Home");
}

TEST_F(NameField, EmptiesTheDefaultNameOnEnteringAndBringsItBackOnLeaving)
{
    m_field->setDefaultProfileName("Profile3");
    m_field->setText("Profile3");
    enter();
    EXPECT_EQ(text(), "");
    leave();
    EXPECT_EQ(text(), "Profile3");
}

TEST_F(NameField, TakesATypedNameInThePlaceOfTheDefault)
{
    m_field->setDefaultProfileName("Profile3");
    m_field->setText("Profile3");
    tap(m_field);
    type("Work");
    leave();
    EXPECT_EQ(text(), "Work");
    enter();
    EXPECT_EQ(text(), "Work");
}

TEST_F(NameField, EmptiesATypedTextThatEqualsTheDefaultName)
{
    m_field->setDefaultProfileName("Home");
    enter();
    type("Home");
    leave();
    EXPECT_EQ(text(), "Home");
    enter();
    EXPECT_EQ(text(), "");
}

TEST_F(NameField, ComparesTheDefaultNameExactly)
{
    m_field->setDefaultProfileName("Home");
    for (const char* name : {"home", "Home ", "Hom"}) {
        m_field->setText(name);
        enter();
        EXPECT_EQ(text(), name);
        leave();
        EXPECT_EQ(text(), name);
    }
}

TEST_F(NameField, KeepsABlankOnLeaving)
{
    m_field->setDefaultProfileName("Home");
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
    m_field->setDefaultProfileName("Home");
    enter();
    m_field->setDefaultProfileName("Work");
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
    m_popup->hide();
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
    m_field->setDefaultProfileName("Home");
    m_field->setText("Home");
    tap(m_field);
    EXPECT_EQ(text(), "");
    tap(m_other);
    EXPECT_EQ(text(), "Home");
}

} // namespace
