#include "model/HuecraftConfig.h"

#include "model/HCCITool.h"
#include "model/collected.h"
#include "model/config_error.h"
#include "model/property_list_file.h"
#include "objc/class.h"
#include "objc/fast_enumeration.h"

namespace {

using namespace objc::literals;
using objc::strong;

constexpr NSUInteger type_when_missing = 4;
constexpr NSUInteger direction_when_missing = 9;
constexpr double alpha_when_missing = 1.0;

/// The scaled background reaches this far beyond the portrait keyboard, in points.
constexpr CGFloat height_beyond_keyboard = 40.0;

/// The folder of theme files followed by a name. The name is appended as it stands; nil reads "(null)", as
/// where no theme is named.
NSString* path_of(NSString* name) {
    if (!name) return "/var/mobile/Library/Preferences/HuecraftConfiguration/(null)"_ns;
    return "/var/mobile/Library/Preferences/HuecraftConfiguration/"_ns->stringByAppendingString(name);
}

/// An immutable array of the colours' hex strings, in order.
NSArray* hex_strings_of(NSArray* colours) {
    NSMutableArray* strings = NSMutableArray::arrayWithCapacity(colours->count());
    objc::for_each<UIColor>(
        colours, [&](UIColor* colour) { strings->addObject(HCCITool::hexStringFromColor(colour)); });
    return NSArray::arrayWithArray(strings);
}

/// What stands in the file for an image: its PNG form or, where there is none, the string "nil".
id stored_image(UIImage* image) {
    if (NSData* png = UIImagePNGRepresentation(image)) return png;
    return "nil"_ns;
}

UIColor* colour_of(id value) {
    auto* text = as<NSString>(value);
    return text ? HCCITool::colorFromHexString(text) : nullptr;
}

struct Theme : objc::Implements<Theme, HuecraftConfig> {
    struct Ivars {
        strong<NSMutableDictionary> configuration;
        strong<UIImage> backgroundImageCache;
    };

    // ---- Making a theme -------------------------------------------------------------------------

    static HuecraftConfig* defaultConfig(Class self) {
        const id colours[] = {UIColor::blackColor()->colorWithAlphaComponent(0.4f), UIColor::redColor()};
        return allocated(self)
            ->initWith(UIColor::whiteColor(), 2, NSArray::arrayWithObjects(colours, 2), 7, nullptr,
                       UIColor::darkGrayColor())
            .autoreleased();
    }

    static HuecraftConfig* configWithFilename(Class self, NSString* name) {
        return allocated(self)->initWithFilename(name, nullptr).autoreleased();
    }

    static HuecraftConfig* configWith(Class self, UIColor* text, NSUInteger type, NSArray* colours,
                                      NSUInteger direction, UIImage* image, UIColor* highlight) {
        return allocated(self)->initWith(text, type, colours, direction, image, highlight).autoreleased();
    }

    strong<HuecraftConfig> initWith(UIColor* text, NSUInteger type, NSArray* colours, NSUInteger direction,
                                    UIImage* image, UIColor* highlight) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().configuration = NSMutableDictionary::alloc()->initWithCapacity(4);
        self->store(HCCITool::hexStringFromColor(text), "_TextColor"_ns);
        self->store(NSNumber::numberWithUnsignedInteger(type), "_BackgroundType"_ns);
        self->store(hex_strings_of(colours), "_Colors"_ns);
        self->store(stored_image(image), "_Image"_ns);
        self->store(NSNumber::numberWithUnsignedInteger(direction), "_GradientDirection"_ns);
        self->store(HCCITool::hexStringFromColor(highlight), "_HighlightColor"_ns);
        return self;
    }

