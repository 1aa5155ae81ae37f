// What the widgets look like, compared with pictures that somebody has looked at. A picture is
// compared in small squares by their mean colours, so that letters may be drawn a little otherwise.
#include <cmath>
#include <memory>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>

#include <toolkit/look/yicon.h>
#include <toolkit/look/ytheme.h>
#include <toolkit/ylook.h>
#include <ylabel.h>
#include <ymessagedlg.h>
#include <ynoticedlg.h>
#include <yoptionsmenu.h>
#include <ysegmentfield.h>
#include <ysingleselectdlg.h>

#include "toolkit/form_page.h"

namespace {

constexpr int square = 16;            // pixels
constexpr double mostDifference = 40; // of the mean of one square, of 255
constexpr double mostInAll = 5;       // and of the whole picture

double differenceOf(const QColor& one, const QColor& other)
{
    return (std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
            std::abs(one.blue() - other.blue())) /
           3.0;
}

QImage inSquares(const QImage& picture)
{
    return picture.convertToFormat(QImage::Format_RGB32)
        .scaled(picture.width() / square, picture.height() / square, Qt::IgnoreAspectRatio,
                Qt::SmoothTransformation);
}

// VORN_NEW_PICTURES=1 makes the pictures anew.
void expectAsCommitted(const QImage& picture, const QString& name)
{
    const QString file = QDir(PICTURES).filePath(name + ".png");
    if (qEnvironmentVariableIsSet("VORN_NEW_PICTURES")) {
        ASSERT_TRUE(picture.save(file));
        return;
    }
    const QImage committed(file);
    ASSERT_EQ(committed.size(), picture.size()) << name.toStdString();
    const QImage now = inSquares(picture);
    const QImage then = inSquares(committed);
    double sum = 0;
    for (int y = 0; y < now.height(); ++y)
        for (int x = 0; x < now.width(); ++x) {
            const double difference = differenceOf(now.pixelColor(x, y), then.pixelColor(x, y));
            EXPECT_LE(difference, mostDifference)
                << name.toStdString() << " at " << x * square << ", " << y * square;
            sum += difference;
        }
    EXPECT_LE(sum / (now.width() * now.height()), mostInAll) << name.toStdString();
}

struct Dress
{
    const char* name;
    const char* theme;
    const char* accent;
    const char* language;
};

std::ostream& operator<<(std::ostream& out, const Dress& row)
{
    return out << row.name;
}

class Pictures : public FormTest, public ::testing::WithParamInterface<Dress>
{
protected:
    void SetUp() override
    {
        YLook::useLanguage(GetParam().language);
        YLook::use({GetParam().theme, GetParam().accent, QString(), false});
        FormTest::SetUp();
    }

    void TearDown() override
    {
        FormTest::TearDown();
        YLook::useLanguage(QString());
        YLook::use({"light", QString(), QString(), false});
    }

    static void check(const char* scene)
    {
        settle();
        expectAsCommitted(screen()->grab().toImage(), QString("%1-%2").arg(scene, GetParam().name));
    }

    static QString own(const char* id, const char* text) { return YLabel::tr(id, text); }
};

TEST_P(Pictures, AForm)
{
    page->setMainWidgetTitle(own("TXT_RID_HEADER_CONNECTION_SETUP", "Connection Setup"));
    addEdit(own("TXT_RID_LABEL_FORMITEM_PROFILE_NAME_COLON_ASTERISK", "Profile Name:*"))
        ->setText("Home");
    YLineEdit* password = addEdit(own("TXT_RID_LABEL_FORMITEM_PASSWORD_COLON", "Password:"));
    password->setEchoMode(QLineEdit::Password);
    password->setText("secret");
    auto* address = new YSegmentField(form->viewport(), nullptr, 0, YSkinService::SegmentField);
    address->setLabel("DNS 1:");
    address->setNumSegments(4);
    form->addChild(address, true, nullptr);
    open();
    screen()->setFocus();
    check("form");
}

TEST_P(Pictures, AChoice)
{
    YSingleSelectDlg dialog(own("TXT_RID_HEADER_SELECT_CONNECTION", "Select Connection"), QString(),
                            nullptr, nullptr, true, 0, 0);
    dialog.getListBox()->setItemType("%R%M");
    for (const char* text : {"Home", "Work", "Travel"}) {
        auto* item = new YListBoxItem(dialog.getListBox(), QString());
        item->appendSubItem(1, text, false, nullptr);
        dialog.getListBox()->insertItem(item, -1, true);
    }
    dialog.getListBox()->checkItem(1, true);
    dialog.show();
    check("choice");
}

TEST_P(Pictures, ANotice)
{
    YNoticeDlg notice(YNoticeDlg::Failure, QString(),
                      own("TXT_RID_HEADER_MEMORY_FULL", "Memory Full"), nullptr, nullptr, true, 0);
    notice.show();
    check("notice");
}

TEST_P(Pictures, AMenu)
{
    YOptionsMenu menu(QRect(0, 0, 200, 286), page.get(), nullptr, 0, 0);
    for (const char* text : {"One", "Two"})
        menu.insertItem(text, nullptr, nullptr, nullptr, true, true, true, -1, -1, false);
    open();
    menu.show();
    check("menu");
}

INSTANTIATE_TEST_SUITE_P(Dresses, Pictures,
                         ::testing::Values(Dress{"light", "light", "blue", "en"},
                                           Dress{"dark", "dark", "teal", "en"},
                                           Dress{"arabic", "light", "plum", "ar"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Icons, AreOnOneGridInOneColourWithOneStroke)
{
    ASSERT_GE(YIcon::names().size(), 40);
    for (const QString& name : YIcon::names()) {
        QFile file(":/vorn/icons/" + name + ".svg");
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        EXPECT_TRUE(text.contains("viewBox=\"0 0 24 24\"")) << name.toStdString();
        EXPECT_EQ(text.count("stroke-width"), 1) << name.toStdString();
        EXPECT_EQ(text.count('#'), 0) << name.toStdString() << " has a colour of its own";
    }
}

bool isAtTheEdge(const QImage& picture, int x, int y)
{
    return x == 0 || y == 0 || x == picture.width() - 1 || y == picture.height() - 1;
}

void expectOnTheGrid(const QString& name, const QImage& picture, const QColor& colour)
{
    int inked = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            const bool solid = pixel.alpha() > 200;
            inked += solid;
            EXPECT_FALSE(isAtTheEdge(picture, x, y) && pixel.alpha() > 128)
                << name.toStdString() << " leaves the grid";
            EXPECT_FALSE(solid && differenceOf(pixel, colour) > 3) << name.toStdString();
        }
    if (!name.endsWith("none") && !name.endsWith("-0")) {
        EXPECT_GT(inked, 8) << name.toStdString();
    }
}

TEST(Icons, AreDrawnInTheColourAndStayOnTheGrid)
{
    const QColor colour(10, 200, 30);
    for (const QString& name : YIcon::names())
        for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
            const QPixmap icon = YIcon::pixmap(name, 24, colour, ratio);
            ASSERT_EQ(icon.size(), QSize(qRound(24 * ratio), qRound(24 * ratio)));
            expectOnTheGrid(name, icon.toImage(), colour);
        }
}

TEST(Icons, HaveNoPictureForAnUnknownName)
{
    EXPECT_TRUE(YIcon::pixmap("unheard-of", 24, Qt::black, 1).isNull());
}

} // namespace
