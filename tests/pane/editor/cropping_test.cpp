// What a photo is cropped to: the keyboard shows what the window showed, however fingers moved it.
#include <algorithm>
#include <cmath>

#include "editor/editor_page.h"
#include "platform/owned_graphics.h"

namespace test {
namespace {

/// The place of each pixel is its colour: red from the left to the right, green from the top to the bottom.
constexpr size_t photo_width = 256, photo_height = 128;

std::string photo_of_places() {
    std::vector<uint8_t> pixels;
    for (size_t y = 0; y < photo_height; ++y)
        for (size_t x = 0; x < photo_width; ++x)
            for (const size_t component : {x, 2 * y, size_t{0}, size_t{255}})
                pixels.push_back(static_cast<uint8_t>(component));
    const cg::owned space(CGColorSpaceCreateDeviceRGB());
    const cg::owned context(CGBitmapContextCreate(pixels.data(), photo_width, photo_height, 8,
                                                  photo_width * 4, space,
                                                  kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big));
    CGImageRef image = CGBitmapContextCreateImage(context);
    NSData* data = UIImagePNGRepresentation(UIImage::imageWithCGImage(image));
    CGImageRelease(image);
    return {static_cast<const char*>(data->bytes()), data->length()};
}

class Cropping : public EditorPage {
  protected:
    void open_map(Phone::Options options = {}) {
        edit(0, own_section, options);
        phone.write("/var/mobile/Media/DCIM/100APPLE/map.png", photo_of_places());
        choose_kind(image_kind);
        choose_row(1, background_section);
        tap("map.png");
        ASSERT_TRUE(is_on_screen("Crop"));
    }
    static UIImageView* shown() {
        return static_cast<UIImageView*>(static_cast<id>(photo_window()->subviews()->objectAtIndex(0)));
    }
    static UIView* shade() { return static_cast<UIView*>(photo_window()->subviews()->objectAtIndex(1)); }
    static CGRect frame() { return shown()->frame(); }
    static UISlider* slider() { return static_cast<UISlider*>(static_cast<id>(first("UISlider"))); }
    static void zoom(float to) {
        slider()->setValue(to);
        slider()->sendActionsForControlEvents(UIControlEventValueChanged);
    }
    /// A gesture begins where a finger has moved a little; what it moves after that counts.
    static void drag(double across, double down) {
        const CGRect place = photo_window()->convertRectToView(photo_window()->bounds(), nullptr);
        const double x = place.origin.x + place.size.width / 2, y = place.origin.y + place.size.height / 2;
        ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, x, y), SIM_OK);
        ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x + across / 2, y + down / 2), SIM_OK);
        ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x + across, y + down), SIM_OK);
        ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, x + across, y + down), SIM_OK);
    }
    static void pinch(double from, double to) {
        const CGRect place = photo_window()->convertRectToView(photo_window()->bounds(), nullptr);
        const double x = place.origin.x + place.size.width / 2, y = place.origin.y + place.size.height / 2;
        const auto touch = [&](int phase, double apart) {
            ASSERT_EQ(sim_touch_two(phase, x - apart / 2, y, x + apart / 2, y), SIM_OK);
        };
        touch(SIM_TOUCH_BEGAN, from);
        for (int step = 1; step <= 4; ++step) touch(SIM_TOUCH_MOVED, from + (to - from) * step / 4);
        touch(SIM_TOUCH_ENDED, to);
    }
    /// Takes the photo, saves, and compares.
    void expect_that_what_is_shown_is_kept() {
        const CGRect photo = frame();
        const CGSize seen = photo_window()->bounds().size;
        tap("Use Photo");
        tap("Save");
        UIImage* kept = stored();
        ASSERT_NE(kept, nullptr);
        const CGSize all = kept->size();
        for (const double across : {0.05, 0.5, 0.95})
            for (const double down : {0.05, 0.5, 0.95}) {
                const Rgba colour = pixel_of(kept, across * all.width, down * all.height);
                constexpr double blurred = 0.012;  // three steps: the photo is enlarged
                EXPECT_NEAR(colour.red, (across * seen.width - photo.origin.x) / photo.size.width, blurred)
                    << across << ", " << down;
                EXPECT_NEAR(colour.green, (down * seen.height - photo.origin.y) / photo.size.height, blurred)
                    << across << ", " << down;
                EXPECT_EQ(colour.alpha, 1) << across << ", " << down;
            }
    }
};

