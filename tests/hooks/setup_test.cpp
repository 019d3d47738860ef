// The set-up initializer: which process gets which hooks, and the keyboard cache.
#include <array>

#include "platform/substrate.h"
#include "support/themes.h"

namespace test {
namespace {

constexpr const char* springboard = "/System/Library/CoreServices/SpringBoard.app/SpringBoard";
constexpr const char* daemon_path = "/usr/libexec/keyboardd";
constexpr const char* cache_folder = "/var/mobile/Library/Caches/com.apple.keyboards";

using Rows = std::vector<std::string>;

const Rows render_factory_rows{
    "-[UIKBRenderFactory controlKeyShadowColorName]",
    "-[UIKBRenderFactory defaultKeyShadowColorName]",
    "-[UIKBRenderFactory controlKeyForegroundColorName]",
    "-[UIKBRenderFactory _controlKeyBackgroundColorName]",
    "-[UIKBRenderFactory controlKeyBackgroundColorName]",
    "-[UIKBRenderFactory defaultKeyBackgroundColorName]",
};

const Rows rows_from_8{
    "-[UIKBBlurredKeyView initWithFrame:keyplane:key:]",
    "-[UIInputSwitcherTableView layoutSubviews]",
    "-[UIInputSwitcherTableCell initWithStyle:reuseIdentifier:]",
    "-[UIInputSwitcherTableCellSegmentView layoutSubviews]",
    "-[UIKeyboardEmojiSectionHeader setHeaderTextColor:]",
    "-[UIKeyboardEmojiSectionHeader setHeaderOpacity:]",
    "-[UIKeyboardEmojiSectionHeader headerTextColor]",
    "-[UIKeyboardEmojiSectionHeader headerOpacity]",
    "-[UIKeyboardEmojiSectionHeader setUseVibrantBlend:]",
    "-[UIKeyboardEmojiSectionHeader useVibrantBlend]",
    "-[UIKeyboardEmojiCategoryBar displayLayer:]",
    "-[UIKeyboardPredictionCell textColor]",
    "-[UIKeyboardPredictionCell layoutSubviews]",
    "-[UIKeyboardDockItemButton layoutSubviews]",
    "-[UIKBBackdropView initWithFrame:style:]",
    "-[UIKBBackdropView activeBackgroundView] added as @@:",
    "-[UIKBBackdropView setActiveBackgroundView:] added as v@:@",
    "-[UIKBVisualEffectView initWithFrame:style:]",
    "-[UIKBInputBackdropView inputBackdropFullView]",
    "-[UIKBInputBackdropView inputBackdropLeftView]",
    "-[UIKBInputBackdropView inputBackdropRightView]",
    "-[UIKBInputBackdropView layoutSubviews]",
    "-[UIKBInputBackdropView removeKBBackdropEffects:] added as v@:@",
    "-[UIKBTextStyle textColor]",
    "+[UIKBRenderConfig backdropStyleForStyle:quality:]",
    "-[UIKBRenderConfig lightKeyboard]",
    "+[UIKBGradient gradientWithFlatColor:]",
    "+[UIKBGradient gradientWithName:]",
    "-[UIKBGradient initWithFlatColor:]",
    "-[UIKBGradient initWithName:]",
    "-[UIWebFormAccessory layoutSubviews]",
    "-[UIKBEdgeEffect edges]",
    "+[UIKBEdgeEffect effectWithColor:edges:inset:weight:]",
    "+[UIKBEdgeEffect effectWithColor:edges:insets:weight:]",
    "-[UIKBEdgeEffect initWithColor:edges:insets:weight:]",
    "+[UIKBShadowEffect effectWithColor:offset:insets:weight:]",
    "-[UIKBShadowEffect initWithColor:offset:insets:weight:]",
};

const std::string named_colour_row = "function UIKBGetNamedColor";
const std::string springboard_row = "-[SpringBoard applicationDidFinishLaunching:]";
const std::string springboard_row_without_class = "-[nil applicationDidFinishLaunching:]";

Rows joined(std::initializer_list<Rows> parts) {
    Rows all;
    for (const Rows& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

class Setup : public testing::Test {
  protected:
    Phone phone;
};

TEST_F(Setup, AnApplicationGetsTheWholeTableInOrder) {
    arrange_theme(phone);
    phone.start();
    EXPECT_EQ(
        installed_rows(),
        joined({{springboard_row_without_class}, render_factory_rows, rows_from_8, {named_colour_row}}));
}

TEST_F(Setup, TheTableHas44Rows) {
    arrange_theme(phone);
    phone.start({.executable = springboard});
    EXPECT_EQ(installed_rows().size(), 44u + 1u);
}

TEST_F(Setup, SpringBoardGetsTheCacheRowAndTheWholeTable) {
    arrange_theme(phone);
    phone.start({.executable = springboard});
    EXPECT_EQ(installed_rows(),
              joined({{springboard_row}, render_factory_rows, rows_from_8, {named_colour_row}}));
}

TEST_F(Setup, AnInstalledApplicationQualifiesByItsContainer) {
    arrange_theme(phone);
    phone.start({.executable = "/var/containers/Bundle/Application/0A1B2C/Game.app/Game"});
    EXPECT_EQ(installed_rows().size(), 45u);
}

TEST_F(Setup, VisibleCapsLeaveOutExactlyTheRenderFactory) {
    arrange_theme(phone, true, "<key>_VisibleKeycaps</key><true/>");
    phone.start();
    EXPECT_EQ(installed_rows(), joined({{springboard_row_without_class}, rows_from_8, {named_colour_row}}));
}

TEST_F(Setup, DisabledInstallsTheCacheRowAndTheNamedColoursOnly) {
    arrange_theme(phone, false);
    phone.start();
    EXPECT_EQ(installed_rows(), (Rows{springboard_row_without_class, named_colour_row}));
}

TEST_F(Setup, WithoutPreferencesOnlyTheSame) {
    phone.start();
    EXPECT_EQ(installed_rows(), (Rows{springboard_row_without_class, named_colour_row}));
}

TEST_F(Setup, ADaemonGetsTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.executable = daemon_path});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, AnEmptyArgumentVectorGetsTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.arguments = SIM_ARGUMENTS_NONE});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, ANilFirstArgumentGetsTheNamedColoursOnly) {
    arrange_theme(phone);
    phone.start({.arguments = SIM_ARGUMENTS_NIL});
    EXPECT_EQ(installed_rows(), Rows{named_colour_row});
}

