// A QApplication with a look of its own: the phone's look goes to the screen and to the toolkit's
// widgets, and nowhere else.
#include <memory>

#include <gtest/gtest.h>

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <ipaddressedit.h>
#include <profileedit.h>
#include <toolkit/look/ytheme.h>
#include <toolkit/yscreen.h>
#include <yformcontainer.h>
#include <ykbmainwidget.h>
#include <ylistbox.h>
#include <ypopup.h>
#include <ysoftkey.h>

namespace {

QPalette darkColours()
{
    QPalette colours(QColor(0x30, 0x30, 0x30), QColor(0x18, 0x18, 0x18));
    colours.setColor(QPalette::Base, Qt::black);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, Qt::white);
    return colours;
}

class PlainApplication : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QApplication::setStyle(QStyleFactory::create("Windows"));
        QApplication::setPalette(darkColours());
        QApplication::setFont(QFont("DejaVu Serif", 17));
        own = std::make_unique<QWidget>();
        auto* layout = new QFormLayout(own.get());
        layout->addRow("Own:", new QLineEdit("text"));
        layout->addRow(new QPushButton("A button"));
        // Which window has the focus makes no difference to the pictures.
        for (QWidget* widget : own->findChildren<QWidget*>())
            widget->setFocusPolicy(Qt::NoFocus);
        own->resize(300, 200);
        own->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(own.get()));
        before = own->grab().toImage();
    }

    ~PlainApplication() override { YTheme::use(YTheme::Scheme::Light); }

    // A page with a form, a list in a popup above it.
    static void useTheToolkit()
    {
        YKbMainWidget page(nullptr, nullptr, 0);
        auto* form = new YFormContainer(&page, nullptr, 23);
        form->addChild(new ProfileEdit(form->viewport()), true, nullptr);
        page.setContentWidget(form);
        page.show();
        YPopup popup(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        YListBox list(&popup, nullptr, 0);
        popup.show();
        QCoreApplication::processEvents();
    }

    static QImage picture(QWidget& widget)
    {
        QCoreApplication::processEvents();
        return widget.grab().toImage();
    }

    std::unique_ptr<QWidget> own;
    QImage before;
};

TEST_F(PlainApplication, KeepsItsStyleColoursAndLetters)
{
    const QStyle* style = QApplication::style();
    const QPalette colours = QApplication::palette();
    useTheToolkit();
    EXPECT_EQ(style, QApplication::style());
    EXPECT_EQ(colours, QApplication::palette());
    EXPECT_EQ(QFont("DejaVu Serif", 17), QApplication::font());
    EXPECT_EQ(style, own->findChild<QLineEdit*>()->style());
    EXPECT_EQ(before, picture(*own));
}

TEST_F(PlainApplication, KeepsThemWhenTheThemeOfThePhoneChanges)
{
    useTheToolkit();
    YTheme::use(YTheme::Scheme::Dark);
    EXPECT_EQ(before, picture(*own));
}

TEST_F(PlainApplication, HasThePhonesLookOnTheScreen)
{
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* edit = new QLineEdit(&page);
    edit->setGeometry(10, 40, 100, 30);
    page.setSoftKey(new YSoftKey("CST_2A", &page, &page));
    page.show();
    QCoreApplication::processEvents();
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        EXPECT_STREQ(widget->style()->metaObject()->className(), "YStyle")
            << widget->metaObject()->className();
        EXPECT_EQ(YTheme::current().text, widget->palette().color(QPalette::Text));
        EXPECT_EQ(YTheme::current().bodyFont().pixelSize(), widget->font().pixelSize());
    }
    EXPECT_EQ(YTheme::current().background, picture(*YScreen::instance()).pixelColor(120, 200));
}

TEST_F(PlainApplication, KeepsAStyleThatItGaveToAWidgetOnTheScreen)
{
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* edit = new QLineEdit(&page);
    edit->setStyle(QApplication::style());
    page.setContentWidget(edit);
    page.show();
    EXPECT_EQ(QApplication::style(), edit->style());
}

TEST_F(PlainApplication, ChangesTheThemeOfWhatIsShown)
{
    YKbMainWidget page(nullptr, nullptr, 0);
    page.show();
    auto* address = new IPAddressEdit(own.get());
    address->show();
    const QImage light = picture(*address);
    YTheme::use(YTheme::Scheme::Dark);
    EXPECT_LT(picture(page).pixelColor(120, 200).lightness(), 60);
    EXPECT_LT(picture(*address).pixelColor(0, 0).lightness(), 60);
    EXPECT_NE(light, picture(*address));
}

// The widgets that the library offers to applications, among those of the application.
template <class Field> class OfferedField : public PlainApplication
{};

using Fields = ::testing::Types<IPAddressEdit, ProfileEdit>;
TYPED_TEST_SUITE(OfferedField, Fields);

template <class Field> Field* placedIn(QWidget* window)
{
    auto* field = new Field(window);
    field->setLabel("Name server:");
    field->setGeometry(20, 100, 220, field->heightForWidth(220));
    window->show();
    field->show();
    return field;
}

TYPED_TEST(OfferedField, LooksTheSameInADarkWindowAndOnThePhone)
{
    auto* among = placedIn<TypeParam>(this->own.get());
    YKbMainWidget page(nullptr, nullptr, 0);
    auto* onPhone = placedIn<TypeParam>(&page);
    QCoreApplication::processEvents();
    if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
    const QImage one = this->picture(*among);
    EXPECT_EQ(YTheme::current().background, one.pixelColor(0, 0));
    EXPECT_EQ(this->picture(page).copy(onPhone->geometry()), one);
}

TYPED_TEST(OfferedField, TakesTheGroundOfThePageToWhichItIsMoved)
{
    auto* field = placedIn<TypeParam>(this->own.get());
    EXPECT_TRUE(field->autoFillBackground());
    YKbMainWidget page(nullptr, nullptr, 0);
    field->setParent(&page);
    EXPECT_FALSE(field->autoFillBackground());
}

// Made only when tests run: listing them must work where there is no display.
class ApplicationEnvironment : public ::testing::Environment
{
public:
    void SetUp() override
    {
        m_application = std::make_unique<QApplication>(m_argc, m_argv);
        m_application->setQuitOnLastWindowClosed(false);
    }

    void TearDown() override { m_application.reset(); }

private:
    char m_name[5] = "test";
    char* m_argv[2] = {m_name, nullptr};
    int m_argc = 1;
    std::unique_ptr<QApplication> m_application;
};

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);
    return RUN_ALL_TESTS();
}
