#include "yprofileselectdlg.h"

#include <QApplication>
#include <QTranslator>

#include "common/gui_test.h"
#include "profiles/select_dialog.h"

using namespace selectdialog;

namespace {

class ProfileDialog : public GuiTest
{
protected:
    static QStringList three() { return {"Home", "Work", "Train"}; }
};

TEST_F(ProfileDialog, IsAModalSingleSelectionTitledSelectConnection)
{
    QStringList names = three();
    YProfileSelectDlg dialog(names, "", nullptr, "chooser");
    EXPECT_EQ(dialog.title(), "Select Connection");
    EXPECT_EQ(dialog.instructText(), "");
    EXPECT_TRUE(dialog.inherits("YSingleSelectDlg"));
    EXPECT_STREQ(dialog.metaObject()->className(), "YProfileSelectDlg");
    EXPECT_STREQ(dialog.metaObject()->superClass()->className(), "YSingleSelectDlg");
    EXPECT_EQ(dialog.objectName(), "chooser");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ProfileDialog, AddsNoSignalsSlotsOrProperties)
{
    const QMetaObject& own = YProfileSelectDlg::staticMetaObject;
    EXPECT_EQ(own.methodCount(), own.superClass()->methodCount());
    EXPECT_EQ(own.propertyCount(), own.superClass()->propertyCount());
}

TEST_F(ProfileDialog, LooksItsTitleUpInItsOwnContext)
{
    struct Lookup : QTranslator
    {
        QString translate(const char* context, const char* text, const char* comment,
                          int) const override
        {
            const bool isTitle = std::string(context) == "YProfileSelectDlg" &&
                                 std::string(text) == "TXT_RID_HEADER_SELECT_CONNECTION" &&
                                 std::string(comment) == "Select Connection";
            return isTitle ? "Verbindung" : QString();
        }
        bool isEmpty() const override { return false; }
    } lookup;
    QApplication::installTranslator(&lookup);
    QStringList names = three();
    const YProfileSelectDlg dialog(names, "", nullptr, nullptr);
    QApplication::removeTranslator(&lookup);
    EXPECT_EQ(dialog.title(), "Verbindung");
}

TEST_F(ProfileDialog, ShowsTheNamesInTheirOrderAndDoesNotChangeThem)
{
    QStringList names = {"b", "a", "c", "a"};
    const YProfileSelectDlg dialog(names, "", nullptr, nullptr);
    EXPECT_EQ(rows(dialog), (QStringList{"b", "a", "c", "a"}));
    EXPECT_EQ(names, (QStringList{"b", "a", "c", "a"}));
}

TEST_F(ProfileDialog, MakesUpItsListAndRowsFromAMarkAndAText)
{
    QStringList names = three();
    const YProfileSelectDlg dialog(names, "", nullptr, nullptr);
    EXPECT_EQ(dialog.getListBox()->itemType(), "%R%M240");
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(dialog.getListBox()->item(row)->type(), "%R%M240");
}

TEST_F(ProfileDialog, LeavesItsListAloneWithoutNames)
{
    QStringList names;
    YProfileSelectDlg dialog(names, "Home", nullptr, nullptr);
    QString out("before");
    EXPECT_EQ(dialog.getListBox()->count(), 0);
    EXPECT_NE(dialog.getListBox()->itemType(), "%R%M240");
    EXPECT_EQ(dialog.selectedProfile(out), -1);
    EXPECT_EQ(out, "before");
}

TEST_F(ProfileDialog, GoesWithItsParent)
{
    auto* parent = new QWidget;
    QStringList names = three();
    const QPointer<YProfileSelectDlg> dialog = new YProfileSelectDlg(names, "", parent, nullptr);
    delete parent;
    EXPECT_TRUE(dialog.isNull());
}

struct Check
{
    const char* name;
    QStringList names;
    QString current;
    int row;
};

void PrintTo(const Check& row, std::ostream* out)
{
    *out << row.name;
}

class FirstCheckedRow : public ProfileDialog, public testing::WithParamInterface<Check>
{};

TEST_P(FirstCheckedRow, IsTheOneOfTheCurrentName)
{
    QStringList names = GetParam().names;
    YProfileSelectDlg dialog(names, GetParam().current, nullptr, nullptr);
    const YListBox* list = dialog.getListBox();
    QString selected;
    EXPECT_EQ(list->index(dialog.getCheckedItem()), GetParam().row);
    EXPECT_EQ(list->currentItem(), GetParam().row);
    EXPECT_EQ(dialog.selectedProfile(selected), 0);
    EXPECT_EQ(selected, GetParam().names[GetParam().row]);
}

INSTANTIATE_TEST_SUITE_P(
    Names, FirstCheckedRow,
    testing::Values(Check{"FirstWithoutACurrentName", {"a", "b", "c"}, "", 0},
                    Check{"FirstWithANullName", {"a", "b", "c"}, QString(), 0},
                    Check{"FirstForAnUnknownName", {"a", "b", "c"}, "d", 0},
                    Check{"EqualInTheMiddle", {"a", "b", "c"}, "b", 1},
                    Check{"EqualAtTheEnd", {"a", "b", "c"}, "c", 2},
                    Check{"OtherCaseDoesNotMatch", {"a", "b", "c"}, "C", 0},
                    Check{"BlanksCount", {"a", "b", "c"}, "c ", 0},
                    Check{"BeginningDoesNotMatch", {"a", "bc", "b"}, "b", 2},
                    Check{"LastOfEqualOnes", {"a", "b", "b", "c"}, "b", 2},
                    Check{"EmptyNameDoesNotMatchAnEmptyRow", {"a", "", "c"}, "", 0},
                    Check{"Chinese", {"a", QString(QChar(0x7f51))}, QString(QChar(0x7f51)), 1},
                    Check{"OtherNormalFormDoesNotMatch",
                          {"a", QString(QChar(0xe9))},
                          QString("e") + QChar(0x301),
                          0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ProfileDialog, TellsTheRowUnderTheCursor)
{
    QStringList names = three();
    YProfileSelectDlg dialog(names, "Work", nullptr, nullptr);
    QString selected;
    dialog.getListBox()->setCurrentItem(2);
    EXPECT_EQ(dialog.selectedProfile(selected), 0);
    EXPECT_EQ(selected, "Train");
}

TEST_F(ProfileDialog, TellsNoNameWithoutACurrentRow)
{
    QStringList names = three();
    YProfileSelectDlg dialog(names, "Work", nullptr, nullptr);
    QString out("before");
    dialog.getListBox()->clear();
    EXPECT_EQ(dialog.selectedProfile(out), -1);
    EXPECT_EQ(out, "before");
}

TEST_F(ProfileDialog, ShowsTheCheckedRowOfALongList)
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names << "Profile" + QString::number(i);
    YProfileSelectDlg dialog(names, "Profile700", nullptr, nullptr);
    later([&] {
        EXPECT_EQ(checkedRow(dialog), "Profile700");
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(dialog.exec(), 1);
    QString selected;
    EXPECT_EQ(dialog.selectedProfile(selected), 0);
    EXPECT_EQ(selected, "Profile701");
}

} // namespace
