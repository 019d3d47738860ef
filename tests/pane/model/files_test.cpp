// What the pane takes the system's words about files for.
#include "pane/model/files.h"

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

}  // namespace
}  // namespace test
