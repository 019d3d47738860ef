#include "uikit/geometry_values.h"

#include "platform/animation.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

/// Foundation's own structures for the same have other names.
struct GeometryValue : NSValue {
    template <class T, objc::Name Selector>
    static NSValue* with(Class self, T geometry) {
        return objc::send<Selector, NSValue*>(reinterpret_cast<id>(self), geometry);
    }
    template <class T, objc::Name Selector>
    T geometry() {
        return send<Selector, T>();
    }
};

}  // namespace

void add_geometry_to_values() {
    Class value = NSValue::class_object();
    redefine<"valueWithCGPoint:", &GeometryValue::with<CGPoint, "valueWithPoint:">>(value);
    redefine<"valueWithCGSize:", &GeometryValue::with<CGSize, "valueWithSize:">>(value);
    redefine<"valueWithCGRect:", &GeometryValue::with<CGRect, "valueWithRect:">>(value);
    redefine<"CGPointValue", &GeometryValue::geometry<CGPoint, "pointValue">>(value);
    redefine<"CGSizeValue", &GeometryValue::geometry<CGSize, "sizeValue">>(value);
    redefine<"CGRectValue", &GeometryValue::geometry<CGRect, "rectValue">>(value);
}

}  // namespace sim
