#include "quartzcore/animation/layer_property.h"

#include <cstring>

#include "platform/animation.h"
#include "quartzcore/CALayer.h"

namespace sim {
namespace {

using namespace objc::literals;

template <class T>
PropertyValue numbers_of(const T& value) {
    static_assert(sizeof(T) <= sizeof(PropertyValue));
    PropertyValue numbers{};
    std::memcpy(numbers.data(), &value, sizeof value);
    return numbers;
}

template <class T>
void put(T& variable, const PropertyValue& numbers) {
    std::memcpy(&variable, numbers.data(), sizeof variable);
}

}  // namespace

PropertyValue value_of(CALayer* layer, LayerProperty property) {
    const auto& ivars = static_cast<Layer*>(layer)->ivars();
    switch (property) {
        case LayerProperty::position: return numbers_of(ivars.position);
        case LayerProperty::bounds: return numbers_of(ivars.bounds);
        case LayerProperty::opacity: return numbers_of(static_cast<double>(ivars.opacity));
        case LayerProperty::transform: return numbers_of(ivars.transform);
    }
    __builtin_unreachable();
}

void put_value(CALayer* layer, LayerProperty property, const PropertyValue& value) {
    auto& ivars = static_cast<Layer*>(layer)->ivars();
    switch (property) {
        case LayerProperty::position: return put(ivars.position, value);
        case LayerProperty::bounds: return put(ivars.bounds, value);
        case LayerProperty::opacity: ivars.opacity = static_cast<float>(value[0]); return;
        case LayerProperty::transform: return put(ivars.transform, value);
    }
}

NSString* name_of(LayerProperty property) {
    switch (property) {
        case LayerProperty::position: return "position"_ns;
        case LayerProperty::bounds: return "bounds"_ns;
        case LayerProperty::opacity: return "opacity"_ns;
        case LayerProperty::transform: return "transform"_ns;
    }
    __builtin_unreachable();
}

// Transformations are animated by views alone: nothing wraps one in an object here.
std::optional<LayerProperty> property_named(NSString* key_path) {
    for (auto property : {LayerProperty::position, LayerProperty::bounds, LayerProperty::opacity})
        if (name_of(property)->isEqualToString(key_path)) return property;
    return std::nullopt;
}

PropertyValue unwrapped(id value, LayerProperty property) {
    auto* object = static_cast<NSValue*>(value);
    switch (property) {
        case LayerProperty::position: return numbers_of(object->CGPointValue());
        case LayerProperty::bounds: return numbers_of(object->CGRectValue());
        default: return numbers_of(object->send<"doubleValue", double>());
    }
}

PropertyValue between(const PropertyValue& from, const PropertyValue& to, double part) {
    PropertyValue value;
    for (size_t i = 0; i < value.size(); ++i) value[i] = from[i] + (to[i] - from[i]) * part;
    return value;
}

}  // namespace sim
