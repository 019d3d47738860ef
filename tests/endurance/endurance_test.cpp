// The same over and over in one process: what it holds stays the same. ./dev endure does it for long.
//
// The C library counts blocks that were freed and that it keeps for the thread as held: it is set to keep
// none (GLIBC_TUNABLES, in CMakeLists.txt and ./dev).
#include <cstdlib>

#include "plot.h"
#include "settings_page.h"
#include "support/configuration.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

/// What a repetition may keep, in bytes: no allocation is so small.
constexpr double allowed_growth = 16;
/// What tables may grow by that are filled once, in a whole run.
constexpr double settling = 20000;

size_t number_from(const char* variable, size_t otherwise) {
    const char* given = std::getenv(variable);
    return given ? std::strtoul(given, nullptr, 10) : otherwise;
}

/// Repeats the work: HUECRAFT_ENDURE times, a tenth or a hundredth of them for what takes longer. Judges, and
/// writes the figures into HUECRAFT_ENDURE_FIGURES where it is set.
void endure(const std::string& name, size_t part, size_t at_least, const std::function<void(size_t)>& work) {
    const size_t count = std::max(number_from("HUECRAFT_ENDURE", 0) / part, at_least);
    const size_t step = std::clamp<size_t>(count / 40, 1, 1000);
    std::vector<Sample> samples;
    // What is made once is there after some.
    for (size_t i = 1; i <= count; ++i) {
        {
            objc::AutoreleasePool pool;
            work(i);
        }
        if (testing::Test::HasFailure()) FAIL() << "after " << i << " repetitions";
        if (i % step == 0) samples.push_back(sample_now(i));
    }
    const double grown = growth(samples);
    std::printf("%s: %zu times, %zu bytes at the end, %.2f more each time, %zu descriptors\n", name.c_str(),
                count, samples.back().bytes, grown, samples.back().descriptors);
    if (const char* folder = std::getenv("HUECRAFT_ENDURE_FIGURES")) write_figures(folder, name, samples);
    EXPECT_LT(grown, allowed_growth + settling / static_cast<double>(count)) << "bytes kept each time";
    EXPECT_EQ(samples.back().descriptors, samples[samples.size() / 4].descriptors);
}

TEST(Endurance, AKeyboardAppearsInChangingThemes) {
    const Phone phone;
    arrange_theme(phone);
    const_cast<Phone&>(phone).start();
    UIImage* image = filled_image(color(0.1, 0.2, 0.3), 40, 30);
    const id colours[] = {color(1, 0, 0), color(0, 0, 1, 0.5)};
    NSArray* two = NSArray::arrayWithObjects(colours, 2);
    endure("appearances", 1, 2000, [&](size_t number) {
        const id theme = active_theme();
        recolour_theme(color(static_cast<double>(number % 2), 0.5, 0),
                       color(0, static_cast<double>(number % 3) / 2, 1));
        objc::send<"setBackgroundType:">(theme, NSUInteger{number % 4});
        objc::send<"setGradientDirection:">(theme, NSUInteger{number % 9});
        objc::send<"setColors:">(theme, two);
        if (number % 16 == 3) objc::send<"setImageData:">(theme, image);
        ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    });
}

void note_nothing(id, SEL, id, id) {}

TEST(Endurance, APickerIsPresentedAndColoursAreChosen) {
    const Phone phone;
    const_cast<Phone&>(phone).start();
    phone.make_folder("/var/mobile/Library/Preferences");
    Class type = objc_allocateClassPair(objc_getClass("NSObject"), "EnduringDelegate", 0);
    class_addMethod(type, sel_registerName("colorPickerReturnedWithColor:andHexString:"),
                    reinterpret_cast<IMP>(note_nothing), "v@:@@");
    objc_registerClassPair(type);
    const id delegate = made("EnduringDelegate");
    const auto recent = phone.host("/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist");
    endure("sittings", 10, 100, [&](size_t number) {
        std::filesystem::remove(recent);  // a list that came from the file cannot be added to
        const id picker = made("HCColorPickerController");
        objc::send<"setDelegate:">(picker, delegate);
        ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
        ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
        objc::send<"updateToColor:">(picker, color(static_cast<double>(number % 2), 0.5, 0));
        ASSERT_EQ(sim_tap_label("SELECT"), SIM_OK) << sim_last_error();
        ASSERT_EQ(sim_advance_clock(2), SIM_OK) << sim_last_error();
        void* presented = nullptr;
        ASSERT_EQ(sim_presented(&presented), SIM_OK) << sim_last_error();
        ASSERT_EQ(presented, nullptr);
        ASSERT_TRUE(std::filesystem::exists(recent));
    });
}

class PaneEndurance : public SettingsPage {};

TEST_F(PaneEndurance, ThePaneIsOpened) {
    arrange_theme(phone);
    open();
    endure("openings", 100, 40, [&](size_t) {
        ASSERT_EQ(sim_open_settings(), SIM_OK) << sim_last_error();
        tap("Huecraft");
        ASSERT_STREQ(object_getClassName(page()), "HuecraftSettingsController");
    });
}

// The address sanitizer's allocator does not say what is allocated; there the leak checker judges.
#if !__has_feature(address_sanitizer)
TEST(EnduranceFigures, WhatIsKeptEachTimeIsSeen) {
    std::vector<Sample> flat, leaking;
    std::vector<void*> kept;
    for (size_t i = 1; i <= 400; ++i) {
        flat.push_back(sample_now(i));
        flat.back().bytes = 1000000 + i % 7;
    }
    for (size_t i = 1; i <= 400; ++i) {
        kept.push_back(std::malloc(24));
        leaking.push_back(sample_now(i));
    }
    for (void* each : kept) std::free(each);
    EXPECT_LT(growth(flat), 1);
    EXPECT_GT(growth(leaking), allowed_growth);
}
#endif

}  // namespace
}  // namespace test
