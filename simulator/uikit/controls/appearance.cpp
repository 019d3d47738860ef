// Appearances: what is set on a class's stand-in holds for its views that come into a window afterwards.
#include <map>

#include "objc/class.h"
#include "uikit/UIView.h"

struct _UIAppearance : objc::Interface<_UIAppearance, "_UIAppearance", NSObject> {};

namespace {

using objc::strong;

// A property that the stand-in lacks raises: it is not modelled.
struct Appearance : objc::Implements<Appearance, _UIAppearance> {
    struct Ivars {
        strong<UIColor> tintColor;
    };
};

std::map<Class, Appearance*>& appearances() {
    static auto* known = new std::map<Class, Appearance*>;
    return *known;
}

}  // namespace

namespace sim {

id View::appearance(Class self) {
    Appearance*& stand_in = appearances()[self];
    if (!stand_in) stand_in = _UIAppearance::class_send<"new", Appearance*>();
    return stand_in;
}

// The nearest class that has one decides.
void apply_appearance(UIView* view) {
    auto& ivars = static_cast<View*>(view)->ivars();
    if (appearances().empty() || (ivars.tintColor && !ivars.tintIsAppearance)) return;
    for (Class above = object_getClass(view); above; above = class_getSuperclass(above)) {
        auto found = appearances().find(above);
        if (found == appearances().end() || !found->second->ivars().tintColor) continue;
        view->setTintColor(found->second->ivars().tintColor);
        ivars.tintIsAppearance = true;
        return;
    }
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(_UIAppearance, NSObject, Appearance, property<"tintColor", &Appearance::Ivars::tintColor>)
