// refused: the selector and the number of arguments disagree
#include "platform/uikit.h"

void tint(UIView* view) {
#ifdef CORRECTED
    objc::send<"setTintColor:">(view, UIColor::redColor());
#else
    objc::send<"setTintColor:">(view);
#endif
}
