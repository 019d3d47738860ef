// Numbers, as text and as NSNumber.
#include <climits>

#include "support/phone.h"

namespace test {
namespace {

class Numbers : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    static NSObject* number(double value) {
        return NSNumber::class_send<"numberWithDouble:", NSObject*>(value);
    }
    Phone phone;
};

TEST_F(Numbers, TextBeyondTheRangeOfAnIntegerIsTheNearestOne) {
    auto value = [](const char* characters) { return text(characters)->send<"intValue", int>(); };
    EXPECT_EQ(value("99999999999"), INT_MAX);
    EXPECT_EQ(value("-99999999999"), INT_MIN);
    EXPECT_EQ(value("99999999999999999999999999"), INT_MAX);
    EXPECT_EQ(value("2147483647"), INT_MAX);
    EXPECT_EQ(value("-2147483648"), INT_MIN);
}

TEST_F(Numbers, EveryKindOfStringClamps) {
    std::vector<NSString*> strings{text("99999999999")};
    strings.push_back(objc::adopt(strings[0]->send<"mutableCopy", NSString*>()).autoreleased());
    const char16_t wide[] = u"99999999999\u00e9\u4e00";
    strings.push_back(NSString::stringWithCharacters(wide, 13));
    using namespace objc::literals;
    strings.push_back("99999999999"_ns);
    strings.push_back(text("x99999999999")->send<"substringFromIndex:", NSString*>(NSUInteger{1}));
    for (NSString* string : strings)
        EXPECT_EQ((string->send<"intValue", int>()), INT_MAX) << object_getClassName(string);
}

TEST_F(Numbers, TextIsReadFromItsFront) {
    auto value = [](const char* characters) { return text(characters)->send<"intValue", int>(); };
    EXPECT_EQ(value("12abc"), 12);
    EXPECT_EQ(value(" -7"), -7);
    EXPECT_EQ(value("+5"), 5);
    EXPECT_EQ(value("0x10"), 0);
    EXPECT_EQ(value("abc"), 0);
    EXPECT_EQ(value(""), 0);
}

TEST_F(Numbers, TextIsReadAsARealNumber) {
    auto value = [](const char* characters) { return text(characters)->send<"doubleValue", double>(); };
    EXPECT_EQ(value("0.1"), 0.1);
    EXPECT_EQ(value(" 2.5x"), 2.5);
    EXPECT_EQ(value("\u00a0\t7"), 7);
    EXPECT_EQ(value("-.5e-1"), -0.05);
    EXPECT_EQ(value("1e3"), 1000);
    EXPECT_EQ(value("1e"), 1);
    EXPECT_EQ(value("1e+2"), 100);
    EXPECT_EQ(value("7.e1"), 70);
    EXPECT_EQ(value("1,5"), 1);
    EXPECT_EQ(value("99999999999999999999999"), 1e23);
    EXPECT_EQ(value("1e999"), INFINITY);
    EXPECT_EQ(value("-1e999"), -INFINITY);
    EXPECT_EQ(value("1e-999"), 0);
    for (const char* none : {"", ".", "-", "e5", "inf", "nan", "infinity", "0x10", "x1"})
        EXPECT_EQ(value(none), 0) << none;
    EXPECT_EQ((text("0.1")->send<"floatValue", float>()), 0.1f);
    EXPECT_EQ((text("1e999")->send<"floatValue", float>()), HUGE_VALF);
}

TEST_F(Numbers, TextIsReadAsABoolean) {
    for (const char* yes : {"YES", "true", "T", "y", "1", "9", "  Yes", "-1", "+1", "0001"})
        EXPECT_TRUE((text(yes)->send<"boolValue", bool>())) << yes;
    for (const char* no : {"", "NO", "0", "00", "off", "on", "x1", "false"})
        EXPECT_FALSE((text(no)->send<"boolValue", bool>())) << no;
}

TEST_F(Numbers, RealNumbersBecomeTheNearestInteger) {
    EXPECT_EQ((number(1e30)->send<"intValue", int>()), INT_MAX);
    EXPECT_EQ((number(-1e30)->send<"intValue", int>()), INT_MIN);
    EXPECT_EQ((number(3e9)->send<"intValue", int>()), INT_MAX);
    EXPECT_EQ((number(NAN)->send<"intValue", int>()), 0);
    EXPECT_EQ((number(-2.9)->send<"intValue", int>()), -2);
    EXPECT_EQ((number(1e30)->send<"integerValue", long>()), LONG_MAX);
    EXPECT_EQ((number(-1)->send<"unsignedIntegerValue", unsigned long>()), 0u);
    EXPECT_EQ((number(1e30)->send<"unsignedIntegerValue", unsigned long>()), ULONG_MAX);
    EXPECT_EQ((NSNumber::numberWithFloat(1e30f)->send<"intValue", int>()), INT_MAX);
}

TEST_F(Numbers, BooleansAreOnlyWhatIsMadeSo) {
    EXPECT_EQ(NSNumber::numberWithBool(true), NSNumber::numberWithBool(true));
    EXPECT_TRUE(NSNumber::numberWithBool(true)->isEqual(NSNumber::numberWithUnsignedInteger(1)));
    EXPECT_EQ(utf8(NSNumber::numberWithBool(true)->description()), "1");
}

TEST_F(Numbers, AppendingNilRaises) {
    EXPECT_EQ(raised_by([] { text("a")->stringByAppendingString(nullptr); }), "NSInvalidArgumentException");
    EXPECT_EQ(utf8(text("a")->stringByAppendingString(text("b"))), "ab");
}

}  // namespace
}  // namespace test
