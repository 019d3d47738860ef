#include "views/gradient_colours.h"

#include "objc/fast_enumeration.h"

NSArray* gradient_layer_colours(NSArray* colours) {
    NSMutableArray* core_colours = NSMutableArray::arrayWithCapacity(colours->count() + 1);
    objc::for_each<UIColor>(
        colours, [&](UIColor* colour) { core_colours->addObject(reinterpret_cast<id>(colour->CGColor())); });
    if (core_colours->count() == 1) core_colours->addObject(core_colours->objectAtIndex(0));
    return NSArray::arrayWithArray(core_colours);
}
