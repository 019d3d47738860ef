#include "hooks/monochrome_filter.h"

namespace hooks {

using namespace objc::literals;

void set_monochrome_filter(CALayer* layer, CGColorRef colour, float bias, float amount) {
    CAFilter* filter = CAFilter::filterWithName("colorMonochrome"_ns);
    if (!filter) return;  // the system has no such class: the layer stays as the system drew it
    filter->setValue(reinterpret_cast<id>(colour), "inputColor"_ns);
    filter->setValue(NSNumber::numberWithFloat(bias), "inputBias"_ns);
    filter->setValue(NSNumber::numberWithFloat(amount), "inputAmount"_ns);
    layer->setFilters(NSArray::arrayWithObject(filter));
}

}  // namespace hooks
