#include "widgets/segment_rows.h"

// A text of UTF-16 units, for what a source file should not contain.
template <typename... Units> static QString units(Units... list)
{
    return (QString() + ... + QChar(static_cast<char16_t>(list)));
}

namespace {

std::vector<SegmentRow> plainNumbers()
{
    return {
        {"Empty", "", 1, "..."},
        {"Null", QString(), 1, "..."},
        {"Zero", "0", 2, "0..."},
        {"OneDigit", "7", 2, "7..."},
        {"TwoDigits", "25", 2, "25..."},
        {"Largest", "255", 2, "255..."},
        {"OneAboveTheLargest", "256", 0, "25..."},
        {"TensAboveTheLargest", "260", 0, "26..."},
        {"HundredsAboveTheLargest", "300", 0, "30..."},
        {"LargestOfThreeDigits", "999", 0, "99..."},
        {"FourDigitsGoOnInTheNext", "1000", 0, "100.0.."},
        {"FourthDigitGoesOnInTheNext", "2551", 0, "255.1.."},
        {"LargestPort", "65535", 0, "65..."},
        {"TwoLeadingZeros", "007", 2, "007..."},
        {"ThreeZeros", "000", 2, "000..."},
        {"FourZeros", "0000", 2, "000.0.."},
        {"LeadingZerosBeforeTheLargest", "00255", 2, "002.55.."},
        {"LeadingZeroBeforeTooMuch", "0256", 0, "025.6.."},
        {"LooksOctal", "0377", 0, "037.7.."},
        {"ThirtyZerosAndAFive", QString(30, '0') + '5', 2, "000.000.000.000"},
    };
}

std::vector<SegmentRow> signsAndBlanks()
{
    return {
        {"Plus", "+", 0, "..."},
        {"Minus", "-", 0, "..."},
        {"PlusFive", "+5", 2, "5..."},
        {"MinusFive", "-5", 0, "5..."},
        {"MinusZero", "-0", 2, "0..."},
        {"PlusZero", "+0", 2, "0..."},
        {"TwoPluses", "++5", 0, "5..."},
        {"TwoMinuses", "--5", 0, "5..."},
        {"PlusMinus", "+-5", 0, "5..."},
        {"BlankBehindTheSign", "- 5", 0, "5..."},
        {"MinusBehind", "5-", 0, "5..."},
        {"PlusBehind", "5+", 0, "5..."},
        {"UnicodeMinus", units(0x2212, '5'), 0, "5..."},
        {"Blank", " ", 0, "..."},
        {"ThreeBlanks", "   ", 0, "..."},
        {"BlankBefore", " 5", 2, "5..."},
        {"BlankBehind", "5 ", 2, "5..."},
        {"BlanksAround", "  5  ", 2, "5..."},
        {"BlankInside", "5 5", 0, "55..."},
        {"TabBefore", "\t5", 2, "5..."},
        {"NewlineBehind", "5\n", 2, "5..."},
        {"NoBreakSpace", units(0xa0, '5'), 2, "5..."},
        {"IdeographicSpace", units('5', 0x3000), 2, "5..."},
        {"ZeroWidthSpace", units(0x200b, '5'), 2, "5..."},
        {"NextLineIsNoBlank", units(0x85, '5'), 0, "5..."},
        {"ByteOrderMarkIsNoBlank", units(0xfeff, '5'), 0, "5..."},
    };
}

std::vector<SegmentRow> otherCharacters()
{
    return {
        {"LetterBehind", "5a", 0, "5..."},
        {"Letter", "a", 0, "..."},
        {"Hexadecimal", "0x10", 0, "010..."},
        {"Exponent", "1e2", 0, "12..."},
        {"FractionGoesOnInTheNext", "5.0", 0, "5.0.."},
        {"WholeAddress", "192.168.0.1", 0, "192.168.0.1"},
        {"AddressWithoutDots", "192168255255", 0, "192.168.255.255"},
        {"DotBehindAFullSegmentIsTyped", "100.200.", 0, "100.200.."},
        {"GroupedThousands", "1,000", 0, "100.0.."},
        {"Comma", ",", 0, "..."},
        {"Dot", ".", 0, "..."},
        {"Slash", "1/2", 0, "12..."},
        {"NulBehind", units('5', 0), 0, "5..."},
        {"NulInside", units('5', 0, '6'), 0, "56..."},
    };
}

std::vector<SegmentRow> overflows()
{
    return {
        {"LargestOf32Bits", "2147483647", 0, "214.74.."},
        {"OneAbove32Bits", "2147483648", 0, "214.74.."},
        {"SmallestOf32Bits", "-2147483648", 0, "214.74.."},
        {"LargestUnsigned32Bits", "4294967295", 0, "42..."},
        {"FiveIn32Bits", "4294967301", 0, "42..."},
        {"LargestOf64Bits", "9223372036854775807", 0, "92..."},
        {"OneAbove64Bits", "9223372036854775808", 0, "92..."},
        {"FiveIn64Bits", "18446744073709551621", 0, "184.46.."},
        {"FiveIn128Bits", "340282366920938463463374607431768211461", 0, "34..."},
    };
}

std::vector<SegmentRow> otherDigits()
{
    return {
        {"ArabicIndicDigit", units(0x665), 2, "\xd9\xa5..."},
        {"ExtendedArabicIndicDigit", units(0x6f5), 2, "\xdb\xb5..."},
        {"DevanagariDigit", units(0x96b), 2, "\xe0\xa5\xab..."},
        {"ThaiDigit", units(0xe55), 2, "\xe0\xb9\x95..."},
        {"TibetanDigit", units(0xf25), 2, "\xe0\xbc\xa5..."},
        {"TamilOne", units(0xbe7), 2, "\xe0\xaf\xa7..."},
        {"TamilZeroIsNone", units(0xbe6), 0, "..."},
        {"FullwidthDigits", units(0xff12, 0xff15, 0xff15), 2,
         "\xef\xbc\x92\xef\xbc\x95\xef\xbc\x95..."},
        {"FullwidthDigitsAboveTheLargest", units(0xff12, 0xff15, 0xff16), 0,
         "\xef\xbc\x92\xef\xbc\x95..."},
        {"MixedDigits", units('1', 0x665), 2, "1\xd9\xa5..."},
        {"MyanmarDigit", units(0x1045), 0, "..."},
        {"EthiopicDigit", units(0x1369), 0, "..."},
        {"KhmerDigit", units(0x17e5), 0, "..."},
        {"MongolianDigit", units(0x1815), 0, "..."},
        {"SuperscriptDigit", units(0xb2), 0, "..."},
        {"RomanNumeral", units(0x2164), 0, "..."},
        {"Fraction", units(0xbd), 0, "..."},
        {"CircledDigit", units(0x2464), 0, "..."},
        {"ChineseNumeral", units(0x4e94), 0, "..."},
        {"DigitOfTwoUnits", units(0xd835, 0xdfd3), 0, "..."},
        {"HalfOfAPair", units('5', 0xd835), 0, "5..."},
    };
}

} // namespace

std::vector<SegmentRow> segmentRows()
{
    std::vector<SegmentRow> all;
    for (const auto& group :
         {plainNumbers(), signsAndBlanks(), otherCharacters(), overflows(), otherDigits()})
        all.insert(all.end(), group.begin(), group.end());
    return all;
}

void PrintTo(const SegmentRow& row, std::ostream* out)
{
    *out << row.name;
}
