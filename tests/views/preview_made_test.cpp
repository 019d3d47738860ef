// HCPreview: how the shared instance is made of four pictures and three backdrops, and how one goes.
#include "views/preview.h"

namespace test {
namespace {

using objc::strong;

TEST_F(Preview, ThereIsOneForTheWholeProcess) {
    EXPECT_NE(preview, nullptr);
    EXPECT_EQ(shared(), preview);
    EXPECT_STREQ(object_getClassName(preview), "HCPreview");
}

TEST_F(Preview, HasAStyleTwoBackdropOfEachKind) {
    EXPECT_EQ((variable<NSDictionary*>(preview, "cachedBackdrops")->send<"count", NSUInteger>()), 3u);
    EXPECT_STREQ(object_getClassName(cached("ImageView")), "_UIBackdropImageView");
    EXPECT_STREQ(object_getClassName(cached("GradientView")), "_UIBackdropGradientView");
    EXPECT_STREQ(object_getClassName(cached("ColouredView")), "_UIBackdropColouredView");
    for (const char* key : {"ImageView", "GradientView", "ColouredView"})
        EXPECT_EQ((cached(key)->send<"style", NSInteger>()), 2) << key;
}

TEST_F(Preview, EachPictureHasAViewAsLargeAsTheKeyboard) {
    const struct {
        const char *view, *image;
    } rows[] = {{"keyboardBackground", "backgroundImage"},
                {"keyboardText", "textImage"},
                {"keyboardHighlight", "highlightImage"}};
    for (const auto& row : rows) EXPECT_EQ(shown(row.view), loaded(row.image)) << row.view;
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"}) {
        EXPECT_EQ(picture_view(name)->frame(), (CGRect{{0, 0}, {375, 216}})) << name;
        EXPECT_EQ(picture_view(name)->contentMode(), UIViewContentModeScaleToFill) << name;
        EXPECT_EQ(rgba(picture_view(name)->backgroundColor()).alpha, 0) << name;
    }
    EXPECT_EQ(pixel(loaded("textImage"), 0, 0), blue);
    EXPECT_EQ(pixel(loaded("textImage"), 4, 0), nothing);
    EXPECT_EQ(pixel(loaded("highlightImage"), 4, 0), blue);
    EXPECT_EQ(pixel(loaded("highlightImage"), 0, 0), nothing);
    EXPECT_EQ(pixel(loaded("backgroundImage"), 7, 3), blue);
    EXPECT_EQ(pixel(loaded("keycapsImage"), 0, 0), blue);
    EXPECT_EQ(pixel(loaded("keycapsImage"), 0, 3), nothing);
}

TEST_F(Preview, KeyCapsAreDarkenedOnce) {
    const Rgba cap = pixel(shown("keycapsImageView"), 0, 0);
    EXPECT_NEAR(cap.alpha, 0.5, 1 / 255.0);
    for (double component : {cap.red, cap.green, cap.blue}) EXPECT_NEAR(component, 1 / 3.0, 2 / 255.0);
    EXPECT_EQ(pixel(shown("keycapsImageView"), 0, 3), nothing) << "their shape stays";
    strong<UIImage> dark = shown("keycapsImageView");
    view_for(of_type(0, "<key>_VisibleKeycaps</key><true/>"));
    objc::send<"cleanup">(preview);
    EXPECT_EQ(shown("keycapsImageView"), dark);
}

TEST_F(Preview, IsMadeInOrder) {
    static std::vector<std::string> made;
    static std::vector<id> views;
    static IMP image = nullptr, backdrop = nullptr;
    MSHookMessageEx(object_getClass(class_named("UIImage")), sel_registerName("imageWithContentsOfFile:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSString* path) -> id {
                        made.push_back(utf8(path));
                        return call<id>(image, self, selector, path);
                    }),
                    &image);
    MSHookMessageEx(objc_getClass("_UIBackdropView"), sel_registerName("initWithStyle:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, NSInteger style) -> id {
                        made.emplace_back(object_getClassName(self));
                        return call<id>(backdrop, self, selector, style);
                    }),
                    &backdrop);
    static IMP size = nullptr, frame = nullptr;
    MSHookMessageEx(object_getClass(class_named("HCPreview")), sel_registerName("keyboardPortraitSize"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) -> CGSize {
                        made.emplace_back("keyboardPortraitSize");
                        return call<CGSize>(size, self, selector);
                    }),
                    &size);
    MSHookMessageEx(objc_getClass("UIImageView"), sel_registerName("initWithFrame:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, CGRect wanted) -> id {
                        id view = call<id>(frame, self, selector, wanted);
                        if (wanted.size.width) {
                            made.emplace_back("picture view");
                            views.push_back(view);
                        }
                        return view;
                    }),
                    &frame);
    auto other = objc::adopt(objc::send<"init", NSObject*>(allocated("HCPreview")));
    const std::string path = bundle;
    EXPECT_EQ(made, (Selectors{"_UIBackdropImageView", "_UIBackdropGradientView", "_UIBackdropColouredView",
                               path + "Background.png", path + "Text.png", path + "Highlight.png",
                               path + "KeyCaps.png", "keyboardPortraitSize", "picture view", "picture view",
                               "picture view", "picture view"}));
    std::vector<id> expected;
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        expected.push_back(variable<UIImageView*>(other, name));
    EXPECT_EQ(views, expected);
}

