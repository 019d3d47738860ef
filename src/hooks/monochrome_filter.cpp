// The filter that draws a layer in shades of one colour.
#include "hooks/monochrome_filter.h"

namespace hooks {

using namespace objc::literals;

void set_monochrome_filter(CALayer* layer, CGColorRef colour, float bias, float amount) {
    CAFilter* filter = CAFilter::filterWithName("colorMonochrome"_ns);
    filter->setValue(reinterpret_cast<id>(colour), "inputColor"_ns);
    filter->setValue(NSNumber::numberWithFloat(bias), "inputBias"_ns);
    filter->setValue(NSNumber::numberWithFloat(amount), "inputAmount"_ns);
    layer->setFilters(NSArray::arrayWithObject(filter));
}

}  // namespace hooks
