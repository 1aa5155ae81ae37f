#include "ipaddressedit.h"

#include <cstring>

#include <yinputfield.h>
#include <ylineedit.h>
#include <ypopup.h>

#include "common/gui_test.h"
#include "ipaddressedit_validator.h"
#include "widgets/segment_rows.h"

namespace {

// The field in a popup on the screen.
class AddressField : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        popup = std::make_unique<YPopup>(0, nullptr, nullptr, true, YPopup::PlainStyle, 0);
        popup->setGeometry(screen()->rect());
        field = new IPAddressEdit(popup.get());
        field->setGeometry(0, 40, 240, field->sizeHint().height());
        popup->show();
        segment(0)->setFocus();
    }

    void TearDown() override
    {
        popup.reset();
        GuiTest::TearDown();
    }

    YLineEdit* segment(int index) const { return field->getField(index); }

    void fill(const QStringList& texts)
    {
        for (int i = 0; i < 4; ++i)
            segment(i)->setText(texts[i]);
    }

    // The texts of the segments, joined by dots.
    std::string shown() const
    {
        QStringList texts;
        for (int i = 0; i < 4; ++i)
            texts << segment(i)->text();
        return texts.join('.').toStdString();
    }

    unsigned long number() const
    {
        unsigned long address = 99;
        field->getIPAddress(address);
        return address;
    }

    std::string text() const
    {
        QString address("before");
        field->getIPAddress(address);
        return address.toStdString();
    }

    std::string bytes() const
    {
        unsigned char address[16];
        std::memset(address, '#', sizeof address);
        field->getIPAddress(address);
        return reinterpret_cast<const char*>(address);
    }

    std::unique_ptr<YPopup> popup;
    IPAddressEdit* field = nullptr;
};

TEST_F(AddressField, IsASegmentFieldOfFourSegmentsSeparatedByDots)
{
    EXPECT_STREQ(field->metaObject()->className(), "IPAddressEdit");
    EXPECT_STREQ(field->metaObject()->superClass()->className(), "YSegmentField");
    EXPECT_EQ(field->numSegments(), 4);
    EXPECT_EQ(field->separatorString(), ".");
    EXPECT_EQ(field->objectName(), "");
    EXPECT_EQ(shown(), "...");
}

TEST_F(AddressField, AddsNoSignalsOrSlots)
{
    const QMetaObject& own = IPAddressEdit::staticMetaObject;
    EXPECT_EQ(own.methodCount(), own.superClass()->methodCount());
}

TEST_F(AddressField, SetsEachSegmentUpForAnOctet)
{
    for (int i = 0; i < 4; ++i) {
        const auto* validator =
            dynamic_cast<const IPAddressEdit_Validator*>(segment(i)->validator());
        ASSERT_NE(validator, nullptr);
        EXPECT_EQ(validator->parent(), segment(i));
        EXPECT_EQ(validator->bottom(), 0);
        EXPECT_EQ(validator->top(), 255);
        EXPECT_EQ(segment(i)->maxLength(), 3);
        EXPECT_EQ(segment(i)->sizeHint().width(), 40);
        EXPECT_TRUE(segment(i)->alignment() & Qt::AlignHCenter);
        EXPECT_TRUE(segment(i)->alignment() & Qt::AlignVCenter);
        EXPECT_EQ(segment(i)->getInputField()->inputMode(), YInputField::NumericInput);
    }
}

TEST_F(AddressField, HasItsPreferredSizeAtFirst)
{
    const IPAddressEdit fresh;
    EXPECT_EQ(fresh.size(), fresh.sizeHint());
    EXPECT_GE(fresh.width(), 4 * 40);
}

struct Text
{
    const char* name;
    QString text;
    const char* shown;
};

void PrintTo(const Text& row, std::ostream* out)
{
    *out << row.name;
}

class AddressText : public AddressField, public testing::WithParamInterface<Text>
{};

TEST_P(AddressText, IsShownInItsSegments)
{
    QString text = GetParam().text;
    fill({"9", "9", "9", "9"});
    field->setIPAddress(text);
    EXPECT_EQ(shown(), GetParam().shown);
    EXPECT_EQ(text, GetParam().text);
}

std::string textName(const testing::TestParamInfo<Text>& row)
{
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Addresses, AddressText,
                         testing::Values(Text{"Usual", "10.0.0.1", "10.0.0.1"},
                                         Text{"Broadcast", "255.255.255.255", "255.255.255.255"},
                                         Text{"OnlyTheFirst", "1.0.0.0", "1.0.0.0"},
                                         Text{"OnlyTheLast", "0.0.0.1", "0.0.0.1"},
                                         Text{"Blanks", " 1.2.3.4 ", "1.2.3.4"},
                                         Text{"LeadingZerosAreNotOctal", "010.002.3.0004",
                                              "10.2.3.4"},
                                         Text{"EmptyPartsAreSkipped", "1..2.3.4", "1.2.3.4"}),
                         textName);

