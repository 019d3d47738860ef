// The modal panel's options, through their selectors.
#include "views/observing.h"

namespace test {
namespace {

class ModalOptions : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    static id options(id delegate, bool light, NSString* title) {
        return made<"initWithModalFrame:cornerRadius:delegate:isLightUI:selectTitleForButton:">(
            "HCModalOptions", CGRect{{5, 111}, {365, 445}}, 40.0, delegate, light, title);
    }
    Phone phone;
};

TEST_F(ModalOptions, KeepWhatTheyAreMadeOf) {
    id delegate = made("NSObject"), made_of = options(delegate, true, text("SELECT"));
    EXPECT_EQ((objc::send<"modalFrame", CGRect>(made_of)), (CGRect{{5, 111}, {365, 445}}));
    EXPECT_EQ((objc::send<"cornerRadius", double>(made_of)), 40);
    EXPECT_EQ((objc::send<"delegate", id>(made_of)), delegate);
    EXPECT_TRUE((objc::send<"lightUI", bool>(made_of)));
    EXPECT_EQ(utf8(objc::send<"selectButtonTitle", id>(made_of)), "SELECT");
    EXPECT_FALSE((objc::send<"lightUI", bool>(options(delegate, false, nullptr))));
    EXPECT_EQ((objc::send<"selectButtonTitle", id>(options(delegate, false, nullptr))), nullptr);
}

TEST_F(ModalOptions, AreFilledThroughTheirSettersInOrder) {
    observe<"setModalFrame:", void, CGRect>("HCModalOptions");
    observe<"setCornerRadius:", void, double>("HCModalOptions");
    observe<"setDelegate:", void, id>("HCModalOptions");
    observe<"setLightUI:", void, int>("HCModalOptions");
    observe<"setSelectButtonTitle:", void, id>("HCModalOptions");
    options(nullptr, true, nullptr);
    EXPECT_EQ(heard, (std::vector<std::string>{"setModalFrame:", "setCornerRadius:", "setDelegate:",
                                               "setLightUI:", "setSelectButtonTitle:"}));
}

TEST_F(ModalOptions, WithoutAnObjectThereAreNone) {
    static IMP previous = nullptr;
    MSHookMessageEx(objc_getClass("NSObject"), sel_registerName("init"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) -> id {
                        if (object_getClass(self) != objc_getClass("HCModalOptions"))
                            return call<id>(previous, self, selector);
                        objc_release(self);
                        return nullptr;
                    }),
                    &previous);
    EXPECT_EQ(options(nullptr, true, nullptr), nullptr);
}

TEST_F(ModalOptions, CanBeChanged) {
    id made_of = options(nullptr, true, nullptr), delegate = made("NSObject");
    objc::send<"setModalFrame:">(made_of, CGRect{{1, 2}, {3, 4}});
    objc::send<"setCornerRadius:">(made_of, 12.5);
    objc::send<"setDelegate:">(made_of, delegate);
    objc::send<"setLightUI:">(made_of, false);
    objc::send<"setSelectButtonTitle:">(made_of, text("OK"));
    EXPECT_EQ((objc::send<"modalFrame", CGRect>(made_of)), (CGRect{{1, 2}, {3, 4}}));
    EXPECT_EQ((objc::send<"cornerRadius", double>(made_of)), 12.5);
    EXPECT_EQ((objc::send<"delegate", id>(made_of)), delegate);
    EXPECT_FALSE((objc::send<"lightUI", bool>(made_of)));
    EXPECT_EQ(utf8(objc::send<"selectButtonTitle", id>(made_of)), "OK");
}

TEST_F(ModalOptions, DoNotKeepTheirDelegate) {
    id made_of = nullptr;
    {
        objc::AutoreleasePool pool;
        made_of = objc_retain(options(made("NSObject"), true, nullptr));
    }
    EXPECT_EQ((objc::send<"delegate", id>(made_of)), nullptr);
    objc_release(made_of);
}

}  // namespace
}  // namespace test
