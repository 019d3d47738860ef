// refused: pass objects as plain pointers
#include "platform/uikit.h"

void tint(UIView* view, objc::strong<UIColor> color) {
#ifdef CORRECTED
    objc::send<"setTintColor:">(view, color.get());
#else
    objc::send<"setTintColor:">(view, color);
#endif
}
