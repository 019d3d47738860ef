// A key over the backdrop. In the model's reading these are the marks on other keys, such as the enabled
// languages: drawn with the default configuration, as part of no plane's picture.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct BlurredKeyView : objc::Implements<BlurredKeyView, UIKBBlurredKeyView> {
    struct Ivars {
        strong<UIKBTree> keyplane, key;
        strong<UIKBKeyView> keyView;
    };

    strong<UIKBBlurredKeyView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().keyplane = keyplane;
        self->ivars().key = key;
        self->ivars().keyView = UIKBKeyView::alloc()->initWithFrame({}, keyplane, key);
        self->addSubview(self->ivars().keyView);
        return self;
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        ivars().keyView->setFrame(bounds());
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBBlurredKeyView, UIView, BlurredKeyView,
           property<"keyplane", &BlurredKeyView::Ivars::keyplane>,
           property<"key", &BlurredKeyView::Ivars::key>,
           ivar<"_keyView", &BlurredKeyView::Ivars::keyView>,
           method<"initWithFrame:keyplane:key:", &BlurredKeyView::initWithFrame>,
           method<"layoutSubviews", &BlurredKeyView::layoutSubviews>)
