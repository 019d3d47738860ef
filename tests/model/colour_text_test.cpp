// Hex colour strings and exact equality of colours: HCCITool.
#include "support/runtime.h"

namespace test {
namespace {

class ColourText : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        tool = class_named("HCCITool");
    }

    unsigned scanned(std::string_view digits) {
        return objc::send<"intFromString:", unsigned>(tool, text(digits));
    }
    unsigned scanned_units(const char16_t (&units)[3]) {
        const objc::AutoreleasePool pool;
        return objc::send<"intFromString:", unsigned>(
            tool, NSString::class_send<"stringWithCharacters:length:", NSString*>(
                      static_cast<const char16_t*>(units), NSUInteger{3}));
    }
    bool letters_valid(std::string_view s) {
        return objc::send<"isValidHexColorLetter:", bool>(tool, text(s));
    }
    bool valid(std::string_view s) { return objc::send<"isValidHexColorString:", bool>(tool, text(s)); }
    Rgba parsed(std::string_view s) { return rgba(objc::send<"colorFromHexString:", id>(tool, text(s))); }
    std::string written(UIColor* color) {
        return utf8(objc::send<"hexStringFromColor:", NSString*>(tool, color));
    }
    bool equal(UIColor* a, UIColor* b) { return objc::send<"isColor:equalToColor:", bool>(tool, a, b); }

    static constexpr Rgba transparent_black{0, 0, 0, 0};
    static constexpr Rgba opaque_black{0, 0, 0, 1};
    static constexpr Rgba opaque_red{1, 0, 0, 1};

    Phone phone;
    id tool = nullptr;
};

TEST_F(ColourText, EightDigitsGiveAnAlphaWithAndWithoutHashAndInEitherCase) {
    const Rgba half_red{1, 0, 0, 128 / 255.0};
    EXPECT_EQ(parsed("#FF000080"), half_red);
    EXPECT_EQ(parsed("ff000080"), half_red);
}

TEST_F(ColourText, SixDigitsAreOpaqueWithAndWithoutHashAndInEitherCase) {
    EXPECT_EQ(parsed("#FF0000"), opaque_red);
    EXPECT_EQ(parsed("FF0000"), opaque_red);
    EXPECT_EQ(parsed("#ff0000"), opaque_red);
}

TEST_F(ColourText, EachPairOfDigitsIsItsOwnComponent) {
    EXPECT_EQ(parsed("#12345678"), (Rgba{0x12 / 255.0, 0x34 / 255.0, 0x56 / 255.0, 0x78 / 255.0}));
    EXPECT_EQ(parsed("#123456"), (Rgba{0x12 / 255.0, 0x34 / 255.0, 0x56 / 255.0, 1}));
}

TEST_F(ColourText, InvalidTextsGiveTransparentBlack) {
    EXPECT_EQ(parsed("#FF00"), transparent_black);
    EXPECT_EQ(parsed("#GG0000"), transparent_black);
    EXPECT_EQ(parsed(""), transparent_black);
    EXPECT_EQ(parsed("#FF00000000"), transparent_black);
    EXPECT_EQ(parsed(" FF0000"), transparent_black);
}

TEST_F(ColourText, NilGivesTransparentBlack) {
    EXPECT_EQ(rgba(objc::send<"colorFromHexString:", id>(tool, static_cast<NSString*>(nullptr))),
              transparent_black);
}

TEST_F(ColourText, HashAndFiveDigitsGiveOpaqueBlack) { EXPECT_EQ(parsed("#12345"), opaque_black); }

TEST_F(ColourText, AHashInTheMiddleEndsTheScan) { EXPECT_EQ(parsed("12#456"), (Rgba{0, 0, 18 / 255.0, 1})); }

TEST_F(ColourText, NineDigitsOverflowToOpaqueWhite) { EXPECT_EQ(parsed("123456789"), (Rgba{1, 1, 1, 1})); }

