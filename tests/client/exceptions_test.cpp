// Exceptions that cross the border between the client and the library.
#include <malloc.h>

#include <exception>
#include <stdexcept>

#include "client.h"
#include "support/block.h"
#include "support/themes.h"

namespace test {
namespace {

class ClientExceptions : public Client {
  protected:
    void SetUp() override {
        Client::SetUp();
        pane_object = made("PaneExceptions");
    }
    template <objc::Name Selector, class... Arguments>
    std::string said(Arguments... arguments) const {
        return utf8(ask<Selector>(pane_object, arguments...));
    }

    id pane_object = nullptr;
};

TEST_F(ClientExceptions, TheLibrarysIsCaught) {
    EXPECT_EQ(said<"nameOfTheLibrarys">(), "NSInvalidArgumentException");
}

TEST_F(ClientExceptions, ConfirmingWithAStoredListOfColoursIsCaught) {
    phone.write("/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist",
                property_list("<dict><key>Colors</key><array><string>#FF0000</string></array></dict>"));
    id picker = made("HCColorPickerController");
    ask<"view">(picker);
    id delegate = made("PaneThemeController");
    ask<"setDelegate:", void>(picker, delegate);
    EXPECT_EQ(said<"nameOfConfirming:">(picker), "NSInvalidArgumentException");
    EXPECT_EQ(ask<"chosen">(delegate), nullptr) << "before the delegate is notified";
}

TEST_F(ClientExceptions, OfACaughtOneNothingStays) {
    const auto catch_it = [&](int times) {
        for (int i = 0; i < times; ++i) {
            const objc::AutoreleasePool pool;
            ASSERT_EQ(said<"nameOfTheLibrarys">(), "NSInvalidArgumentException");
        }
    };
    catch_it(50);
    const size_t before = mallinfo2().uordblks;
    catch_it(200);
    constexpr size_t kept_by_the_allocator = 3000, each = 8;  // no allocation is so small
    EXPECT_LT(mallinfo2().uordblks, before + kept_by_the_allocator + 200 * each);
}

TEST_F(ClientExceptions, ADelegatesPassesThroughTheLibraryToTheHandlerOfItsClass) {
    EXPECT_EQ(said<"handlerOfAnOwnException">(), "PaneException");
}

TEST_F(ClientExceptions, AnyObjectMayBeThrown) { EXPECT_EQ(said<"handlerOfARefusal">(), "not today"); }

TEST_F(ClientExceptions, AHandlerOfASuperclassTakesIt) {
    id exception =
        ask<"exceptionWithName:reason:userInfo:">(class_named("NSException"), text("Plain"), id{}, id{});
    EXPECT_EQ(said<"handlerOf:">(exception), "NSException");
}

TEST_F(ClientExceptions, AHandlerOfAnyObjectTakesTheRest) {
    EXPECT_EQ(said<"handlerOf:">(static_cast<id>(text("a text"))), "id");
}

TEST_F(ClientExceptions, AFinallyRunsAndPassesItOn) {
    EXPECT_EQ(raised_by([&] { ask<"passOn", void>(pane_object); }), "NSInvalidArgumentException");
    EXPECT_EQ((ask<"finallys", NSUInteger>(pane_object)), 1u);
}

TEST_F(ClientExceptions, AFinallyRunsForAnExceptionOfCpp) {
    Block block([](int) { throw std::runtime_error("of C++"); });
    std::string caught;
    try {
        ask<"passOnFrom:", void>(pane_object, static_cast<id>(block));
    } catch (const std::runtime_error& error) {
        caught = error.what();
    }
    EXPECT_EQ(caught, "of C++");
    EXPECT_EQ((ask<"finallys", NSUInteger>(pane_object)), 1u);
    EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST_F(ClientExceptions, AHandlerOfEverythingTakesAnExceptionOfCpp) {
    Block block([](int) { throw std::runtime_error("of C++"); });
    EXPECT_TRUE((ask<"swallowsAllFrom:", bool>(pane_object, static_cast<id>(block))));
    EXPECT_EQ(std::uncaught_exceptions(), 0);
    Block quiet([](int) {});
    EXPECT_FALSE((ask<"swallowsAllFrom:", bool>(pane_object, static_cast<id>(quiet))));
}

TEST_F(ClientExceptions, ACaughtOneIsThrownAgain) {
    EXPECT_EQ(said<"throwAgain">(), "NSInvalidArgumentException");
}

TEST_F(ClientExceptions, FramesLetGoOfWhatTheyHold) {
    EXPECT_TRUE((ask<"framesAreCleanedUp", bool>(pane_object)));
}

}  // namespace
}  // namespace test
