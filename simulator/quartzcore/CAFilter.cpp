// Filters: a kind, and values by key.
#include "objc/class.h"
#include "platform/quartzcore.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct Filter : objc::Implements<Filter, CAFilter> {
    struct Ivars {
        strong<NSString> type, name;
        strong<NSMutableDictionary> values;
    };

    static CAFilter* filterWithType(Class self, NSString* type) {
        auto filter = objc::make<"init", Filter>(self);
        filter->ivars().type = type;
        filter->ivars().name = type;
        filter->ivars().values = NSMutableDictionary::alloc()->initWithCapacity(4);
        return strong<CAFilter>(filter.get()).autoreleased();
    }

    static CAFilter* filterWithName(Class self, NSString* name) {
        return objc::send<"filterWithType:", CAFilter*>(reinterpret_cast<id>(self), name);
    }

    NSString* type() { return ivars().type; }

    // nil takes a value away: the filter then has its default again.
    void setValue(id value, NSString* key) {
        if (key->isEqualToString("name"_ns))
            ivars().name = static_cast<NSString*>(value);
        else if (value)
            ivars().values->setObject(value, key);
        else
            ivars().values->removeObjectForKey(key);
    }

    id valueForKey(NSString* key) {
        if (key->isEqualToString("name"_ns)) return ivars().name.get();
        if (key->isEqualToString("type"_ns)) return ivars().type.get();
        return ivars().values->objectForKey(key);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CAFilter, NSObject, Filter,
           class_method<"filterWithName:", &Filter::filterWithName>,
           class_method<"filterWithType:", &Filter::filterWithType>,
           ivar<"_type", &Filter::Ivars::type>,
           property<"name", &Filter::Ivars::name>,
           ivar<"_values", &Filter::Ivars::values>,
           method<"type", &Filter::type>,
           method<"setValue:forKey:", &Filter::setValue>,
           method<"valueForKey:", &Filter::valueForKey>)
