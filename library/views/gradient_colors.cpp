// The colours of gradients, as layers take them.
#include "views/gradient_colors.h"

#include "objc/fast_enumeration.h"

NSArray* gradient_layer_colors(NSArray* colors) {
    NSMutableArray* core_colors = NSMutableArray::arrayWithCapacity(colors->count() + 1);
    objc::for_each<UIColor>(
        colors, [&](UIColor* color) { core_colors->addObject(reinterpret_cast<id>(color->CGColor())); });
    if (core_colors->count() == 1) core_colors->addObject(core_colors->objectAtIndex(0));
    return NSArray::arrayWithArray(core_colors);
}
