// A button below the keys. In the model it is a view: nothing is touched there.
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct DockItemButton : objc::Implements<DockItemButton, UIKeyboardDockItemButton> {
    struct Ivars {
        strong<UIImageView> imageView;
    };

    strong<UIKeyboardDockItemButton> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto image_view = sim::make_view<UIImageView>(self->bounds());
        self->ivars().imageView = image_view;
        image_view->setContentMode(UIViewContentModeCenter);
        self->addSubview(image_view);
        return self;
    }

    UIImage* image() { return ivars().imageView->image(); }
    void setImage(UIImage* image) {
        ivars().imageView->setImage(image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate));
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        ivars().imageView->setFrame(bounds());
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardDockItemButton, UIView, DockItemButton,
           ivar<"_imageView", &DockItemButton::Ivars::imageView>,
           method<"initWithFrame:", &DockItemButton::initWithFrame>,
           method<"image", &DockItemButton::image>,
           method<"setImage:", &DockItemButton::setImage>,
           method<"layoutSubviews", &DockItemButton::layoutSubviews>)
