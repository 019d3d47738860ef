// Catching Objective-C exceptions from C++.
#include "objc/exception.h"

#include <stdexcept>

#include "support/phone.h"

namespace test {
namespace {

class Exception : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }
    Phone phone;
};

void raise(const char* name, const char* reason) {
    objc::send<"raise">(objc::send<"exceptionWithName:reason:userInfo:", id>(
        class_named("NSException"), text(name), text(reason), static_cast<id>(nullptr)));
}

struct CountsItsEnd {
    int& count;
    ~CountsItsEnd() { ++count; }
};

TEST_F(Exception, NoneIsNil) {
    EXPECT_EQ(objc::caught([] {}), nullptr);
}

TEST_F(Exception, IsTheObjectThatWasRaised) {
    id exception = objc::caught([] { raise("TestException", "because"); });
    ASSERT_NE(exception, nullptr);
    EXPECT_EQ(utf8(objc::send<"name", id>(exception)), "TestException");
    EXPECT_EQ(utf8(objc::send<"reason", id>(exception)), "because");
}

TEST_F(Exception, OfFoundationIsCaught) {
    EXPECT_EQ(raised_by([] { array({})->objectAtIndex(3); }), "NSRangeException");
}

TEST_F(Exception, DestroysWhatLiesBetween) {
    int ends = 0;
    objc::caught([&] {
        CountsItsEnd object{ends};
        raise("TestException", "because");
    });
    EXPECT_EQ(ends, 1);
}

TEST_F(Exception, OfCppPassesThrough) {
    EXPECT_THROW(objc::caught([] { throw std::runtime_error("C++"); }), std::runtime_error);
}

TEST_F(Exception, MayBeCaughtInsideAnother) {
    id outer = objc::caught([] {
        id inner = objc::caught([] { raise("Inner", ""); });
        EXPECT_EQ(utf8(objc::send<"name", id>(inner)), "Inner");
        raise("Outer", "");
    });
    EXPECT_EQ(utf8(objc::send<"name", id>(outer)), "Outer");
}

TEST_F(Exception, UnknownSelectorRaises) {
    EXPECT_EQ(raised_by([] { text("x")->send<"noSuchMethod">(); }), "NSInvalidArgumentException");
}

}  // namespace
}  // namespace test
