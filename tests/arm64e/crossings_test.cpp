// Every address of a function that crosses between the library and the system of an arm64e process.
#include <cstdlib>

#include "hooks/hook_rows.h"
#include "hooks/row_probes.h"
#include "platform/controls.h"
#include "support/phone.h"
#include "support/runtime.h"
#include "support/themes.h"

extern "C" {
void* _Block_copy(const void*);
void _Block_release(const void*);
}

namespace test {
namespace {

class Crossings : public testing::Test {
  protected:
    void start(Phone::Options options) {
        arrange_theme(phone);
        options.executable = springboard;
        phone.start(options);
    }

    /// Uses each of them: replacements, added methods and what they replaced; the replaced function; what
    /// runs once; a block, its copy, and the end of that.
    void use_all() {
        ASSERT_EQ(installed_rows().size(), 45u);
        for (const auto& [row, probe] : row_probes()) EXPECT_TRUE(probe.shows_the_theme()) << row;

        objc::send<"applicationDidFinishLaunching:">(made("SpringBoard"), id{});

        sim_colour colour{};
        ASSERT_EQ(sim_named_colour("UIKBColorText", &colour), SIM_OK) << sim_last_error();
        EXPECT_EQ(colour.components[1], 1.0) << "the theme's, by the replacement";
        ASSERT_EQ(sim_named_colour("UIKBColorBlack_Alpha60", &colour), SIM_OK) << sim_last_error();
        EXPECT_NE(colour.model, SIM_COLOUR_NONE) << "the system's, by what was replaced";

        for (const char* once : {"HCPreferences", "HCPreview"})
            EXPECT_NE((objc::send<"sharedInstance", id>(class_named(once))), nullptr) << once;

        animate = stand_in("UIView", spring, copying_its_blocks, Side::on_class);
        auto* picker = static_cast<UIViewController*>(made("HCColorPickerController"));
        ASSERT_EQ(sim_show_view(picker->view()), SIM_OK) << sim_last_error();
        picker->send<"viewDidAppear:">(false);
        ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
        use_what_is_rarely_asked();
    }

    /// What was replaced, where the theme has no say: an emoji's colour, and named colours once theming is
    /// off.
    static void use_what_is_rarely_asked() {
        stand_in("UIKBTextStyle", "fontName", [](id, SEL) -> id { return text("AppleColorEmoji"); });
        EXPECT_NE((objc::send<"textColor", id>(made("UIKBTextStyle"))), text("UIKBColorText"));
        stand_in("HCPreferences", "isEnabled", [](id, SEL) -> int { return 0; });
        sim_colour colour{};
        ASSERT_EQ(sim_named_colour("UIKBColorText", &colour), SIM_OK) << sim_last_error();
        EXPECT_EQ(colour.model, SIM_COLOUR_NONE);
    }

    /// A system may copy either block; the model's runs the first at once.
    static void copying_its_blocks(id self, SEL selector, double duration, double delay, double damping,
                                   double velocity, NSUInteger options, id animations, id completion) {
        for (id block : {animations, completion}) _Block_release(_Block_copy(block));
        call(animate, self, selector, duration, delay, damping, velocity, options, animations, completion);
    }

    static constexpr const char* spring =
        "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:"
        "completion:";
    static inline IMP animate = nullptr;
    Phone phone;
};

TEST_F(Crossings, AllAreSignedForAFrameworkThatWantsIt) {
    start({.injection = SIM_INJECTION_LENIENT});
    use_all();
}

TEST_F(Crossings, AFrameworkThatStripsIsServedAsWell) {
    start({.injection = SIM_INJECTION_CLEARING});
    use_all();
}

TEST_F(Crossings, EveryMethodOfTheLibraryIsAuthentic) {
    start({});
    size_t classes = 0;
    while (sim_class_name(phone.loaded_library(), classes)) ++classes;
    EXPECT_EQ(classes, 15u) << "the loader authenticates each implementation before it registers a class";
}

TEST_F(Crossings, WithAnswersThatAreNotSignedNothingIsTouched) {
    start({.unsigned_answers = true});
    EXPECT_EQ(installed_rows(), Rows{});
}

TEST_F(Crossings, WithThemingOffTheFunctionIsLeftAlone) {
    arrange_theme(phone, false);
    phone.start({.executable = springboard});
    EXPECT_EQ(installed_rows(), cache_rows);
}

}  // namespace
}  // namespace test