TEST_F(Setup, EveryRowTakesEffectWhereItsClassExists) {
    arrange_theme(phone);
    phone.start({.executable = springboard});
    for (size_t i = 0; i < sim_installing_call_count(); ++i) {
        sim_installing_call call;
        ASSERT_EQ(sim_installing_call_at(i, &call), SIM_OK);
        EXPECT_TRUE(call.took_effect) << installed_rows()[i];
    }
}

TEST_F(Setup, AMissingClassMakesItsRowsDoNothing) {
    arrange_theme(phone);
    phone.start({.left_out = {"UIKBGradient", "UIKBEdgeEffect", "UIKBBackdropView"}});
    Rows expected =
        joined({{springboard_row_without_class}, render_factory_rows, rows_from_8, {named_colour_row}});
    EXPECT_EQ(installed_rows().size(), expected.size()) << "the calls are made all the same";
    EXPECT_EQ(objc_getClass("UIKBGradient"), nullptr);
    auto factory = made("UIKBRenderFactory");
    EXPECT_EQ(utf8(objc::send<"defaultKeyBackgroundColorName", NSString*>(factory)), "UIKBColorClear")
        << "and the other rows are at work";
}

TEST_F(Setup, AnInheritedMethodIsReplacedForTheNamedClassOnly) {
    arrange_theme(phone);
    phone.boot();
    auto layout_of = [](const char* name) {
        return class_getMethodImplementation(objc_getClass(name), sel_registerName("layoutSubviews"));
    };
    const IMP of_every_view = layout_of("UIView");
    phone.load();
    EXPECT_EQ(layout_of("UIView"), of_every_view);
    EXPECT_NE(layout_of("UIKeyboardDockItemButton"), of_every_view);
}