INSTANTIATE_TEST_SUITE_P(
    NoAddresses, AddressText,
    testing::Values(Text{"Zero", "0.0.0.0", "..."}, Text{"Empty", "", "..."},
                    Text{"Null", QString(), "..."}, Text{"Name", "localhost", "..."},
                    Text{"OneNumber", "16909060", "..."}, Text{"ThreeParts", "1.2.3", "..."},
                    Text{"FiveParts", "1.2.3.4.5", "..."}, Text{"TooLarge", "1.2.3.256", "..."},
                    Text{"Negative", "1.2.3.-4", "..."}, Text{"Hexadecimal", "0x1.2.3.4", "..."},
                    Text{"Version6", "::1", "..."}, Text{"WithPort", "1.2.3.4:80", "..."}),
    textName);

struct Number
{
    const char* name;
    unsigned long number;
    const char* shown;
};

void PrintTo(const Number& row, std::ostream* out)
{
    *out << row.name;
}

class AddressNumber : public AddressField, public testing::WithParamInterface<Number>
{};

TEST_P(AddressNumber, IsShownWithTheFirstPartFromTheMostSignificantByte)
{
    field->setIPAddress(GetParam().number);
    EXPECT_EQ(shown(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Addresses, AddressNumber,
                         testing::Values(Number{"Usual", 0xC0A80001UL, "192.168.0.1"},
                                         Number{"EachByte", 0x01020304UL, "1.2.3.4"},
                                         Number{"MostSignificantBit", 0x80000000UL, "128.0.0.0"},
                                         Number{"AllBits", 0xFFFFFFFFUL, "255.255.255.255"},
                                         Number{"Zero", 0UL, "..."},
                                         Number{"Above32Bits", 0x501020304UL, "1.2.3.4"},
                                         Number{"OnlyAbove32Bits", 0x500000000UL, "..."}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(AddressField, ShowsAnAddressFromBytesThatAreADottedText)
{
    unsigned char address[] = "172.16.254.3";
    field->setIPAddress(address);
    EXPECT_EQ(shown(), "172.16.254.3");
}

TEST_F(AddressField, ReadsBytesToTheirNulAndOneCharacterEach)
{
    unsigned char longer[] = "1.2.3.4\0.5";
    unsigned char blank[] = "\xa0"
                            "1.2.3.5";
    unsigned char utf8[] = "\xc2\xa0"
                           "1.2.3.6";
    field->setIPAddress(longer);
    EXPECT_EQ(shown(), "1.2.3.4");
    field->setIPAddress(blank);
    EXPECT_EQ(shown(), "1.2.3.5");
    field->setIPAddress(utf8);
    EXPECT_EQ(shown(), "...");
}

TEST_F(AddressField, BecomesEmptyForBytesThatAreNoAddress)
{
    unsigned char four[] = {10, 0, 0, 1, 0};
    for (unsigned char* bytes : {four, static_cast<unsigned char*>(nullptr)}) {
        field->setIPAddress(0x01020304UL);
        field->setIPAddress(bytes);
        EXPECT_EQ(shown(), "...");
    }
}

struct Content
{
    const char* name;
    QStringList segments;
    unsigned long number;
    const char* text;
    bool valid;
    bool empty;
};

void PrintTo(const Content& row, std::ostream* out)
{
    *out << row.name;
}

class FieldContent : public AddressField, public testing::WithParamInterface<Content>
{};

TEST_P(FieldContent, IsReadInEachForm)
{
    fill(GetParam().segments);
    EXPECT_EQ(number(), GetParam().number);
    EXPECT_EQ(text(), GetParam().text);
    EXPECT_EQ(bytes(), GetParam().text);
    EXPECT_EQ(field->isIPValid(), GetParam().valid);
    EXPECT_EQ(field->isEmpty(), GetParam().empty);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, FieldContent,
    testing::Values(
        Content{"Usual", {"1", "2", "3", "4"}, 0x01020304UL, "1.2.3.4", true, false},
        Content{
            "Longest", {"255", "255", "255", "254"}, 0xFFFFFFFEUL, "255.255.255.254", true, false},
        Content{"LeadingZeros", {"001", "010", "000", "07"}, 0x010A0007UL, "1.10.0.7", true, false},
        Content{"Loopback", {"127", "0", "0", "1"}, 0x7F000001UL, "127.0.0.1", true, false},
        Content{"Multicast", {"224", "0", "0", "1"}, 0xE0000001UL, "224.0.0.1", true, false},
        Content{"BlankBefore", {" 1", "2", "3", "4"}, 0x01020304UL, "1.2.3.4", true, false},
        Content{"Broadcast",
                {"255", "255", "255", "255"},
                0xFFFFFFFFUL,
                "255.255.255.255",
                false,
                false},
        Content{"Zeros", {"0", "0", "0", "0"}, 0UL, "0.0.0.0", false, false}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    NoAddresses, FieldContent,
    testing::Values(
        Content{"Empty", {"", "", "", ""}, 0UL, "0.0.0.0", false, true},
        Content{"Blanks", {" ", "  ", "   ", " "}, 0UL, "0.0.0.0", false, true},
        Content{"OtherBlanks",
                {QChar(0xa0), QChar(0x200b), QChar(0x3000), QString("\t\n")},
                0UL,
                "0.0.0.0",
                false,
                true},
        Content{"NextLineIsNoBlank", {"", QChar(0x85), "", ""}, 0UL, "0.0.0.0", false, false},
        Content{"OnlyTheFirst", {"4", "", "", ""}, 0UL, "0.0.0.0", false, false},
        Content{"OnlyTheSecond", {"", "4", "", ""}, 0UL, "0.0.0.0", false, false},
        Content{"OnlyTheThird", {"", "", "4", ""}, 0UL, "0.0.0.0", false, false},
        Content{"OnlyTheLast", {"", "", "", "4"}, 0UL, "0.0.0.0", false, false},
        Content{"FirstMissing", {"", "2", "3", "4"}, 0UL, "0.0.0.0", false, false},
        Content{"SecondMissing", {"1", "", "2", "3"}, 0UL, "0.0.0.0", false, false},
        Content{"LastMissing", {"1", "2", "3", ""}, 0UL, "0.0.0.0", false, false},
        Content{"BlankForAPart", {"1", " ", "3", "4"}, 0UL, "0.0.0.0", false, false},
        Content{"TooLarge", {"1", "2", "3", "256"}, 0UL, "0.0.0.0", false, false},
        Content{"Letters", {"1", "2", "x", "4"}, 0UL, "0.0.0.0", false, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AddressField, WritesSixteenBytesAtMost)
{
    unsigned char address[18];
    std::memset(address, '#', sizeof address);
    field->setIPAddress(0xFFFFFFFFUL);
    field->getIPAddress(address);
    EXPECT_EQ(address[15], 0);
    EXPECT_EQ(address[16], '#');
    EXPECT_EQ(address[17], '#');
}

TEST_F(AddressField, GivesBackEachAddressThatWasSet)
{
    for (unsigned int bit = 0; bit < 32; ++bit) {
        field->setIPAddress(1UL << bit);
        EXPECT_EQ(number(), 1UL << bit);
    }
}

QtMessageHandler usualHandler = nullptr;

// A machine without a font for a script says so; that is no fault of what is tested.
void dropFontWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.contains("OpenType support missing"))
        usualHandler(type, context, text);
}

class TypedText : public AddressField, public testing::WithParamInterface<SegmentRow>
{
protected:
    void SetUp() override
    {
        usualHandler = qInstallMessageHandler(dropFontWarnings);
        AddressField::SetUp();
    }

    void TearDown() override
    {
        AddressField::TearDown();
        qInstallMessageHandler(usualHandler);
    }
};

TEST_P(TypedText, LeavesOnlyWhatIsAnOctet)
{
    type(GetParam().text);
    EXPECT_EQ(shown(), GetParam().typed);
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedText, testing::ValuesIn(segmentRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(AddressField, IsEmptiedByDeletingTheLastDigit)
{
    type("7");
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), "...");
    EXPECT_TRUE(field->isEmpty());
}

TEST_F(AddressField, RefusesADigitInFrontThatMakesTooMuch)
{
    type("99");
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    type("2");
    EXPECT_EQ(shown(), "99...");
    type("1");
    EXPECT_EQ(shown(), "199...");
}

TEST_F(AddressField, IsFilledByTappingEachSegment)
{
    for (const int i : {3, 1, 0, 2}) {
        tap(segment(i));
        type(QString::number(i + 1));
    }
    EXPECT_EQ(shown(), "1.2.3.4");
}

TEST_F(AddressField, IsReplacedByPassingThroughItsSegments)
{
    QString address("10.20.30.40");
    field->setIPAddress(address);
    tap(segment(0));
    segment(0)->selectAll();
    type("192.168.7.1");
    EXPECT_EQ(text(), "192.168.7.1");
}

TEST_F(AddressField, TellsWhatWasTyped)
{
    type("192.168.0.1");
    EXPECT_EQ(number(), 0xC0A80001UL);
    EXPECT_TRUE(field->isIPValid());
    EXPECT_FALSE(field->isEmpty());
}

} // namespace
