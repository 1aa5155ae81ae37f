// The texts: defaults, catalogues and the choice of the language.
#include <QCoreApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>

#include <toolkit/look/ytheme.h>
#include <toolkit/look/ytranslator.h>
#include <ylabel.h>
#include <ymessagedlg.h>
#include <ysoftkey.h>

#include "common/gui_test.h"

namespace {

constexpr char cancelId[] = "TXT_RID_SOFTKEY_CANCEL";

TEST(Texts, ADefaultIsTheTextWhereNoCatalogueIsChosen)
{
    EXPECT_EQ(YLabel::tr(cancelId, "Cancel"), "Cancel");
    EXPECT_EQ(QCoreApplication::translate("AnyClass", cancelId, "Cancel"), "Cancel");
    EXPECT_EQ(YLabel::tr("TXT_RID_NO_SUCH_TEXT", "Fällt zurück"), "Fällt zurück");
    EXPECT_EQ(YLabel::tr("FMT_RID_NO_SUCH_TEXT", "%1 of %2"), "%1 of %2");
}

TEST(Texts, WithoutADefaultTheIdIsTheText)
{
    EXPECT_EQ(YLabel::tr("TXT_RID_NO_SUCH_TEXT"), "TXT_RID_NO_SUCH_TEXT");
}

TEST(Texts, OtherTextsAreLeftAlone)
{
    EXPECT_EQ(YLabel::tr("Cancel", "a note for the translator"), "Cancel");
    EXPECT_EQ(YLabel::tr("XTXT_RID_A", "b"), "XTXT_RID_A");
}

struct Language
{
    const char* locale;
    const char* cancel;
};

std::ostream& operator<<(std::ostream& out, const Language& row)
{
    return out << row.locale;
}

class ByLocale : public ::testing::TestWithParam<Language>
{};

TEST_P(ByLocale, ChoosesTheCatalogue)
{
    const YTranslator translator(nullptr, GetParam().locale);
    EXPECT_EQ(translator.translate("C", cancelId, "Cancel", -1), GetParam().cancel);
    EXPECT_EQ(translator.translate("C", "TXT_RID_NO_SUCH_TEXT", "Default", -1), "Default");
}

INSTANTIATE_TEST_SUITE_P(
    Locales, ByLocale,
    ::testing::Values(Language{"de", "Abbrechen"}, Language{"de_DE", "Abbrechen"},
                      Language{"de_AT.UTF-8", "Abbrechen"}, Language{"zh_CN", "取消"},
                      Language{"zh", "取消"}, Language{"zh_SG.UTF-8", "取消"},
                      Language{"zh_TW", "取消"}, Language{"en_GB", "Cancel"},
                      Language{"pt_BR", "Cancelar"}, Language{"ar_EG", "إلغاء"},
                      Language{"la", "Cancel"}, Language{"C", "Cancel"}, Language{"", "Cancel"},
                      Language{"nonsense", "Cancel"}),
    [](const auto& row) { return "Row" + std::to_string(row.index); });

TEST(Texts, VornLangComesBeforeTheSystemsLocale)
{
    qputenv("VORN_LANG", "de");
    EXPECT_EQ(YTranslator::chosenLocale(), "de");
    qunsetenv("VORN_LANG");
    EXPECT_NE(YTranslator::chosenLocale(), "de");
}

class Languages : public GuiTest, public ::testing::WithParamInterface<std::string>
{
protected:
    YTranslator translator{nullptr, QString::fromStdString(GetParam())};

    QString text(const char* id) const { return translator.translate("C", id, nullptr, -1); }
};

TEST_P(Languages, SoftKeyTextsFitTheirKeys)
{
    YPopup popup(0, nullptr, nullptr, true, 0, 0);
    popup.show();
    for (const char* id : {"TXT_RID_SOFTKEY_CANCEL", "TXT_RID_SOFTKEY_NO", "TXT_RID_SOFTKEY_OK",
                           "TXT_RID_SOFTKEY_OPTIONS", "TXT_RID_SOFTKEY_SAVE",
                           "TXT_RID_SOFTKEY_SELECT", "TXT_RID_SOFTKEY_YES"}) {
        ASSERT_FALSE(text(id).isEmpty()) << id;
        popup.getSoftKey()->setText(YSoftKey::Left, text(id), 0);
        EXPECT_EQ(popup.getSoftKey()->text(YSoftKey::Left), text(id)) << "cut off";
    }
}

TEST_P(Languages, MessagesAreShownWhole)
{
    for (const char* id :
         {"TXT_RID_INSTRUCTIONALTXT_THERE_IS_INSUFFICIENT_MEMORY_TO_CREATE_A_NEW_CONNECTION_"
          "DELETE_SOME_FILES",
          "TXT_RID_INSTRUCTIONALTXT_YOUR_CONNECTION_PREFERENCE_IS_WIFI_ONLYNO_GPRS_OR_CSD_"
          "CONNECTION_IS_USED_FOR_THIS_PROFILE",
          "TXT_RID_INSTRUCTIONALTXT_PLEASE_COMPLETE_THE_REQUIRED_FIELDS_REQUIRED_FIELDS_ARE_"
          "INDICATED_WITH_A_ASTERISK"}) {
        ASSERT_FALSE(text(id).isEmpty()) << id;
        YMessageDlg message("Title", text(id), 2, 0, nullptr, nullptr, true, 0);
        message.show();
        EXPECT_GE(message.contentsR().height(), message.findChild<QLabel*>("text")->height());
    }
}

std::vector<std::string> catalogues()
{
    std::vector<std::string> names;
    for (const QString& name : YTranslator::catalogues())
        if (name != "en")
            names.push_back(name.toStdString());
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, Languages, ::testing::ValuesIn(catalogues()),
                         [](const auto& row) { return row.param; });

} // namespace