TEST_F(Setup, DisabledLeavesTheKeyboardClassesAsTheyWere) {
    arrange_theme(phone, false);
    phone.boot();
    std::array<Method, 2> before{
        class_getInstanceMethod(objc_getClass("UIKBTextStyle"), sel_registerName("textColor")),
        class_getInstanceMethod(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges"))};
    std::array<IMP, 2> implementations{method_getImplementation(before[0]),
                                       method_getImplementation(before[1])};
    phone.load();
    EXPECT_EQ(class_getMethodImplementation(objc_getClass("UIKBTextStyle"), sel_registerName("textColor")),
              implementations[0]);
    EXPECT_EQ(class_getMethodImplementation(objc_getClass("UIKBEdgeEffect"), sel_registerName("edges")),
              implementations[1]);
    EXPECT_FALSE(class_respondsToSelector(objc_getClass("UIKBBackdropView"),
                                          sel_registerName("activeBackgroundView")));
}

TEST_F(Setup, PreferencesChangedLaterInstallNothing) {
    phone.start();
    const size_t before = sim_installing_call_count();
    arrange_theme(phone);
    auto style = made("UIKBTextStyle");
    objc::send<"textColor", id>(style);
    EXPECT_EQ(sim_installing_call_count(), before);
}

TEST_F(Setup, TheActiveBackgroundViewIsHeldStronglyAndCleared) {
    arrange_theme(phone);
    phone.start();
    id backdrop = made<"initWithFrame:style:">("UIKBBackdropView", CGRect{{0, 0}, {10, 10}}, NSInteger{2});
    auto view = objc::strong<UIView>::adopt(objc::send<"new", UIView*>(class_named("UIView")));
    const auto before = view->send<"retainCount", NSUInteger>();
    objc::send<"setActiveBackgroundView:">(backdrop, view.get());
    EXPECT_EQ((view->send<"retainCount", NSUInteger>()), before + 1);
    EXPECT_EQ((objc::send<"activeBackgroundView", UIView*>(backdrop)), view.get());
    objc::send<"setActiveBackgroundView:">(backdrop, id{});
    EXPECT_EQ((objc::send<"activeBackgroundView", UIView*>(backdrop)), nullptr);
}

TEST_F(Setup, AddedMethodsDoNotReplaceExistingOnes) {
    arrange_theme(phone);
    phone.boot();
    static UIView* own = nullptr;
    own = static_cast<UIView*>(made("UIView"));
    class_addMethod(objc_getClass("UIKBBackdropView"), sel_registerName("activeBackgroundView"),
                    reinterpret_cast<IMP>(+[](id, SEL) -> id { return own; }), "@@:");
    phone.load();
    id backdrop = made<"initWithFrame:style:">("UIKBBackdropView", CGRect{{0, 0}, {10, 10}}, NSInteger{2});
    EXPECT_EQ((objc::send<"activeBackgroundView", UIView*>(backdrop)), own);
}

class KeyboardCache : public Setup {
  protected:
    void launch_springboard() {
        phone.start({.executable = springboard});
        objc::send<"applicationDidFinishLaunching:">(made("SpringBoard"), id{});
    }
};

TEST_F(KeyboardCache, IsRemovedAfterLaunch) {
    phone.write(std::string(cache_folder) + "/en/a.png", "picture");
    launch_springboard();
    EXPECT_FALSE(phone.exists(cache_folder));
    EXPECT_TRUE(phone.exists("/var/mobile/Library/Caches")) << "and nothing beside it";
}

TEST_F(KeyboardCache, IsRemovedWithThemingOffToo) {
    arrange_theme(phone, false);
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    launch_springboard();
    EXPECT_FALSE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, APlainFileOfItsNameIsLeftAlone) {
    phone.write(cache_folder, "a file");
    launch_springboard();
    EXPECT_EQ(phone.read(cache_folder), "a file");
}

TEST_F(KeyboardCache, NothingHappensWithoutOne) {
    launch_springboard();
    EXPECT_FALSE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, StaysUntilTheLaunchIsDone) {
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    phone.start({.executable = springboard});
    EXPECT_TRUE(phone.exists(cache_folder));
}

TEST_F(KeyboardCache, TheSystemsOwnLaunchRunsFirstWithTheSameArgument) {
    static bool cache_was_there = false;
    static id argument = nullptr;
    static const Phone* of_test = nullptr;
    of_test = &phone;
    phone.write(std::string(cache_folder) + "/a.png", "picture");
    phone.boot({.executable = springboard});
    MSHookMessageEx(objc_getClass("SpringBoard"), sel_registerName("applicationDidFinishLaunching:"),
                    reinterpret_cast<IMP>(+[](id, SEL, id application) {
                        argument = application;
                        cache_was_there = of_test->exists(cache_folder);
                    }),
                    nullptr);
    phone.load();
    id application = text("application");
    objc::send<"applicationDidFinishLaunching:">(made("SpringBoard"), application);
    EXPECT_EQ(argument, application);
    EXPECT_TRUE(cache_was_there);
    EXPECT_FALSE(phone.exists(cache_folder));
}

}  // namespace
}  // namespace test