    strong<HuecraftConfig> initWithFilename(NSString* name, NSError** error) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        NSString* path = path_of(name);
        bool is_folder = false;
        const bool exists = NSFileManager::defaultManager()->fileExistsAtPath(path, &is_folder);
        if (is_folder) return fail(error, config_error::is_folder);
        if (!exists) return fail(error, config_error::not_found);
        NSData* bytes = NSData::dataWithContentsOfFile(path);
        if (!bytes) return fail(error, config_error::unreadable);
        NSError* parse_error = nullptr;
        id root = read_property_list(bytes, &parse_error);
        if (parse_error) {
            if (error) *error = parse_error;
            return nullptr;
        }
        auto* dictionary = as<NSDictionary>(root);
        if (!dictionary) return fail(error, config_error::not_a_dictionary);
        self->ivars().configuration = dictionary->mutableCopy();
        return self;
    }

    // ---- Reading it -----------------------------------------------------------------------------

    NSString* getConfigName() { return kept_for_caller(as<NSString>(value("_ConfigName"_ns))); }
    UIColor* getTextColor() { return colour_of(value("_TextColor"_ns)); }
    UIColor* getHighlightColor() { return colour_of(value("_HighlightColor"_ns)); }
    NSUInteger getBackgroundType() { return unsigned_value(value("_BackgroundType"_ns), type_when_missing); }
    NSUInteger getGradientDirection() {
        return unsigned_value(value("_GradientDirection"_ns), direction_when_missing);
    }

    NSArray* getColors() {
        Collected colours;
        objc::for_each<NSObject>(as<NSArray>(value("_Colors"_ns)), [&](NSObject* entry) {
            if (UIColor* colour = colour_of(entry)) colours.add(colour);
        });
        return colours.is_empty() ? nullptr : colours.array();
    }

    UIImage* getImage() {
        auto* data = as<NSData>(value("_Image"_ns));
        return data ? UIImage::imageWithData(data) : nullptr;
    }

    double getImageAlpha() { return float_value(value("_ImageAlpha"_ns), alpha_when_missing); }
    bool getVisibleKeycaps() { return bool_value(value("_VisibleKeycaps"_ns)); }

    // ---- Changing it ----------------------------------------------------------------------------

    void setConfigName(NSString* name) { store(name, "_ConfigName"_ns); }
    void setTextColor(UIColor* colour) { store(HCCITool::hexStringFromColor(colour), "_TextColor"_ns); }
    void setHighlightColor(UIColor* colour) {
        store(HCCITool::hexStringFromColor(colour), "_HighlightColor"_ns);
    }
    void setBackgroundType(NSUInteger type) {
        store(NSNumber::numberWithUnsignedInteger(type), "_BackgroundType"_ns);
    }
    void setGradientDirection(NSUInteger direction) {
        store(NSNumber::numberWithUnsignedInteger(direction), "_GradientDirection"_ns);
    }
    void setColors(NSArray* colours) { store(hex_strings_of(colours), "_Colors"_ns); }
    void setImageData(UIImage* image) { store(stored_image(image), "_Image"_ns); }
    void setImageAlpha(double alpha) {
        store(NSNumber::numberWithFloat(static_cast<float>(alpha)), "_ImageAlpha"_ns);
    }
    void setVisibleKeycaps(bool visible) { store(NSNumber::numberWithBool(visible), "_VisibleKeycaps"_ns); }

    // ---- The scaled image -----------------------------------------------------------------------

    /// Answers what the cache held when it was asked: the call that fills it answers nil. Hooks rely on
    /// asking again, so it stays.
    UIImage* getImageCache() {
        if (ivars().backgroundImageCache) return kept_for_caller(ivars().backgroundImageCache.get());
        if (auto* data = as<NSData>(value("_Image"_ns))) {
            objc::AutoreleasePool decoded;  // only the scaled image stays
            // The preview's class, which stands above this one, knows how large a keyboard is.
            auto preview = reinterpret_cast<id>(objc_getClass("HCPreview"));
            CGSize size = objc::send<"keyboardPortraitSize", CGSize>(preview);
            size.height += height_beyond_keyboard;
            ivars().backgroundImageCache = HCCITool::newScale(size, UIImage::imageWithData(data));
            ivars().configuration->removeObjectForKey("_Image"_ns);
        }
        return nullptr;
    }

    // ---- The file -------------------------------------------------------------------------------

    NSString* sanitizeFileName(NSString* name) {
        auto* refused = NSCharacterSet::characterSetWithCharactersInString("/\\?%*|\"<>"_ns);
        return name->componentsSeparatedByCharactersInSet(refused)->componentsJoinedByString(""_ns);
    }

    NSMutableDictionary* asPlist() { return ivars().configuration; }

    bool saveConfiguration(NSError** error) {
        NSString* name = self()->getConfigName();
        if (name->length() == 0) return fail(error, config_error::no_name), false;
        NSString* path = path_of(self()->sanitizeFileName(name))->stringByAppendingString(".plist"_ns);
        if (NSFileManager::defaultManager()->fileExistsAtPath(path))
            return fail(error, config_error::name_taken), false;
        return write_property_list(ivars().configuration, path, error);
    }

    NSString* description() { return ivars().configuration->description(); }

  private:
    static HuecraftConfig* allocated(Class self) {
        return objc::send<"alloc", HuecraftConfig*>(reinterpret_cast<id>(self));
    }

    id value(NSString* key) { return ivars().configuration->objectForKey(key); }
    void store(id object, NSString* key) { ivars().configuration->setObject(object, key); }

    /// The object, kept for as long as the caller's pool although a setter may replace it.
    template <class T>
    static T* kept_for_caller(T* object) {
        return strong<T>(object).autoreleased();
    }

    static std::nullptr_t fail(NSError** error, const config_error::Texts& texts) {
        if (error) *error = config_error::make(texts);
        return nullptr;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HuecraftConfig, NSObject, Theme,
           // Variables
           ivar<"configuration", &Theme::Ivars::configuration>,
           ivar<"backgroundImageCache", &Theme::Ivars::backgroundImageCache>,

           // Making a theme
           class_method<"defaultConfig", &Theme::defaultConfig>,
           class_method<"configWithFilename:", &Theme::configWithFilename>,
           class_method<"configWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor:",
                        &Theme::configWith>,
           method<"initWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor:",
                  &Theme::initWith>,
           method<"initWithFilename:error:", &Theme::initWithFilename>,

           // Reading it
           method<"getConfigName", &Theme::getConfigName>,
           method<"getTextColor", &Theme::getTextColor>,
           method<"getHighlightColor", &Theme::getHighlightColor>,
           method<"getBackgroundType", &Theme::getBackgroundType>,
           method<"getGradientDirection", &Theme::getGradientDirection>,
           method<"getColors", &Theme::getColors>,
           method<"getImage", &Theme::getImage>,
           method<"getImageAlpha", &Theme::getImageAlpha>,
           method<"getVisibleKeycaps", &Theme::getVisibleKeycaps>,

           // Changing it
           method<"setConfigName:", &Theme::setConfigName>,
           method<"setTextColor:", &Theme::setTextColor>,
           method<"setHighlightColor:", &Theme::setHighlightColor>,
           method<"setBackgroundType:", &Theme::setBackgroundType>,
           method<"setGradientDirection:", &Theme::setGradientDirection>,
           method<"setColors:", &Theme::setColors>,
           method<"setImageData:", &Theme::setImageData>,
           method<"setImageAlpha:", &Theme::setImageAlpha>,
           method<"setVisibleKeycaps:", &Theme::setVisibleKeycaps>,

           // The scaled image
           method<"getImageCache", &Theme::getImageCache>,

           // The file
           method<"_sanitizeFileNameString:", &Theme::sanitizeFileName>,
           method<"asPlist", &Theme::asPlist>,
           method<"saveConfiguration:", &Theme::saveConfiguration>,
           method<"description", &Theme::description>)
