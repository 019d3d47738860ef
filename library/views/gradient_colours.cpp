#include "views/gradient_colours.h"

#include "model/collected.h"
#include "objc/fast_enumeration.h"

NSArray* gradient_layer_colours(NSArray* colours) {
    Collected core_colours;
    objc::for_each<UIColor>(
        colours, [&](UIColor* colour) { core_colours.add(reinterpret_cast<id>(colour->CGColor())); });
    if (core_colours.is_single()) core_colours.add(core_colours.last());
    return core_colours.array();
}
