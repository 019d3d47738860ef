#include "views/HCImageView.h"

#include "objc/class.h"
#include "views/image_alpha.h"
#include "views/translucency.h"

namespace {

using objc::strong;

struct PictureView : objc::Implements<PictureView, HCImageView> {
    struct Ivars {
        CGFloat oldAlpha;
        strong<UIImageView> imageView;
    };

    /// The blur and the image know nothing of this alpha: only setImageAlpha: has an effect on them.
    strong<HCImageView> initWithImage(UIImage* image, CGFloat alpha) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        auto& [old_alpha, content] = self->ivars();
        old_alpha = 1.0;
        content = UIImageView::make<"initWithFrame:">(CGRect{});
        content->setBackgroundColor(UIColor::clearColor());
        content->setContentMode(UIViewContentModeScaleToFill);
        self->addSubview(content);
        self->self()->setImage(image);
        self->setAlpha(alpha);
        return self;
    }

    void setImage(UIImage* image) {
        if (image) ivars().imageView->setImage(image);
    }

    /// A caller that wants this alpha alone gives the image again before.
    void setImageAlpha(CGFloat alpha) {
        auto& [old_alpha, content] = ivars();
        if (alpha == old_alpha) return;
        is_translucent(alpha) ? enableBlur() : disableBlur();
        if (UIImage* shown = content->image()) content->setImage(image_with_alpha(shown, alpha));
        old_alpha = alpha;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCImageView, HCView, PictureView,
           // Properties
           property<"oldAlpha", &PictureView::Ivars::oldAlpha>,
           property<"imageView", &PictureView::Ivars::imageView>,

           // Making it
           method<"initWithImage:alpha:", &PictureView::initWithImage>,

           // The image
           method<"setImage:", &PictureView::setImage>,
           method<"setImageAlpha:", &PictureView::setImageAlpha>)
