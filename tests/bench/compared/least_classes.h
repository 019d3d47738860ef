// Classes of views that show a theme: subclasses of the system's backdrop with variables for what they show,
// as the library's are, and without methods of their own.
#pragma once
#include "platform/keyboard.h"

namespace bench {

/// The style that every themed backdrop is made with.
constexpr NSInteger themed_style = 2;

struct Coloured {
    objc::strong<UIView> content;
};
struct Gradient {
    objc::strong<UIView> content;
    objc::strong<CAGradientLayer> layer;
    bool follows_layout;
};

/// The class whose objects have these variables.
template <class Variables>
class ClassOf {
  public:
    static Class made() { return made_; }
    static Variables& variables(id object) {
        return *reinterpret_cast<Variables*>(reinterpret_cast<char*>(object) + place_);
    }
    static objc::strong<_UIBackdropView> make() {
        return objc::make<"initWithStyle:", _UIBackdropView>(made_, themed_style);
    }

    static void make_class(const char* name) {
        made_ = objc_allocateClassPair(_UIBackdropView::class_object(), name, 0);
        class_addIvar(made_, "variables", sizeof(Variables), 3, "?");
        class_addMethod(made_, sel_registerName(".cxx_destruct"), reinterpret_cast<IMP>(&let_go), "v16@0:8");
        objc_registerClassPair(made_);
        place_ = ivar_getOffset(class_getInstanceVariable(made_, "variables"));
    }

  private:
    static void let_go(id object, SEL) { variables(object).~Variables(); }

    static inline constinit Class made_ = nullptr;
    static inline constinit ptrdiff_t place_ = 0;
};

}  // namespace bench
