// The properties of layers that can be animated.
#pragma once
#include <array>
#include <optional>

#include "platform/quartzcore.h"

namespace sim {

enum class LayerProperty { position, bounds, opacity, transform };

/// A property's numbers, as many as it has; the rest is zero.
using PropertyValue = std::array<double, 16>;

/// Of the layer itself, whatever is shown.
PropertyValue value_of(CALayer*, LayerProperty);
/// Puts it into the layer without notifying anybody.
void put_value(CALayer*, LayerProperty, const PropertyValue&);

std::optional<LayerProperty> property_named(NSString* key_path);
NSString* name_of(LayerProperty);
/// The numbers of an NSNumber or NSValue.
PropertyValue unwrapped(id value, LayerProperty);

PropertyValue between(const PropertyValue& from, const PropertyValue& to, double part);

}  // namespace sim
