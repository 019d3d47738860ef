#include "views/HCPreview.h"

#include "model/HCCITool.h"
#include "objc/class.h"
#include "platform/keyboard.h"
#include "views/theme_background.h"

namespace {

using namespace objc::literals;
using objc::strong;

strong<UIImageView> make_picture_view(CGSize size, UIImage* picture) {
    auto view = UIImageView::make<"initWithFrame:">(CGRect{{0, 0}, size});
    view->setBackgroundColor(UIColor::clearColor());
    view->setContentMode(UIViewContentModeScaleToFill);
    view->setImage(picture);
    return view;
}

/// Gives the picture that is shown the colour, or none.
void tint(UIImageView* view, UIColor* colour) {
    view->setImage(HCCITool::newColor(colour ? colour : UIColor::clearColor(), view->image()));
}

void take_out(UIView* view) {
    if (view->superview()) view->removeFromSuperview();
}

/// The backdrops that the preview made once, by their keys.
struct KeptBackdrops {
    NSDictionary* kept;

    _UIBackdropImageView* image() const { return at<_UIBackdropImageView>("ImageView"_ns); }
    _UIBackdropGradientView* gradient() const { return at<_UIBackdropGradientView>("GradientView"_ns); }
    _UIBackdropColouredView* colour() const { return at<_UIBackdropColouredView>("ColouredView"_ns); }

  private:
    template <class Backdrop>
    Backdrop* at(NSString* key) const {
        return static_cast<Backdrop*>(kept->objectForKey(key));
    }
};

struct Preview : objc::Implements<Preview, HCPreview> {
    /// Each view goes before the picture that it shows when an instance is destroyed, and the backdrops last.
    struct Ivars {
        strong<NSMutableDictionary> cachedBackdrops;
        /// As loaded: tinted copies are undone with them.
        strong<UIImage> textImage, backgroundImage, highlightImage, keycapsImage;
        strong<UIImageView> keyboardBackground, keyboardText, keyboardHighlight, keycapsImageView;
    };

    static HCPreview* sharedInstance(Class self) {
        static constinit long once = 0;
        static constinit HCPreview* instance = nullptr;
        dispatch_once_f(&once, self, objc::hand_over(+[](void* preview_class) {
            instance = objc::make<"init", HCPreview>(static_cast<Class>(preview_class)).leak();
        }));
        return instance;
    }

    static CGSize keyboardPortraitSize(Class) {
        return UIKeyboardImpl::keyboardSize(UIInterfaceOrientationPortrait);
    }
    static CGSize keyboardLandscapeSize(Class) {
        return UIKeyboardImpl::keyboardSize(UIInterfaceOrientationLandscapeLeft);
    }

    strong<HCPreview> init() {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->make_backdrops();
        self->load_pictures();
        self->make_picture_views();
        return self;
    }

    UIView* viewForConfig(HuecraftConfig* theme) {
        self()->cleanup();
        auto container = UIView::alloc()->initWithFrame({});
        container->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        // The places are fixed: one past the end is in front, so without key caps the order is the same.
        container->insertSubview(ivars().keyboardBackground, 0);
        NSArray* colours = theme->getColors();
        const NSUInteger type = theme->getBackgroundType();
        if (UIView* backdrop = filled_backdrop(theme, colours, type, KeptBackdrops{ivars().cachedBackdrops}))
            container->insertSubview(backdrop, 1);
        if (theme->getVisibleKeycaps()) container->insertSubview(ivars().keycapsImageView, 2);
        tint(ivars().keyboardHighlight, theme->getHighlightColor());
        container->insertSubview(ivars().keyboardHighlight, 3);
        tint(ivars().keyboardText, theme->getTextColor());
        container->insertSubview(ivars().keyboardText, 4);
        return std::move(container).autoreleased();
    }

    /// The backdrops keep what they show, and the key caps stay dark.
    void cleanup() {
        for (NSString* key : {"ColouredView"_ns, "GradientView"_ns, "ImageView"_ns})
            take_out(static_cast<UIView*>(ivars().cachedBackdrops->objectForKey(key)));
        auto& own = ivars();
        take_out(own.keyboardBackground);
        own.keyboardBackground->setImage(own.backgroundImage);
        take_out(own.keyboardHighlight);
        own.keyboardHighlight->setImage(own.highlightImage);
        take_out(own.keycapsImageView);
        take_out(own.keyboardText);
        own.keyboardText->setImage(own.textImage);
    }

  private:
    /// Where the system lacks the backdrops' superclass, nothing is kept, and the preview is shown without.
    void keep(UIView* backdrop, NSString* key) {
        if (backdrop) ivars().cachedBackdrops->setObject(backdrop, key);
    }

    void make_backdrops() {
        ivars().cachedBackdrops = NSMutableDictionary::alloc()->initWithCapacity(3);
        keep(NewBackdrops::image(), "ImageView"_ns);
        keep(NewBackdrops::gradient(), "GradientView"_ns);
        keep(NewBackdrops::colour(), "ColouredView"_ns);
    }

    void load_pictures() {
        auto& own = ivars();
        own.backgroundImage = UIImage::imageWithContentsOfFile(
            "/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboardBackground.png"_ns);
        own.textImage = UIImage::imageWithContentsOfFile(
            "/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboardText.png"_ns);
        own.highlightImage = UIImage::imageWithContentsOfFile(
            "/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboardHighlight.png"_ns);
        own.keycapsImage = UIImage::imageWithContentsOfFile(
            "/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboardKeyCaps.png"_ns);
    }

    void make_picture_views() {
        auto& own = ivars();
        const CGSize size = HCPreview::keyboardPortraitSize();
        own.keyboardBackground = make_picture_view(size, own.backgroundImage);
        own.keyboardText = make_picture_view(size, own.textImage);
        own.keyboardHighlight = make_picture_view(size, own.highlightImage);
        own.keycapsImageView = make_picture_view(size, own.keycapsImage);
        // Once and for all: the key caps are the same in every theme.
        UIColor* shade = UIColor::darkGrayColor()->colorWithAlphaComponent(0.5);
        own.keycapsImageView->setImage(HCCITool::newColor(shade, own.keycapsImage));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCPreview, NSObject, Preview,
           // Variables
           ivar<"cachedBackdrops", &Preview::Ivars::cachedBackdrops>,
           ivar<"textImage", &Preview::Ivars::textImage>,
           ivar<"backgroundImage", &Preview::Ivars::backgroundImage>,
           ivar<"highlightImage", &Preview::Ivars::highlightImage>,
           ivar<"keycapsImage", &Preview::Ivars::keycapsImage>,
           ivar<"keyboardBackground", &Preview::Ivars::keyboardBackground>,
           ivar<"keyboardText", &Preview::Ivars::keyboardText>,
           ivar<"keyboardHighlight", &Preview::Ivars::keyboardHighlight>,
           ivar<"keycapsImageView", &Preview::Ivars::keycapsImageView>,

           // The one preview
           class_method<"sharedInstance", &Preview::sharedInstance>,

           // Sizes
           class_method<"keyboardPortraitSize", &Preview::keyboardPortraitSize>,
           class_method<"keyboardLandscapeSize", &Preview::keyboardLandscapeSize>,

           // Showing a theme
           method<"init", &Preview::init>,
           method<"viewForConfig:", &Preview::viewForConfig>,
           method<"cleanup", &Preview::cleanup>)