TEST_F(Preview, GoesInOrder) {
    strong<NSObject> other;
    {
        objc::AutoreleasePool pool;
        other = objc::adopt(objc::send<"init", NSObject*>(allocated("HCPreview")));
    }
    // For good: objects also go while the process ends.
    static auto& parts = *new std::vector<std::pair<id, std::string>>;
    static auto& gone = *new Selectors;
    for (const char* name :
         {"cachedBackdrops", "backgroundImage", "textImage", "highlightImage", "keycapsImage",
          "keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        parts.emplace_back(variable<id>(other, name), name);
    static IMP dealloc = nullptr;
    MSHookMessageEx(objc_getClass("NSObject"), sel_registerName("dealloc"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector) {
                        for (const auto& [part, name] : parts)
                            if (part == self) gone.push_back(name);
                        call(dealloc, self, selector);
                    }),
                    &dealloc);
    objc::AutoreleasePool pool;
    other = nullptr;
    EXPECT_EQ(gone, (Selectors{"keycapsImageView", "keyboardHighlight", "keyboardText", "keyboardBackground",
                               "keycapsImage", "highlightImage", "backgroundImage", "textImage",
                               "cachedBackdrops"}));
}

TEST_F(Preview, TheKeyboardsSizesAreTheSystems) {
    EXPECT_EQ((objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))), (CGSize{375, 216}));
    EXPECT_EQ((objc::send<"keyboardLandscapeSize", CGSize>(class_named("HCPreview"))), (CGSize{667, 162}));
    static std::vector<NSInteger> orientations;
    MSHookMessageEx(object_getClass(class_named("UIKeyboardImpl")),
                    sel_registerName("keyboardSizeForInterfaceOrientation:"),
                    reinterpret_cast<IMP>(+[](id, SEL, NSInteger orientation) -> CGSize {
                        orientations.push_back(orientation);
                        return {10, 20};
                    }),
                    nullptr);
    EXPECT_EQ((objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))), (CGSize{10, 20}));
    EXPECT_EQ((objc::send<"keyboardLandscapeSize", CGSize>(class_named("HCPreview"))), (CGSize{10, 20}));
    EXPECT_EQ(orientations, (std::vector<NSInteger>{1, 4}));
}

TEST(PreviewWithoutPictures, ShowsTheBackdropAlone) {
    Phone phone;
    phone.start();
    id preview = objc::send<"sharedInstance", id>(class_named("HCPreview"));
    for (const char* name : {"backgroundImage", "textImage", "highlightImage", "keycapsImage"})
        EXPECT_EQ(variable<UIImage*>(preview, name), nullptr) << name;
    auto* container = objc::send<"viewForConfig:", UIView*>(preview, Configuration::made_default().object);
    EXPECT_EQ(subviews_of(container).size(), 4u);
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        EXPECT_EQ(variable<UIImageView*>(preview, name)->image(), nullptr) << name;
}

TEST(PreviewWithoutAKeyboard, HasPictureViewsWithoutSize) {
    Phone phone;
    phone.start({.left_out = {"UIKeyboardImpl"}});
    EXPECT_EQ((objc::send<"keyboardPortraitSize", CGSize>(class_named("HCPreview"))), (CGSize{}));
    EXPECT_EQ((objc::send<"keyboardLandscapeSize", CGSize>(class_named("HCPreview"))), (CGSize{}));
    id preview = objc::send<"sharedInstance", id>(class_named("HCPreview"));
    for (const char* name : {"keyboardBackground", "keyboardText", "keyboardHighlight", "keycapsImageView"})
        EXPECT_EQ(variable<UIImageView*>(preview, name)->frame(), (CGRect{})) << name;
    auto* container = objc::send<"viewForConfig:", UIView*>(preview, Configuration::made_default().object);
    EXPECT_EQ(subviews_of(container).size(), 4u);
}

}  // namespace
}  // namespace test
