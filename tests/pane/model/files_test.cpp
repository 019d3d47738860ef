// What the pane takes the system's words about files for.
#include "pane/model/files.h"

#include <filesystem>

#include "kept_files.h"

namespace test {
namespace {

class Files : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    static NSError* error(const char* domain, NSInteger code) {
        return objc::send<"errorWithDomain:code:userInfo:", NSError*>(class_named("NSError"), text(domain),
                                                                      code, static_cast<id>(nullptr));
    }
    Phone phone;
};

TEST_F(Files, AreAbsentWhenFoundationSaysThatThereIsNoSuchFile) {
    EXPECT_TRUE(pane::is_absence(error("NSCocoaErrorDomain", 260)));
    EXPECT_TRUE(pane::is_absence(error("NSCocoaErrorDomain", 4)));
    for (const NSInteger other : {0, 3, 5, 256, 257, 259, 261, 640})
        EXPECT_FALSE(pane::is_absence(error("NSCocoaErrorDomain", other))) << other;
    EXPECT_FALSE(pane::is_absence(error("NSPOSIXErrorDomain", 260)));
    EXPECT_FALSE(pane::is_absence(nullptr));
}

TEST_F(Files, AreReadUpToSixtyFourMegabytes) {
    const std::string path = in_themes("Large.plist");
    phone.write(path, "");
    const auto fault = [&](uintmax_t size) {
        std::filesystem::resize_file(phone.host(path), size);
        NSError* error = nullptr;
        EXPECT_EQ(pane::read_property_list(text(path), &error), nullptr);
        return utf8(error->localizedDescription());
    };
    EXPECT_EQ(fault(64 << 20), "The file is not a property list.");
    EXPECT_EQ(fault((64 << 20) + 1), "The file is too large for a theme.");
}

}  // namespace
}  // namespace test
