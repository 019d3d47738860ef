// An image in a view. A template image is shown in the tint colour.
#include "coregraphics/CGImage.h"
#include "objc/class.h"
#include "platform/uikit.h"

namespace {

using objc::strong;

struct ImageView : objc::Implements<ImageView, UIImageView> {
    struct Ivars {
        strong<UIImage> image;
    };

    strong<UIImageView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto* view = static_cast<UIView*>(self.get());
        view->setUserInteractionEnabled(false);
        view->setOpaque(false);
        return self;
    }

    strong<UIImageView> initWithImage(UIImage* image) {
        auto view = send<"initWithFrame:", strong<UIImageView>>(CGRect{{0, 0}, image->size()});
        view->setImage(image);
        return view;
    }

    UIImage* image() { return ivars().image; }
    void setImage(UIImage* image) {
        const bool resized = ivars().image->size() != image->size();
        ivars().image = image;
        show();
        if (resized) self()->invalidateIntrinsicContentSize();
    }

    void tintColorDidChange() {
        super<"tintColorDidChange">();
        if (is_template()) show();
    }

    CGSize sizeThatFits(CGSize) { return ivars().image->size(); }
    CGSize intrinsicContentSize() {
        if (!ivars().image) return super<"intrinsicContentSize", CGSize>();
        return ivars().image->size();
    }

  private:
    bool is_template() { return ivars().image->renderingMode() == UIImageRenderingModeAlwaysTemplate; }

    void show() {
        auto* self = this->self();
        UIImage* image = upright(ivars().image);
        strong<::CGImage> contents = image->CGImage();
        if (is_template()) contents = sim::tinted(contents, self->tintColor()->CGColor());
        if (image) self->layer()->setContentsScale(image->scale());
        self->layer()->setContents(contents);
    }

    // Layers know no orientation.
    static UIImage* upright(UIImage* image) {
        if (image->imageOrientation() == UIImageOrientationUp) return image;
        UIGraphicsBeginImageContextWithOptions(image->size(), false, image->scale());
        image->drawAtPoint({0, 0});
        UIImage* drawn = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        return drawn;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIImageView, UIView, ImageView,
           method<"initWithFrame:", &ImageView::initWithFrame>,
           method<"initWithImage:", &ImageView::initWithImage>,
           ivar<"_image", &ImageView::Ivars::image>,
           method<"image", &ImageView::image>,
           method<"setImage:", &ImageView::setImage>,
           method<"tintColorDidChange", &ImageView::tintColorDidChange>,
           method<"sizeThatFits:", &ImageView::sizeThatFits>,
           method<"intrinsicContentSize", &ImageView::intrinsicContentSize>)
