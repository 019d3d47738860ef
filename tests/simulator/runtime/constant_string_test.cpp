// The constant strings of a dylib are full strings of Foundation.
#include "support/phone.h"

namespace test {
namespace {

/// As the device's compiler lays them out.
struct Literal {
    Class isa;
    int flags;
    const void* characters;
    long length;

    NSString* string() { return reinterpret_cast<NSString*>(this); }
};

class DylibString : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        Class constant = objc_getClass("__NSCFConstantString");
        ascii = {constant, 0x7c8, "UIKBColorClear", 14};
        wide = {constant, 0x7d0, u"caf\u00e9 \U0001f600", 7};
        empty = {constant, 0x7c8, "", 0};
    }
    Phone phone;
    Literal ascii, wide, empty;
};

TEST_F(DylibString, HasItsCharacters) {
    EXPECT_EQ(ascii.string()->length(), 14u);
    EXPECT_EQ(utf8(ascii.string()), "UIKBColorClear");
    EXPECT_EQ(wide.string()->length(), 7u);
    EXPECT_EQ(utf8(wide.string()), "caf\u00e9 \U0001f600");
    EXPECT_EQ(utf8(empty.string()), "");
}

TEST_F(DylibString, EqualsAndHashesLikeAnyOther) {
    for (auto [literal, characters] :
         {std::pair(&ascii, "UIKBColorClear"), {&wide, "caf\u00e9 \U0001f600"}, {&empty, ""}}) {
        NSString *constant = literal->string(), *made = text(characters);
        EXPECT_TRUE(constant->isEqualToString(made)) << characters;
        EXPECT_TRUE(made->isEqualToString(constant)) << characters;
        EXPECT_TRUE(made->isEqual(constant)) << characters;
        EXPECT_EQ((constant->send<"hash", NSUInteger>()), (made->send<"hash", NSUInteger>())) << characters;
    }
    EXPECT_FALSE(ascii.string()->isEqual(wide.string()));
}

TEST_F(DylibString, IsNotMovedByRetainAndRelease) {
    auto* object = ascii.string();
    EXPECT_EQ(objc_retain(object), object);
    for (int i = 0; i < 5; ++i) objc_release(object);
    EXPECT_EQ((object->send<"copy", id>()), object);
    {
        objc::AutoreleasePool pool;
        EXPECT_EQ(objc_autorelease(object), object);
    }
    EXPECT_EQ(utf8(object), "UIKBColorClear");
}

TEST_F(DylibString, IsAKeyLikeAnyOther) {
    auto* dictionary = NSMutableDictionary::alloc()->initWithCapacity(1).autoreleased();
    dictionary->setObject(wide.string(), ascii.string());
    EXPECT_EQ(dictionary->objectForKey(text("UIKBColorClear")), wide.string());
    dictionary->setObject(text("again"), text("UIKBColorClear"));
    EXPECT_EQ(utf8(dictionary->objectForKey(ascii.string())), "again");
}

TEST_F(DylibString, RaisesBeyondItsEnd) {
    EXPECT_EQ(raised_by([&] { ascii.string()->send<"characterAtIndex:", unsigned short>(NSUInteger{14}); }),
              "NSRangeException");
    char16_t units[4];
    EXPECT_EQ(raised_by([&] { ascii.string()->getCharacters(units, {12, 3}); }), "NSRangeException");
    EXPECT_EQ(raised_by([&] { ascii.string()->getCharacters(units, {15, 0}); }), "NSRangeException");
    EXPECT_EQ(raised_by([&] { ascii.string()->getCharacters(units, {1, ~NSUInteger{0}}); }),
              "NSRangeException");
}

TEST_F(DylibString, JoinsSplitsAndCompares) {
    EXPECT_EQ(utf8(ascii.string()->stringByAppendingString(empty.string())), "UIKBColorClear");
    EXPECT_EQ(utf8(text("x")->stringByAppendingString(wide.string())), "xcaf\u00e9 \U0001f600");
    EXPECT_TRUE((ascii.string()->send<"hasPrefix:", bool>(text("UIKB"))));
    auto changeable = objc::adopt(wide.string()->send<"mutableCopy", NSString*>());
    changeable->send<"appendString:">(ascii.string());
    EXPECT_EQ(utf8(changeable.get()), "caf\u00e9 \U0001f600UIKBColorClear");
}

TEST_F(DylibString, CanBeWrittenToBothFormsOfPropertyLists) {
    auto* dictionary = NSMutableDictionary::alloc()->initWithCapacity(1).autoreleased();
    dictionary->setObject(wide.string(), ascii.string());
    for (NSUInteger format : {100, 200}) {
        auto* written =
            NSPropertyListSerialization::class_send<"dataWithPropertyList:format:options:error:", NSData*>(
                static_cast<id>(dictionary), format, NSUInteger{0}, static_cast<NSError**>(nullptr));
        ASSERT_NE(written, nullptr) << format;
        id read = NSPropertyListSerialization::propertyListWithData(written, 0, nullptr, nullptr);
        EXPECT_TRUE(dictionary->isEqual(read)) << format;
    }
}

}  // namespace
}  // namespace test
