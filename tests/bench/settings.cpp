// What the colour picker costs: one movement of a knob against the conversions and the picture that it needs,
// and its opening against a figure in seconds.
#include "measuring/allocations.h"
#include "measuring/check.h"
#include "measuring/figure.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "platform/controls.h"
#include "support/phone.h"

namespace bench {

namespace {

id picker = nullptr;
UISlider* knob = nullptr;

/// Somewhere else each time, so that everything that shows the colour changes.
double next_value() {
    static bool far = false;
    far = !far;
    return far ? 0.75 : 0.25;
}

/// What the picker hears when a finger moves a knob: it reads four knobs, and puts four knobs, four tracks,
/// the text and the swatch to the colour.
void move() {
    knob->setValue(static_cast<float>(next_value()));
    objc::send<"sliderValueChanged">(picker);
}

/// As many conversions as the movement has: a track begins with the colour's components, four times, and the
/// text with them once more.
void convert() {
    static id tool = reinterpret_cast<id>(objc_getClass("HCCITool"));
    UIColor* colour = UIColor::colorWithRGB(next_value(), 0.4, 0.6, 1);
    constexpr int conversions = 5;
    for (int i = 0; i < conversions; ++i) objc::send<"hexStringFromColor:", NSString*>(tool, colour);
}

UIImage* swatch() {
    constexpr CGSize size{60, 60};
    UIGraphicsBeginImageContextWithOptions(size, false, 1);
    UIColor::colorWithRGB(next_value(), 0.4, 0.6, 1)->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, size});
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

void convert_and_paint() {
    convert();
    swatch();
}

void make_track() {
    id ends[2];
    for (id& end : ends)
        end = reinterpret_cast<id>(UIColor::colorWithRGB(next_value(), 0.4, 0.6, 1)->CGColor());
    NSArray::arrayWithObjects(ends, 2);
}

/// The allocations of what a movement cannot do without: four tracks, a text, the swatch and its colour.
size_t needed() {
    constexpr size_t tracks = 4;
    return tracks * allocations_of(make_track) + allocations_of([] { test::text("#BF0000"); }) +
           allocations_of(swatch);
}

/// As a run loop has them, each with a pool of its own.
void move_times(int movements) {
    for (int i = 0; i < movements; ++i) {
        objc::AutoreleasePool pool;
        move();
    }
}

std::string hex_text() { return test::utf8(objc::send<"hexTextField", UITextField*>(picker)->text()); }

void present_picker() {
    picker = objc::send<"new", id>(test::class_named("HCColorPickerController"));
    check(sim_present(picker) == SIM_OK && sim_advance_clock(2) == SIM_OK, "the picker is on the screen");
    knob = objc::send<"slider", UISlider*>(objc::send<"redSlider", id>(picker));
    check(knob, "the picker has a red knob");
    move();
    check(hex_text() == "#BF0000", "a movement changes the text");
    move();
    check(hex_text() == "#3F0000", "the next movement, too");
}

}  // namespace

void measure_opening(std::vector<Ratio>& ratios) {
    const test::Phone phone;  // a folder; the process switches it on
    const auto bundle = phone.host("/Library/PreferenceBundles/Huecraft.bundle");
    std::filesystem::create_directories(bundle);
    for (const char* icon : {"copy.png", "paste.png"})
        std::filesystem::copy(std::filesystem::path(LIBRARY_BUNDLE) / icon, bundle);
    constexpr double figure = 0.150;
    ratios.push_back(against_figure("opening the picker, processor time", figure,
                                    {HUECRAFT_PICKER_PICTURE, std::getenv("HUECRAFT_LIBRARY"),
                                     phone.host("/").string(), phone.host("/picker.png").string()}));
    check(std::filesystem::file_size(phone.host("/picker.png")) > 10'000, "there is a picture of the picker");
}

void measure_picker(std::vector<Ratio>& ratios) {
    present_picker();
    constexpr double limit = 8;
    Ratio movement = compared({.what = "moving a knob of the picker",
                               .against = "five conversions by HCCITool, and the swatch by hand",
                               .limit = limit},
                              calls_of<move>, calls_of<convert_and_paint>);
    movement.counted = {"allocations", allocations_of(move), needed()};
    ratios.push_back(movement);

    constexpr int at_once = 100, times = 100;
    move_times(at_once);
    std::vector<double> costs(times - 1);
    const size_t live_then = live_allocations();
    for (double& cost : costs) {
        const double before = processor_seconds();
        move_times(at_once);
        cost = (processor_seconds() - before) / at_once;
    }
    const size_t live = live_allocations();
    ratios.push_back({.what = "  10,000 movements, each",
                      .against = "moving it",
                      .cost = undisturbed(costs),
                      .cost_against = movement.cost,
                      .counted = Counted{"more allocations live than after 100",
                                         live > live_then ? live - live_then : 0, 0}});
}

}  // namespace bench
