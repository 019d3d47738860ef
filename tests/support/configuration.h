// A theme driven by its selectors, as a settings pane drives it.
#pragma once
#include "support/phone.h"

namespace test {

/// What a theme and the preference store both answer, by selectors alone. The object is not owned.
struct ThemeValues {
    id object = nullptr;
    ThemeValues(id of = nullptr) : object(of) {}

    UIColor* text_colour() const { return objc::send<"getTextColor", UIColor*>(object); }
    UIColor* highlight_colour() const { return objc::send<"getHighlightColor", UIColor*>(object); }
    NSUInteger background_type() const { return objc::send<"getBackgroundType", NSUInteger>(object); }
    NSUInteger direction() const { return objc::send<"getGradientDirection", NSUInteger>(object); }
    NSArray* colours() const { return objc::send<"getColors", NSArray*>(object); }
    UIImage* image() const { return objc::send<"getImage", UIImage*>(object); }
    double image_alpha() const { return objc::send<"getImageAlpha", double>(object); }
};

/// HuecraftConfig.
struct Configuration : ThemeValues {
    using ThemeValues::ThemeValues;
    static Configuration made_default() {
        return {objc::send<"defaultConfig", id>(class_named("HuecraftConfig"))};
    }
    static Configuration from_file(std::string_view name) {
        return {objc::send<"configWithFilename:", id>(class_named("HuecraftConfig"), text(name))};
    }
    /// A configuration whose dictionary holds exactly what the XML says.
    static Configuration from_xml(const Phone& phone, std::string_view xml_of_dictionary);

    explicit operator bool() const { return object != nullptr; }
    NSMutableDictionary* plist() const { return objc::send<"asPlist", NSMutableDictionary*>(object); }
    id stored(const char* key) const { return plist()->objectForKey(text(key)); }

    std::string name() const { return utf8(objc::send<"getConfigName", NSString*>(object)); }
    UIImage* image_cache() const { return objc::send<"getImageCache", UIImage*>(object); }
    bool caps_visible() const { return objc::send<"getVisibleKeycaps", bool>(object); }

    void set_name(std::string_view name) const { objc::send<"setConfigName:">(object, text(name)); }
    bool save(NSError** error = nullptr) const {
        return objc::send<"saveConfiguration:", bool>(object, error);
    }
};

/// The three texts of an error, and where it comes from.
struct ErrorTexts {
    std::string domain, description, reason, suggestion;
    long code = 0;
    size_t entries = 0;  // of the user information
    friend bool operator==(const ErrorTexts&, const ErrorTexts&) = default;
    friend void PrintTo(const ErrorTexts& e, std::ostream* out) {
        *out << e.domain << " " << e.code << ": " << e.description << " | " << e.reason << " | "
             << e.suggestion << " (" << e.entries << " entries)";
    }
};
ErrorTexts texts_of(NSError* error);

/// An error of the theme files' own domain.
inline ErrorTexts config_error(std::string description, std::string reason, std::string suggestion) {
    return {"HuecraftConfigDomain", std::move(description), std::move(reason), std::move(suggestion), -1, 3};
}

}  // namespace test
