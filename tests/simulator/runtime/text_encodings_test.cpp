// Texts as bytes of other encodings than UTF-8.
#include "support/phone.h"

namespace test {
namespace {

constexpr NSUInteger shift_jis = 8, latin2 = 9, cyrillic = 11;

class TextEncodings : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    static NSData* in(NSUInteger encoding, NSString* words) {
        return words->send<"dataUsingEncoding:", NSData*>(encoding);
    }
    static NSString* read(NSUInteger encoding, NSData* bytes) {
        return objc::adopt(NSString::alloc()->send<"initWithData:encoding:", NSString*>(bytes, encoding))
            .autoreleased();
    }
    Phone phone;
};

TEST_F(TextEncodings, ATextHasTheBytesOfItsEncoding) {
    auto bytes = [](NSData* of) { return std::string(static_cast<const char*>(of->bytes()), of->length()); };
    EXPECT_EQ(bytes(in(shift_jis, text("あ"))), "\x82\xa0");
    EXPECT_EQ(bytes(in(latin2, text("ł"))), "\xb3");
    EXPECT_EQ(bytes(in(cyrillic, text("Я"))), "\xdf");
    EXPECT_EQ(in(cyrillic, text("あ")), nullptr);
}

TEST_F(TextEncodings, WhatIsAvailableConverts) {
    auto* const available = NSString::class_send<"availableStringEncodings", const uint32_t*>();
    size_t tried = 0;
    for (auto* encoding = available; *encoding; ++encoding, ++tried) {
        NSData* bytes = in(*encoding, text("Keys"));
        ASSERT_NE(bytes, nullptr) << *encoding;
        EXPECT_EQ(utf8(read(*encoding, bytes)), "Keys") << *encoding;
    }
    EXPECT_GT(tried, 20u);
}

}  // namespace
}  // namespace test
