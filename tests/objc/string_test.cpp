// Constant strings of the ELF home are full strings of Foundation.
#include "objc/string.h"

#include "support/phone.h"

namespace test {
namespace {

using namespace objc::literals;

class ConstantString : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    Phone phone;
};

TEST_F(ConstantString, IsOneObjectPerText) { EXPECT_EQ("same"_ns, "same"_ns); }

TEST_F(ConstantString, EqualsAndHashesLikeAnyOther) {
    NSString *constant = "UIKBColorClear"_ns, *made = text("UIKBColorClear");
    EXPECT_TRUE(constant->isEqualToString(made));
    EXPECT_TRUE(made->isEqualToString(constant));
    EXPECT_EQ((constant->send<"hash", NSUInteger>()), (made->send<"hash", NSUInteger>()));
}

TEST_F(ConstantString, MayBeEmpty) {
    EXPECT_EQ(""_ns->length(), 0u);
    EXPECT_TRUE(""_ns->isEqualToString(text("")));
}

TEST_F(ConstantString, IsNotMovedByRetainAndRelease) {
    NSString* constant = "kept"_ns;
    EXPECT_EQ(objc_retain(constant), constant);
    for (int i = 0; i < 5; ++i) objc_release(constant);
    EXPECT_EQ(utf8(constant), "kept");
}

TEST_F(ConstantString, IsAKeyLikeAnyOther) {
    auto* dictionary = NSMutableDictionary::alloc()->initWithCapacity(1).autoreleased();
    dictionary->setObject("value"_ns, "key"_ns);
    EXPECT_EQ(utf8(dictionary->objectForKey(text("key"))), "value");
}

}  // namespace
}  // namespace test
