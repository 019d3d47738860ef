// A key over a backdrop of its own. In the model's reading these are the marks on other keys, such as the
// enabled languages: drawn with the default configuration, as part of no plane's picture.
#include "keyboard/backdrops/backdrop_behind.h"
#include "keyboard/backdrops/backdrop_styles.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct BlurredKeyView : objc::Implements<BlurredKeyView, UIKBBlurredKeyView> {
    struct Ivars {
        strong<UIKBBackdropView> backdropView;
    };

    strong<UIKBBlurredKeyView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        auto self = initialised_by_super<"initWithFrame:keyplane:key:">(frame, keyplane, key);
        if (!self) return nullptr;
        // Nothing of it is to be seen around a mark.
        self->ivars().backdropView = sim::add_backdrop_behind(self->self(), sim::backdrop_style_none);
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBBlurredKeyView, UIKBContainerKeyView, BlurredKeyView,
           ivar<"_backdropView", &BlurredKeyView::Ivars::backdropView>,
           method<"initWithFrame:keyplane:key:", &BlurredKeyView::initWithFrame>)
