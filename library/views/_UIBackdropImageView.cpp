// A backdrop that shows an image.
#include "objc/class.h"
#include "views/backdrop_content.h"
#include "views/backdrops.h"
#include "views/image_alpha.h"
#include "views/translucency.h"

namespace {

using objc::strong;

struct ImageBackdrop : objc::Implements<ImageBackdrop, _UIBackdropImageView> {
    struct Ivars {
        strong<UIImageView> imageView;
    };

    static _UIBackdropImageView* backdropWithStyle(Class self, NSInteger style) {
        using Made = _UIBackdropImageView;
        UIImage* const no_image = nullptr;
        return objc::make<"initWithStyle:image:alpha:", Made>(self, style, no_image, CGFloat{0})
            .autoreleased();
    }

    strong<_UIBackdropImageView> initOpaque(NSInteger style, UIImage* image) {
        return self()->initWithStyle(style, image, 1.0);
    }

    strong<_UIBackdropImageView> initWithStyle(NSInteger style, UIImage* image, CGFloat alpha) {
        auto self = initialised_by_super<"initWithStyle:">(style);
        if (!self) return nullptr;
        auto content = UIImageView::make<"initWithFrame:">(CGRect{});
        content->setBackgroundColor(UIColor::clearColor());
        content->setContentMode(UIViewContentModeScaleToFill);
        set_up_content_view(content);
        self->ivars().imageView = content;
        self->self()->setImage(image);
        if (is_translucent(alpha)) self->self()->setImageAlpha(alpha);
        put_in_front(self, content);
        return self;
    }

    void setImage(UIImage* image) { ivars().imageView->setImage(image); }

    /// Baked into what is shown, so alphas compound: a caller that wants a fresh one gives the image again.
    void setImageAlpha(CGFloat alpha) {
        UIImage* shown = ivars().imageView->image();
        if (shown) ivars().imageView->setImage(image_with_alpha(shown, alpha));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS_OF_WEAK_SUPERCLASS(_UIBackdropImageView, _UIBackdropView, ImageBackdrop,
                              // Variables
                              ivar<"imageView", &ImageBackdrop::Ivars::imageView>,

                              // Making it
                              class_method<"backdropWithStyle:", &ImageBackdrop::backdropWithStyle>,
                              method<"initWithStyle:image:", &ImageBackdrop::initOpaque>,
                              method<"initWithStyle:image:alpha:", &ImageBackdrop::initWithStyle>,

                              // The image
                              method<"setImage:", &ImageBackdrop::setImage>,
                              method<"setImageAlpha:", &ImageBackdrop::setImageAlpha>)
