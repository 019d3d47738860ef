// One keyboard theme: the content of a theme file, and the colours and images that it means.
#pragma once
#include "platform/uikit.h"

/// A thin face over one mutable dictionary, which is exactly the content of the theme's property-list file.
/// Setters encode at once, getters decode on each call; a missing or mistyped value reads as the fallback.
///
/// | key                  | written                             | fallback |
/// |----------------------|-------------------------------------|----------|
/// | "_ConfigName"        | string                              | nil      |
/// | "_TextColor"         | hex colour string                   | nil      |
/// | "_HighlightColor"    | hex colour string                   | nil      |
/// | "_BackgroundType"    | number: 1 flat, 2 gradient, 3 image | 4        |
/// | "_Colors"            | array of hex colour strings         | nil      |
/// | "_GradientDirection" | number, 1 to 8                      | 9        |
/// | "_Image"             | PNG data, or the string "nil"       | nil      |
/// | "_ImageAlpha"        | single-precision number             | 1.0      |
/// | "_VisibleKeycaps"    | boolean                             | NO       |
///
/// Theme files lie in /var/mobile/Library/Preferences/HuecraftConfiguration/. Errors are of the domain
/// "HuecraftConfigDomain", code -1, with description, failure reason and recovery suggestion.
struct HuecraftConfig : objc::Interface<HuecraftConfig, "HuecraftConfig", NSObject> {
    static HuecraftConfig* defaultConfig() { return class_send<"defaultConfig", HuecraftConfig*>(); }
    /// nil when the file does not load. The name includes the extension.
    static HuecraftConfig* configWithFilename(NSString* name) {
        return class_send<"configWithFilename:", HuecraftConfig*>(name);
    }
    static HuecraftConfig* configWith(UIColor* text, NSUInteger background_type, NSArray* colours,
                                      NSUInteger gradient_direction, UIImage* image, UIColor* highlight) {
        return class_send<"configWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor:",
                          HuecraftConfig*>(text, background_type, colours, gradient_direction, image,
                                           highlight);
    }

    objc::strong<HuecraftConfig> initWith(UIColor* text, NSUInteger background_type, NSArray* colours,
                                          NSUInteger gradient_direction, UIImage* image, UIColor* highlight) {
        return send<"initWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor:",
                    objc::strong<HuecraftConfig>>(text, background_type, colours, gradient_direction, image,
                                                  highlight);
    }
    objc::strong<HuecraftConfig> initWithFilename(NSString* name, NSError** error) {
        return send<"initWithFilename:error:", objc::strong<HuecraftConfig>>(name, error);
    }

    NSString* getConfigName() { return send<"getConfigName", NSString*>(); }
    UIColor* getTextColor() { return send<"getTextColor", UIColor*>(); }
    UIColor* getHighlightColor() { return send<"getHighlightColor", UIColor*>(); }
    NSUInteger getBackgroundType() { return send<"getBackgroundType", NSUInteger>(); }
    NSUInteger getGradientDirection() { return send<"getGradientDirection", NSUInteger>(); }
    /// nil when no entry is a string; other entries are left out.
    NSArray* getColors() { return send<"getColors", NSArray*>(); }
    UIImage* getImage() { return send<"getImage", UIImage*>(); }
    double getImageAlpha() { return send<"getImageAlpha", double>(); }
    bool getVisibleKeycaps() { return send<"getVisibleKeycaps", bool>(); }

    void setConfigName(NSString* name) { send<"setConfigName:">(name); }
    void setTextColor(UIColor* colour) { send<"setTextColor:">(colour); }
    void setHighlightColor(UIColor* colour) { send<"setHighlightColor:">(colour); }
    void setBackgroundType(NSUInteger type) { send<"setBackgroundType:">(type); }
    void setGradientDirection(NSUInteger direction) { send<"setGradientDirection:">(direction); }
    void setColors(NSArray* colours) { send<"setColors:">(colours); }
    void setImageData(UIImage* image) { send<"setImageData:">(image); }
    void setImageAlpha(double alpha) { send<"setImageAlpha:">(alpha); }
    void setVisibleKeycaps(bool visible) { send<"setVisibleKeycaps:">(visible); }

    /// The image scaled for the keyboard. The first call makes it, drops the encoded image, and answers nil;
    /// later calls answer it.
    UIImage* getImageCache() { return send<"getImageCache", UIImage*>(); }

    /// The name without the characters / \ ? % * | " < >.
    NSString* sanitizeFileName(NSString* name) { return send<"_sanitizeFileNameString:", NSString*>(name); }
    /// The dictionary itself.
    NSMutableDictionary* asPlist() { return send<"asPlist", NSMutableDictionary*>(); }
    /// YES when the file was written; an existing file never is. The folder is not made here.
    bool saveConfiguration(NSError** error) { return send<"saveConfiguration:", bool>(error); }
};
