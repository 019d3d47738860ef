// Backdrops under a theme's background: what the tests of them share.
#pragma once
#include "platform/keyboard.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {

class Background : public testing::Test {
  protected:
    static constexpr const char* half_red = "<string>#FF000080</string>";
    static constexpr const char* red_and_blue = "<string>#FF0000</string><string>#0000FF</string>";

    /// Starts with a theme of the type, whose colours are XML strings.
    void start(const char* type, const char* colours, const std::string& more = "") {
        arrange_theme_of(phone, std::string("<key>_BackgroundType</key><integer>") + type +
                                    "</integer><key>_Colors</key><array>" + colours + "</array>" + more);
        phone.boot();
        before_load();
        phone.load();
    }
    virtual void before_load() {}
    /// Passes on each backdrop of the class when the system has initialised it; for `before_load`.
    template <auto initialised>
    static void watch_initialising(const char* class_name) {
        static IMP previous;
        previous =
            stand_in(class_name,
                     "initWithFrame:style:", [](id self, SEL selector, CGRect frame, NSInteger style) -> id {
                         id made = call<id>(previous, self, selector, frame, style);
                         initialised(static_cast<UIKBBackdropView*>(made), frame, style);
                         return made;
                     });
    }

    static void set_type(NSUInteger type) { objc::send<"setBackgroundType:">(active_theme(), type); }

    static id styled(const char* class_name) {
        return made<"initWithFrame:style:">(class_name, CGRect{{0, 0}, {375, 216}}, NSInteger{2});
    }
    static UIKBBackdropView* backdrop() { return static_cast<UIKBBackdropView*>(styled("UIKBBackdropView")); }
    static UIKBVisualEffectView* effect() {
        return static_cast<UIKBVisualEffectView*>(styled("UIKBVisualEffectView"));
    }
    /// That was never split: with the full piece alone, which nobody has fetched yet.
    static UIKBInputBackdropView* unsplit_input() {
        return static_cast<UIKBInputBackdropView*>(
            made<"initWithFrame:">("UIKBInputBackdropView", CGRect{{0, 0}, {375, 216}}));
    }
    /// With all three pieces, the full one shown.
    static UIKBInputBackdropView* input() {
        constexpr CGRect whole{{0, 0}, {375, 216}}, left{{0, 0}, {150, 216}}, right{{225, 0}, {150, 216}};
        auto* view = unsplit_input();
        view->layoutToSplit(left, right, 0);
        view->layoutToFull(whole);
        return view;
    }

    static std::string class_of(id object) { return object ? object_getClassName(object) : "nil"; }
    /// The view that the backdrop has, which is in its place.
    static UIView* expect_installed(UIKBBackdropView* owner) {
        UIView* themed = owner->activeBackgroundView();
        EXPECT_NE(themed, nullptr);
        EXPECT_EQ(themed->superview(), owner->contentView());
        EXPECT_EQ(themed->autoresizingMask(), 18u);
        return themed;
    }
    /// The system puts nothing into a content view by itself.
    static void expect_no_themed_view(UIKBBackdropView* owner) {
        EXPECT_EQ(owner->activeBackgroundView(), nullptr);
        EXPECT_EQ(owner->contentView()->subviews()->count(), 0u);
    }
    static Rgba colour_in(UIView* coloured_backdrop) {
        return rgba(variable<UIView*>(coloured_backdrop, "colouredView")->backgroundColor());
    }

    Phone phone;
};

}  // namespace test
