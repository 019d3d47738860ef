// The system has no memory for a picture: what makes contexts, images, gradients and data answers
// nothing, at one call after another. The library and the pane raise nothing and go on, with the picture or
// without.
#include <dlfcn.h>

#include <functional>

#include "pane/drawing/judgement.h"
#include "pane/drawing/keyboard_picture.h"
#include "pane/drawing/photo.h"
#include "pane/drawing/swatch.h"
#include "platform/owned_graphics.h"
#include "support/configuration.h"
#include "support/themes.h"

namespace {

constexpr size_t all_of_them = SIZE_MAX;
/// Which of the calls is refused, from 1.
size_t refused = 0, calls = 0;

/// The system's calls of its own are not counted.
bool is_refused(const void* caller) {
    Dl_info image{};
    if (dladdr(caller, &image) && std::string_view(image.dli_fname).ends_with("_simulator.so")) return false;
    return ++calls == refused || refused == all_of_them;
}

/// What the system answers, or nothing.
template <class Result, class... Arguments>
[[gnu::always_inline]] inline Result granted(const char* name, Arguments... arguments) {
    if (is_refused(__builtin_return_address(0))) return Result();
    return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

}  // namespace

// ---- In place of the system's -------------------------------------------------------------------------

extern "C" {
[[gnu::visibility("default")]] void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque,
                                                                           CGFloat scale) {
    if (is_refused(__builtin_return_address(0))) return UIGraphicsPushContext(nullptr);
    reinterpret_cast<void (*)(CGSize, bool, CGFloat)>(
        dlsym(RTLD_NEXT, "UIGraphicsBeginImageContextWithOptions"))(size, opaque, scale);
}
[[gnu::visibility("default")]] UIImage* UIGraphicsGetImageFromCurrentImageContext() {
    return granted<UIImage*>("UIGraphicsGetImageFromCurrentImageContext");
}
[[gnu::visibility("default")]] NSData* UIImagePNGRepresentation(UIImage* image) {
    return granted<NSData*>("UIImagePNGRepresentation", image);
}
[[gnu::visibility("default")]] CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height,
                                                                  size_t bits, size_t row,
                                                                  CGColorSpaceRef space, CGBitmapInfo info) {
    return granted<CGContextRef>("CGBitmapContextCreate", data, width, height, bits, row, space, info);
}
[[gnu::visibility("default")]] void* CGBitmapContextGetData(CGContextRef context) {
    return granted<void*>("CGBitmapContextGetData", context);
}
[[gnu::visibility("default")]] CGImageRef CGBitmapContextCreateImage(CGContextRef context) {
    return granted<CGImageRef>("CGBitmapContextCreateImage", context);
}
[[gnu::visibility("default")]] CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef space,
                                                                        NSArray* colors,
                                                                        const CGFloat* locations) {
    return granted<CGGradientRef>("CGGradientCreateWithColors", space, colors, locations);
}
}

namespace test {
namespace {

class Memory : public testing::Test {
  protected:
    void SetUp() override {
        arrange_theme(phone);
        phone.start();
        image = filled_image(color(0.2, 0.4, 0.6), 40, 30);
    }
    void TearDown() override { refused = 0; }

    /// The work, with each of its calls refused, and with all of them.
    static void try_without(const std::function<void()>& work, size_t at_least) {
        const auto run = [&](size_t which) {
            SCOPED_TRACE(which == all_of_them ? "all" : std::to_string(which));
            const objc::AutoreleasePool pool;
            refused = which;
            calls = 0;
            EXPECT_EQ(raised_by(work), "");
            refused = 0;
            return calls;
        };
        const size_t count = run(0);
        EXPECT_GE(count, at_least);
        for (size_t which = 1; which <= count && !HasFailure(); ++which) run(which);
        run(all_of_them);
    }

    static id tool() { return class_named("HCCITool"); }