TEST_F(ColourText, LettersAreHashesAndHexDigitsOfEitherCase) {
    EXPECT_TRUE(letters_valid("#0123456789ABCDEFabcdef"));
    EXPECT_TRUE(letters_valid("a#b##"));
    EXPECT_TRUE(letters_valid(""));
    for (const char* wrong : {"g", "G", "@", "`", "/", ":", " ", "ff ", "\u00e4", "\U0001F600"})
        EXPECT_FALSE(letters_valid(wrong)) << wrong;
}

TEST_F(ColourText, ALongTextIsLookedAtToItsEnd) {
    EXPECT_TRUE(letters_valid(std::string(100'000, 'F')));
    EXPECT_FALSE(letters_valid(std::string(100'000, 'F') + "x"));
}

TEST_F(ColourText, StringsOfSixToNineLettersAreValidWhereverTheHashStands) {
    for (const char* right :
         {"#12345", "12#456", "123456", "#123456", "12345678", "#12345678", "######", "123456789"})
        EXPECT_TRUE(valid(right)) << right;
    for (const char* wrong : {"", "12345", "1234567890", "12345g", "#1234"})
        EXPECT_FALSE(valid(wrong)) << wrong;
}

TEST_F(ColourText, TheScanStepsOverAHashOnlyWhereTheLengthMakesRoomForIt) {
    EXPECT_EQ(scanned("#123456"), 0x123456u);
    EXPECT_EQ(scanned("#12345678"), 0x12345678u);
    EXPECT_EQ(scanned("#12345"), 0u);
    EXPECT_EQ(scanned("#1234567"), 0u);
    EXPECT_EQ(scanned("##12345"), 0x12345u);
}

TEST_F(ColourText, TheScanSkipsWhiteSpaceWhereItDoesNotSkipHashes) {
    EXPECT_EQ(scanned("  12"), 0x12u);
    EXPECT_EQ(scanned("\n\t1234"), 0x1234u);
    EXPECT_EQ(scanned("  12345"), 0u) << "seven units: only hashes are skipped";
}

TEST_F(ColourText, TheScanSkipsEveryKindOfSpaceAndNoOtherCharacter) {
    const auto is_space = [](unsigned unit) {
        for (const auto& [first, last] :
             std::initializer_list<std::pair<unsigned, unsigned>>{{0x9, 0xd},
                                                                  {0x20, 0x20},
                                                                  {0x85, 0x85},
                                                                  {0xa0, 0xa0},
                                                                  {0x1680, 0x1680},
                                                                  {0x2000, 0x200b},
                                                                  {0x2028, 0x2029},
                                                                  {0x202f, 0x202f},
                                                                  {0x205f, 0x205f},
                                                                  {0x3000, 0x3000}})
            if (unit >= first && unit <= last) return true;
        return false;
    };
    for (unsigned unit = 1; unit <= 0x3100; ++unit) {
        if (unit < 0x80 && std::isxdigit(static_cast<int>(unit))) continue;
        const char16_t units[] = {static_cast<char16_t>(unit), '1', '2'};
        EXPECT_EQ(scanned_units(units), is_space(unit) ? 0x12u : 0u) << std::hex << unit;
    }
}

TEST_F(ColourText, TheScanEndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(scanned("12zz"), 0x12u);
    EXPECT_EQ(scanned("xyz"), 0u);
    EXPECT_EQ(scanned(""), 0u);
    EXPECT_EQ(scanned("-1"), 0u);
    EXPECT_EQ(scanned("12 34"), 0x12u);
}

TEST_F(ColourText, TheScanReadsAPrefixedNumber) {
    EXPECT_EQ(scanned("0xFF"), 0xFFu);
    EXPECT_EQ(scanned("0X1f"), 0x1Fu);
    EXPECT_EQ(scanned("00xF"), 0u);
    EXPECT_EQ(scanned("0xxF"), 0u);
    EXPECT_EQ(scanned("0x F"), 0u);
    EXPECT_EQ(scanned("0xAxF"), 0xAu);
    EXPECT_EQ(scanned("1xF"), 1u);
    EXPECT_EQ(scanned("xF"), 0u);
    EXPECT_EQ(scanned("0"), 0u);
    EXPECT_EQ(scanned(std::string(40, ' ') + "0xF"), 0xFu) << "long ones are read in pieces";
    EXPECT_EQ(scanned(std::string(31, ' ') + "0xF"), 0xFu) << "also where they part the prefix";
}

TEST_F(ColourText, TheScanOverflowsToAllBits) {
    EXPECT_EQ(scanned("FFFFFFFF"), 0xFFFFFFFFu);
    EXPECT_EQ(scanned("100000000"), 0xFFFFFFFFu);
    EXPECT_EQ(scanned(std::string(5000, '9')), 0xFFFFFFFFu);
}

TEST_F(ColourText, TheScanAgreesWithTheSystemsScanner) {
    for (const char* digits :
         {"",   "0",  "12",       "#12345", "#123456", "##12345",  "123456789", "12#456", "0x",       "0xg",
          "x1", " 7", "FFFFFFFF", "FfFfFf", "zz",      "\u00a012", "1\u00e9",   "12 34",  "#1234567", "+1"}) {
        NSString* string = text(digits);
        id scanner = objc::send<"scannerWithString:", id>(class_named("NSScanner"), string);
        if (string->length() == 7 || string->length() == 9)
            objc::send<"setCharactersToBeSkipped:">(
                scanner, NSCharacterSet::characterSetWithCharactersInString(text("#")));
        unsigned value = 0;
        objc::send<"scanHexInt:", bool>(scanner, &value);
        EXPECT_EQ(scanned(digits), value) << '"' << digits << '"';
    }
}

TEST_F(ColourText, OpaqueColoursAreWrittenWithSixDigitsInUpperCase) {
    EXPECT_EQ(written(color(1, 0, 0)), "#FF0000");
    EXPECT_EQ(written(color(0xAB / 255.0, 0xCD / 255.0, 0xEF / 255.0)), "#ABCDEF");
}

TEST_F(ColourText, GreyColoursAreWrittenWithEqualComponents) {
    EXPECT_EQ(written(UIColor::whiteColor()), "#FFFFFF");
    EXPECT_EQ(written(UIColor::darkGrayColor()), "#555555");
    EXPECT_EQ(written(UIColor::blackColor()->colorWithAlphaComponent(0.4)), "#00000066");
}

TEST_F(ColourText, ComponentsAreTruncatedNotRounded) {
    EXPECT_EQ(written(color(0.999, 0.999, 0.999)), "#FEFEFE");
    EXPECT_EQ(written(color(1, 1, 1, 0.999)), "#FFFFFFFE");
}

TEST_F(ColourText, AnAlphaOfAtLeastOneIsNotWritten) {
    EXPECT_EQ(written(color(0, 0, 1, 1.0)), "#0000FF");
    EXPECT_EQ(written(color(0, 0, 1, 0.0)), "#0000FF00");
}

TEST_F(ColourText, NothingIsClamped) {
    EXPECT_EQ(written(color(2, 0, 0)), "#1FE0000");
    EXPECT_EQ(written(color(-1, 0, 0)), "#FFFFFF010000");
    EXPECT_EQ(written(color(0, 0, 1, 1.5)), "#0000FF") << "opaque all the same";
    EXPECT_EQ(written(color(0, 0, 1, -1)), "#0000FFFFFFFF01");
}

TEST_F(ColourText, BeyondTheRangeTheNearestIntegerIsWritten) {
    EXPECT_EQ(written(color(1e12, 0, 0)), "#7FFFFFFF0000");
    EXPECT_EQ(written(color(-1e12, 0, 0)), "#800000000000");
    EXPECT_EQ(written(color(-1e12, -1e12, -1e12, -1e12)), "#80000000800000008000000080000000");
}

TEST_F(ColourText, AnAlphaThatIsNoNumberIsWritten) { EXPECT_EQ(written(color(1, 0, 0, NAN)), "#FF000000"); }

TEST_F(ColourText, AColourWithAlphaFFIsWrittenBackWithSixDigits) {
    auto* read = objc::send<"colorFromHexString:", UIColor*>(tool, text("#123456FF"));
    EXPECT_EQ(written(read), "#123456");
}

TEST_F(ColourText, EveryByteSurvivesReadingAndWriting) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        char digits[10];
        std::snprintf(digits, sizeof digits, "#%02X%02X%02X%02X", byte, 255 - byte, byte / 2, 254 - byte / 2);
        auto* read = objc::send<"colorFromHexString:", UIColor*>(tool, text(digits));
        EXPECT_EQ(written(read), digits);
    }
}

TEST_F(ColourText, NilIsWrittenAsNil) {
    EXPECT_EQ((objc::send<"hexStringFromColor:", id>(tool, static_cast<UIColor*>(nullptr))), nullptr);
}

TEST_F(ColourText, AColourWithoutAnRgbFormIsWrittenAsZeros) {
    auto* pattern =
        UIColor::class_send<"colorWithPatternImage:", UIColor*>(filled_image(color(1, 0, 0), 2, 2));
    EXPECT_EQ(written(pattern), "#00000000");
}

TEST_F(ColourText, ReadingAsksItsOtherOperationsByMessage) {
    static std::vector<std::string> asked;
    stand_in(
        "HCCITool", "isValidHexColorString:",
        [](id, SEL, id digits) -> int { return asked.push_back("valid " + utf8(digits)), 1; },
        Side::on_class);
    stand_in(
        "HCCITool", "intFromString:",
        [](id, SEL, id digits) -> unsigned { return asked.push_back("int " + utf8(digits)), 0x0000FF; },
        Side::on_class);
    EXPECT_EQ(parsed("no hex"), (Rgba{0, 0, 1, 1}));
    EXPECT_EQ(asked, (std::vector<std::string>{"valid no hex", "int no hex"}));
}

TEST_F(ColourText, ValidityOfAStringIsAskedOfItsLettersByMessage) {
    static std::string asked;
    stand_in(
        "HCCITool",
        "isValidHexColorLetter:", [](id, SEL, id digits) -> int { return asked = utf8(digits), 0; },
        Side::on_class);
    EXPECT_FALSE(valid("#123456"));
    EXPECT_EQ(asked, "#123456");
}

TEST_F(ColourText, GreyAndRgbWhiteAreEqual) {
    EXPECT_TRUE(equal(UIColor::whiteColor(), color(1, 1, 1)));
    EXPECT_TRUE(equal(color(1, 1, 1), UIColor::whiteColor()));
    EXPECT_TRUE(equal(UIColor::whiteColor(), UIColor::whiteColor()));
}

TEST_F(ColourText, TranslucentGreyAndItsRgbFormAreEqual) {
    EXPECT_TRUE(equal(UIColor::whiteColor()->colorWithAlphaComponent(0.25), color(1, 1, 1, 0.25)));
    EXPECT_TRUE(equal(color(0, 0, 0, 0.75), UIColor::blackColor()->colorWithAlphaComponent(0.75)));
}

TEST_F(ColourText, ColoursThatDifferInTheLeastBitAreNotEqual) {
    EXPECT_FALSE(equal(color(0.5, 0, 0), color(0.5 + 1e-9, 0, 0)));
    EXPECT_FALSE(equal(color(0.5, 0, 0, 1), color(0.5, 0, 0, std::nextafter(1.0, 0.0))));
    EXPECT_FALSE(equal(UIColor::whiteColor(), UIColor::blackColor()));
    EXPECT_TRUE(equal(color(0.1, 0.2, 0.3, 0.4), color(0.1, 0.2, 0.3, 0.4)));
}

TEST_F(ColourText, GreyColoursOfDifferentAlphaAreNotEqual) {
    EXPECT_FALSE(equal(UIColor::whiteColor(), UIColor::whiteColor()->colorWithAlphaComponent(0.5)));
}

TEST_F(ColourText, NothingEqualsNil) {
    EXPECT_FALSE(equal(nullptr, UIColor::whiteColor()));
    EXPECT_FALSE(equal(UIColor::whiteColor(), nullptr));
    EXPECT_FALSE(equal(nullptr, nullptr));
}

}  // namespace
}  // namespace test
