#include "model/HCPreferences.h"

#include "model/HuecraftConfig.h"
#include "model/property_list_file.h"
#include "objc/class.h"

namespace {

using namespace objc::literals;
using objc::strong;

NSDictionary* fallback_preferences() {
    const id keys[] = {"_Enabled"_ns, "_Config"_ns};
    const id values[] = {NSNumber::numberWithBool(false), ""_ns};
    return NSDictionary::dictionaryWithObjects(values, keys, 2);
}

/// What the preference file holds: nil when it is not a property list, the fallback when there is no file or
/// its root is not a dictionary.
NSDictionary* read_preferences() {
    NSData* bytes = NSData::dataWithContentsOfFile(
        "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist"_ns);
    if (!bytes) return fallback_preferences();
    id root = read_property_list(bytes);
    if (!root) return nullptr;
    auto* dictionary = as<NSDictionary>(root);
    return dictionary ? dictionary : fallback_preferences();
}

struct Store : objc::Implements<Store, HCPreferences> {
    struct Ivars {
        strong<NSDictionary> preferenceCache;
        strong<HuecraftConfig> configCache;
    };

    // ---- The one store --------------------------------------------------------------------------

    static HCPreferences* sharedInstance(Class self) {
        static constinit long once = 0;
        static constinit HCPreferences* instance = nullptr;
        dispatch_once_f(&once, self, objc::hand_over(+[](void* store_class) {
            instance = objc::send<"new", HCPreferences*>(static_cast<id>(store_class));
        }));
        return instance;
    }

    strong<HCPreferences> init() {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        auto& [preferences, theme] = self->ivars();
        preferences = read_preferences();
        if (preferences)
            theme = HuecraftConfig::configWithFilename(as<NSString>(preferences->objectForKey("_Config"_ns)));
        // Theming is on only with the switch on and the named theme loaded.
        if (preferences && !theme) preferences = fallback_preferences();
        return self;
    }

    // ---- What is on -----------------------------------------------------------------------------

    bool isEnabled() { return bool_value(ivars().preferenceCache->objectForKey("_Enabled"_ns)); }
    bool isCapsEnabled() { return theme()->getVisibleKeycaps(); }

    // ---- The active theme -----------------------------------------------------------------------

    UIColor* getTextColor() { return theme()->getTextColor(); }
    UIColor* getHighlightColor() { return theme()->getHighlightColor(); }
    NSUInteger getBackgroundType() { return theme()->getBackgroundType(); }
    NSUInteger getGradientDirection() { return theme()->getGradientDirection(); }
    NSArray* getColors() { return theme()->getColors(); }
    UIImage* getImage() { return theme()->getImageCache(); }
    double getImageAlpha() { return theme()->getImageAlpha(); }

    // ---- A dark keyboard ------------------------------------------------------------------------

    // The colours of a dark keyboard, whatever the theme. The names are the keyboard renderer's own.
    NSString* eKeyColorString() { return "UIKBColorBlack"_ns; }
    UIColor* eKeyColor() { return UIColor::blackColor(); }
    NSString* eHighlightColorString() { return "UIKBColorBlack_Alpha60"_ns; }
    UIColor* eHighlightColor() { return UIColor::blackColor()->colorWithAlphaComponent(0.6f); }
    NSString* eTextColorString() { return "UIKBColorWhite"_ns; }
    UIColor* eTextColor() { return UIColor::whiteColor(); }

  private:
    HuecraftConfig* theme() { return ivars().configCache; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCPreferences, NSObject, Store,
           // Variables
           ivar<"preferenceCache", &Store::Ivars::preferenceCache>,
           ivar<"configCache", &Store::Ivars::configCache>,

           // The one store
           class_method<"sharedInstance", &Store::sharedInstance>,
           method<"init", &Store::init>,

           // What is on
           method<"isEnabled", &Store::isEnabled>,
           method<"isCapsEnabled", &Store::isCapsEnabled>,

           // The active theme
           method<"getTextColor", &Store::getTextColor>,
           method<"getHighlightColor", &Store::getHighlightColor>,
           method<"getBackgroundType", &Store::getBackgroundType>,
           method<"getGradientDirection", &Store::getGradientDirection>,
           method<"getColors", &Store::getColors>,
           method<"getImage", &Store::getImage>,
           method<"getImageAlpha", &Store::getImageAlpha>,

           // A dark keyboard
           method<"eKeyColorString", &Store::eKeyColorString>,
           method<"eKeyColor", &Store::eKeyColor>,
           method<"eHighlightColorString", &Store::eHighlightColorString>,
           method<"eHighlightColor", &Store::eHighlightColor>,
           method<"eTextColorString", &Store::eTextColorString>,
           method<"eTextColor", &Store::eTextColor>)