TEST_F(Cropping, BeginsInTheMiddleWithAllThatFits) {
    open_map();
    const CGSize seen = photo_window()->bounds().size;
    EXPECT_NEAR(frame().size.height, seen.height, 0.01);
    EXPECT_NEAR(frame().size.width, seen.height * 2, 0.01);
    EXPECT_NEAR(frame().origin.x, (seen.width - frame().size.width) / 2, 0.01);
    EXPECT_NEAR(frame().origin.y, 0, 0.01);
    expect_that_what_is_shown_is_kept();
}

TEST_F(Cropping, KeepsWhatWasMovedIntoTheWindow) {
    open_map();
    zoom(2.5f);
    drag(60, 44);
    expect_that_what_is_shown_is_kept();
}

TEST_F(Cropping, KeepsWhatIsAtTheEdges) {
    open_map();
    zoom(1.5f);
    for (int i = 0; i < 4; ++i) drag(-140, -80);
    expect_that_what_is_shown_is_kept();
}

TEST_F(Cropping, ThePhotoFollowsTheFinger) {
    open_map();
    zoom(3);
    const CGRect place = photo_window()->convertRectToView(photo_window()->bounds(), nullptr);
    const double x = place.origin.x + place.size.width / 2, y = place.origin.y + place.size.height / 2;
    ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, x, y), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x + 20, y), SIM_OK);
    const CGRect before = frame();
    ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x + 50, y - 24), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, x + 45, y - 31), SIM_OK);
    ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, x + 45, y - 31), SIM_OK);
    EXPECT_NEAR(frame().origin.x, before.origin.x + 25, 0.01);
    EXPECT_NEAR(frame().origin.y, before.origin.y - 31, 0.01);
    EXPECT_EQ(frame().size, before.size);
}

TEST_F(Cropping, NoEdgeComesIntoTheWindow) {
    open_map();
    const CGSize seen = photo_window()->bounds().size;
    zoom(1.5f);
    const double right = seen.width - frame().size.width, bottom = seen.height - frame().size.height;
    for (const auto& [across, down, x, y] : {std::tuple{140.0, 80.0, 0.0, 0.0},
                                             {-140.0, 80.0, right, 0.0},
                                             {-140.0, -80.0, right, bottom},
                                             {140.0, -80.0, 0.0, bottom}}) {
        for (int i = 0; i < 6; ++i) drag(across, down);
        EXPECT_NEAR(frame().origin.x, x, 0.01);
        EXPECT_NEAR(frame().origin.y, y, 0.01);
    }
    // In the corner it is made smaller: it goes on filling the window.
    zoom(1);
    EXPECT_NEAR(frame().origin.y, 0, 0.01);
    EXPECT_LE(frame().origin.x, 0);
    EXPECT_GE(frame().origin.x + frame().size.width, seen.width - 0.01);
}

TEST_F(Cropping, IsEnlargedToFiveTimes) {
    open_map();
    const double width = frame().size.width;
    EXPECT_EQ(slider()->minimumValue(), 1);
    EXPECT_EQ(slider()->maximumValue(), 5);
    EXPECT_EQ(slider()->value(), 1);
    zoom(4);
    EXPECT_NEAR(frame().size.width, 4 * width, 0.01);
    for (int i = 0; i < 3; ++i) pinch(40, 160);
    EXPECT_NEAR(frame().size.width, 5 * width, 0.01);
    EXPECT_EQ(slider()->value(), 5);
    for (int i = 0; i < 4; ++i) pinch(160, 40);
    EXPECT_NEAR(frame().size.width, width, 0.01) << "not less than fills the window";
    EXPECT_EQ(slider()->value(), 1);
}

TEST_F(Cropping, ShowsHowDarkItWillBe) {
    open_map();
    EXPECT_TRUE(shade()->isHidden());
    turn_on("Dim");
    EXPECT_FALSE(shade()->isHidden());
    EXPECT_EQ(shade()->frame().size, photo_window()->bounds().size);
    EXPECT_EQ(rgba(static_cast<id>(shade()->backgroundColor())), (Rgba{0, 0, 0, 0.4}));
}

TEST_F(Cropping, DimmedIsDarkerAndAsSharp) {
    open_map();
    turn_on("Dim");
    tap("Use Photo");
    tap("Save");
    const CGSize all = stored()->size();
    // In the middle of the photo both components are a half.
    const Rgba middle = pixel_of(stored(), all.width / 2, all.height / 2);
    EXPECT_NEAR(middle.red, 0.5 * 0.6, 0.012);
    EXPECT_NEAR(middle.green, 0.5 * 0.6, 0.012);
}

