// Type encodings and the texts they are made of.
#include "objc/encoding.h"

#include <gtest/gtest.h>

#include "objc/hook.h"
#include "platform/uikit.h"

namespace {

using objc::Name;

static_assert(objc::encode_method<void>() == Name("v16@0:8"));
static_assert(objc::encode_method<id, id>() == Name("@24@0:8@16"));
static_assert(objc::encode_method<double, CGRect, bool>() ==
              Name("d52@0:8{CGRect={CGPoint=dd}{CGSize=dd}}16B48"));
static_assert(objc::encode_plain_method<id>() == Name("@@:"));
static_assert(objc::encode_plain_method<void, id>() == Name("v@:@"));
static_assert(objc::encode<UIColor*>() == Name("@"));
static_assert(objc::encode<NSError**>() == Name("^@"));
static_assert(objc::encode<CGColorRef>() == Name("^{CGColor=}"));
static_assert(objc::encode<Class>() == Name("#"));
static_assert(objc::encode<SEL>() == Name(":"));
static_assert(objc::encode<const char*>() == Name("r*"));
static_assert(objc::encode_extended_method<void, UIColor*, NSString*>() ==
              Name("v32@0:8@\"UIColor\"16@\"NSString\"24"));
static_assert(objc::encode_extended_method<id, bool, Class, SEL, double>() == Name("@44@0:8B16#20:28d36"));
static_assert(objc::encode_variable<objc::strong<UIColor>>() == Name("@\"UIColor\""));
static_assert(objc::encode_variable<objc::weak<NSObject>>() == Name("@\"NSObject\""));
static_assert(objc::encode_variable<NSUInteger>() == Name("Q"));
static_assert(objc::setter_of<"oldAlpha">() == Name("setOldAlpha:"));
static_assert(objc::setter_of<"URL">() == Name("setURL:"));
static_assert(objc::decimal<1230>() == Name("1230"));
static_assert(Name("setValue:forKey:").colons() == 2);

using Method = objc::MethodName<"+[UIKBEdgeEffect effectWithColor:edges:inset:weight:]">;
static_assert(Method::side == objc::Side::on_class);
static_assert(Method::class_name == Name("UIKBEdgeEffect"));
static_assert(Method::selector == Name("effectWithColor:edges:inset:weight:"));

TEST(Encoding, SmallIntegersCrossAsIntAndAreNarrowed) {
    static_assert(std::is_same_v<objc::Crossing<bool>, int>);
    static_assert(std::is_same_v<objc::Crossing<short>, int>);
    static_assert(std::is_same_v<objc::Crossing<int>, int>);
    static_assert(std::is_same_v<objc::Crossing<objc::strong<UIColor>>, UIColor*>);
    EXPECT_TRUE(objc::arrived<bool>(4)) << "any byte but zero is true";
    EXPECT_FALSE(objc::arrived<bool>(0x1200)) << "only the lowest byte counts";
    EXPECT_EQ(objc::arrived<signed char>(0x1ff), -1);
    EXPECT_EQ(objc::departing<bool>(true), 1);
}

}  // namespace
