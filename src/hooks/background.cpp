// The keyboard's background: the themed view inside a system backdrop.
#include "hooks/background.h"

#include "objc/strong.h"

namespace hooks {

namespace {
constexpr uintptr_t retain_nonatomic = 1;  // the association policy
const char active_background_key = 0;      // its address is the key
}  // namespace

id active_background_view(UIKBBackdropView* self) {
    return objc::strong<objc_object>(objc_getAssociatedObject(self, &active_background_key)).autoreleased();
}

void set_active_background_view(UIKBBackdropView* self, id view) {
    objc_setAssociatedObject(self, &active_background_key, view, retain_nonatomic);
}

void remove_backdrop_effects(UIKBInputBackdropView*, id piece) {
    static Class backdropViewClass = nullptr;
    if (!backdropViewClass) backdropViewClass = objc_getClass("UIKBBackdropView");
    if (!static_cast<NSObject*>(piece)->isKindOfClass(backdropViewClass)) return;
    auto* backdrop = static_cast<UIKBBackdropView*>(piece);
    if (!backdrop->activeBackgroundView()) return;
    backdrop->activeBackgroundView()->removeFromSuperview();
    backdrop->setActiveBackgroundView(nullptr);
}

}  // namespace hooks
