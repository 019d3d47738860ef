// What the tests of reading property lists share.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/phone.h"

namespace test {

inline const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                "<plist version=\"1.0\">\n";

inline std::string plist(const std::string& content) { return head + content + "\n</plist>\n"; }

inline std::string repeated(std::string_view part, size_t count) {
    std::string whole;
    for (size_t i = 0; i < count; ++i) whole += part;
    return whole;
}

class PropertyListReading : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    id read(std::string_view bytes, NSUInteger options = 0) {
        error = nullptr;
        format = 0;
        return NSPropertyListSerialization::propertyListWithData(data(bytes), options, &format, &error);
    }
    std::string described(std::string_view bytes) {
        id root = read(bytes);
        return root ? utf8(static_cast<NSObject*>(root)->description()) : "(nil)";
    }
    std::string string(std::string_view bytes) { return utf8(as<NSString>(read(bytes))); }
    double number(std::string_view bytes) {
        id root = read(bytes);
        return root ? objc::send<"doubleValue", double>(root) : -12345;
    }
    void expect_refused(std::string_view bytes) {
        EXPECT_EQ(read(bytes), nullptr) << bytes.substr(0, 200);
        ASSERT_NE(error, nullptr) << bytes.substr(0, 200);
        EXPECT_EQ(utf8(error->send<"domain", id>()), "NSCocoaErrorDomain");
        EXPECT_EQ((error->send<"code", NSInteger>()), 3840);
        auto* why = error->send<"userInfo", NSDictionary*>()->objectForKey(text("NSDebugDescription"));
        EXPECT_GT(why ? static_cast<NSString*>(why)->length() : 0, 5u) << "no reason is given";
    }
    std::string reason() {
        return utf8(error->send<"userInfo", NSDictionary*>()->objectForKey(text("NSDebugDescription")));
    }

    Phone phone;
    NSError* error = nullptr;
    NSUInteger format = 0;
};

}  // namespace test
