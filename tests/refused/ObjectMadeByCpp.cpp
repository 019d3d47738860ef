// refused: deleted
#include "platform/uikit.h"

#ifdef CORRECTED
objc::strong<UIView> make() { return UIView::class_send<"new", objc::strong<UIView>>(); }
#else
UIView view;
#endif