TEST_F(Cropping, BlurredIsShownAndKept) {
    open_map();
    UIImage* sharp = shown()->image();
    turn_on("Blur");
    UIImage* soft = shown()->image();
    EXPECT_NE(soft, sharp);
    EXPECT_EQ(soft->size(), sharp->size());
    ASSERT_EQ(sim_warn_of_memory(), SIM_OK);
    tap("Use Photo");
    tap("Save");
    // The ramp goes on to the photo's edge where it is sharp.
    EXPECT_GT(pixel_of(stored(), stored()->size().width / 2, 1).green, 0.02);
}

TEST_F(Cropping, HeldAcrossTheWindowTakesWhatTheRowsLeave) {
    open_map({.screen_width = 568, .screen_height = 320, .screen_scale = 2});
    UIView* page = slider()->superview();
    const CGRect seen = photo_window()->frame();
    constexpr double rows = 3 * 52, margins = 2 * 16;
    EXPECT_EQ(seen.origin.y, 16);
    EXPECT_NEAR(seen.size.height, std::max(60.0, page->bounds().size.height - rows - margins), 0.01);
    EXPECT_NEAR(seen.origin.x + seen.size.width / 2, page->bounds().size.width / 2, 0.01) << "in the middle";
    NSArray* all = page->subviews();
    for (NSUInteger i = 0; i < all->count(); ++i) {
        const CGRect place = static_cast<UIView*>(all->objectAtIndex(i))->frame();
        EXPECT_LE(place.origin.y + place.size.height, page->bounds().size.height);
    }
}

TEST_F(Cropping, TheSampleOfTheAlphaShowsAllOfTheImage) {
    open_map();
    zoom(1.001f);
    tap("Use Photo");
    UIView* page =
        static_cast<UIView*>(cell(3, background_section)->contentView()->subviews()->objectAtIndex(0));
    auto* sample = static_cast<NSObject*>(page->subviews()->lastObject());
    ASSERT_STREQ(object_getClassName(sample), "HCImageView");
    UIImage* small = sample->send<"imageView", UIImageView*>()->image();
    const CGSize all = small->size();
    EXPECT_EQ(all, (CGSize{150, 84}));
    tap("Save");
    for (const double across : {0.0, 0.5, 1.0})
        for (const double down : {0.0, 0.5, 1.0}) {
            const double x = across * (all.width - 1), y = down * (all.height - 1);
            const Rgba seen = pixel_of(small, x, y);
            const Rgba expected = pixel_of(stored(), across * (stored()->size().width - 1),
                                           down * (stored()->size().height - 1));
            EXPECT_EQ(seen.alpha, 1) << across << ", " << down;
            EXPECT_NEAR(seen.red, expected.red, 0.02) << across << ", " << down;
            EXPECT_NEAR(seen.green, expected.green, 0.02) << across << ", " << down;
        }
}

class CroppingMirrored : public Cropping, public testing::WithParamInterface<bool> {};
INSTANTIATE_TEST_SUITE_P(, CroppingMirrored, testing::Bool());

TEST_P(CroppingMirrored, LabelsStandWhereLinesBegin) {
    open_map({.right_to_left = GetParam()});
    UIView* page = slider()->superview();
    const double width = page->bounds().size.width;
    NSArray* all = page->subviews();
    int labels = 0, controls = 0;
    for (NSUInteger i = 0; i < all->count(); ++i) {
        auto* view = static_cast<UIView*>(all->objectAtIndex(i));
        const CGRect place = view->frame();
        const double before = place.origin.x, after = width - place.origin.x - place.size.width;
        if (auto* label = as<UILabel>(view)) {
            ++labels;
            EXPECT_NEAR(GetParam() ? after : before, 16, 0.01) << utf8(label->text());
            EXPECT_EQ(label->textAlignment(), GetParam() ? NSTextAlignmentRight : NSTextAlignmentLeft);
        } else if (as<UISwitch>(view) || as<UISlider>(view)) {
            ++controls;
            EXPECT_NEAR(GetParam() ? before : after, 16, 0.01) << utf8(view->accessibilityLabel());
        }
    }
    EXPECT_EQ(labels, 3);
    EXPECT_EQ(controls, 3);
}

}  // namespace
}  // namespace test
