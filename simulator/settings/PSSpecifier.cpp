// A row of a list in Settings.
#include "objc/class.h"
#include "objc/string.h"
#include "settings/entries.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct Specifier : objc::Implements<Specifier, PSSpecifier> {
    struct Ivars {
        strong<NSString> name;
        strong<NSMutableDictionary> properties;
        objc::weak<NSObject> target;
        NSInteger cellType = 0;
        Class detailControllerClass = nullptr;
    };

    static PSSpecifier* named(Class self, NSString* name, id target, SEL, SEL, Class detail, NSInteger cell,
                              Class) {
        auto made = objc::make<"init", PSSpecifier>(self);
        auto& ivars = static_cast<Specifier*>(made.get())->ivars();
        ivars.name = strong<NSString>::adopt(name->send<"copy", NSString*>());
        ivars.target = static_cast<NSObject*>(target);
        ivars.cellType = cell;
        ivars.detailControllerClass = detail;
        return std::move(made).autoreleased();
    }

    strong<PSSpecifier> init() {
        auto self = initialised_by_super<"init">();
        if (self) self->ivars().properties = NSMutableDictionary::alloc()->initWithCapacity(8);
        return strong<PSSpecifier>(self.get());
    }
    NSString* identifier() {
        if (auto* own = as<NSString>(ivars().properties->objectForKey("id"_ns))) return own;
        return ivars().name;
    }
    id propertyForKey(NSString* key) { return ivars().properties->objectForKey(key); }
    void setProperty(id value, NSString* key) {
        if (value)
            ivars().properties->setObject(value, key);
        else
            ivars().properties->removeObjectForKey(key);
    }
    NSMutableDictionary* properties() { return ivars().properties; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(PSSpecifier, NSObject, Specifier,
           class_method<"preferenceSpecifierNamed:target:set:get:detail:cell:edit:", &Specifier::named>,
           method<"init", &Specifier::init>,
           property<"name", &Specifier::Ivars::name>,
           ivar<"_properties", &Specifier::Ivars::properties>,
           property<"target", &Specifier::Ivars::target>,
           property<"cellType", &Specifier::Ivars::cellType>,
           property<"detailControllerClass", &Specifier::Ivars::detailControllerClass>,
           method<"identifier", &Specifier::identifier>,
           method<"propertyForKey:", &Specifier::propertyForKey>,
           method<"setProperty:forKey:", &Specifier::setProperty>,
           method<"properties", &Specifier::properties>)