    Phone phone;
    UIImage* image = nullptr;
};

TEST_F(Memory, AnAverageThatCannotBeDrawnIsOpaqueBlack) {
    try_without(
        [this] {
            const Rgba is = rgba(objc::send<"averageColorForImage:", id>(tool(), image));
            EXPECT_NEAR(is.blue, refused ? 0 : 0.6, 0.001);
            if (refused) EXPECT_EQ(is, (Rgba{0, 0, 0, 1}));
            EXPECT_EQ(is.alpha, 1);
        },
        2);
}

TEST_F(Memory, AnAverageWithAlphaThatCannotBeDrawnIsClear) {
    try_without(
        [this] {
            const Rgba is = rgba(objc::send<"averageColorWithAlphaForImage:", id>(tool(), image));
            EXPECT_EQ(is.alpha, refused ? 0 : 1);
        },
        1);
}

TEST_F(Memory, AnImageThatCannotBeMadeIsNone) {
    try_without(
        [this] {
            id scaled = objc::send<"newScale:forImage:", id>(tool(), CGSize{20, 20}, image);
            id tinted = objc::send<"newColor:forImage:", id>(tool(), color(1, 0, 0), image);
            id flat = objc::send<"imageFromColor:withSize:", id>(tool(), color(1, 0, 0), CGSize{4, 4});
            EXPECT_EQ(!scaled + !tinted + !flat, !refused ? 0 : refused == all_of_them ? 3 : 1);
            objc_release(scaled);
            objc_release(tinted);
        },
        6);
}

/// What the theme was before is what it is afterwards, but for the picture.
TEST_F(Memory, AThemeIsSavedAndReadWithItsPictureOrWithout) {
    try_without(
        [this] {
            const auto theme = Configuration::made_default();
            theme.set_name("Pictured");
            objc::send<"setImageData:">(theme.object, image);
            std::filesystem::remove(phone.host(std::string(theme_folder) + "Pictured.plist"));
            EXPECT_TRUE(theme.save());
            const auto again = Configuration::from_file("Pictured.plist");
            ASSERT_TRUE(again);
            EXPECT_EQ(again.name(), "Pictured");
            EXPECT_EQ(again.background_type(), theme.background_type());
            again.image_cache();
            again.image_cache();
        },
        2);
}

TEST_F(Memory, APreviewIsShownWithWhatThereIs) {
    const auto theme = Configuration::made_default();
    objc::send<"setImageData:">(theme.object, image);
    for (NSUInteger type : {0, 1, 2, 3}) {
        objc::send<"setBackgroundType:">(theme.object, type);
        try_without(
            [&] {
                id preview = objc::send<"sharedInstance", id>(class_named("HCPreview"));
                EXPECT_NE((objc::send<"viewForConfig:", id>(preview, theme.object)), nullptr);
            },
            1);
    }
}

TEST_F(Memory, AKeyboardIsShownWithWhatThereIs) {
    id theme = active_theme();
    objc::send<"setImageData:">(theme, image);
    for (NSUInteger type : {0, 1, 2, 3}) {
        objc::send<"setBackgroundType:">(theme, type);
        try_without([&] { EXPECT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error(); }, type == 3);
    }
}

TEST_F(Memory, ThePaneDrawsWhatItCan) {
    const auto theme = Configuration::made_default();
    auto* shown = reinterpret_cast<HuecraftConfig*>(theme.object);
    objc::send<"setImageData:">(theme.object, image);
    for (NSUInteger type : {1, 2, 3}) {
        objc::send<"setBackgroundType:">(theme.object, type);
        try_without(
            [&] {
                const pane::KeyboardPainter painter({60, 40});
                painter.picture_of(shown);
                pane::behind(shown);
                pane::swatch_of(color(1, 0, 0));
            },
            4);
    }
}

TEST_F(Memory, ThePanesPhotoIsThereOrNot) {
    try_without(
        [this] {
            UIImage* photo = pane::workable(image);
            if (!photo) return;
            if (UIImage* part = pane::cropped(photo, {{0, 0}, {20, 20}}, {10, 10})) pane::dimmed(part);
            pane::blurred(photo);
        },
        5);
}

}  // namespace
}  // namespace test
