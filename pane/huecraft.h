// The library's classes as a settings pane knows them: what docs/contract.md says, and no more.
#pragma once
#include "platform/controls.h"

/// A theme, a thin face over one mutable dictionary: the content of its file.
struct HuecraftConfig : objc::Interface<HuecraftConfig, "HuecraftConfig", NSObject> {
    static HuecraftConfig* defaultConfig() { return class_send<"defaultConfig", HuecraftConfig*>(); }

    NSString* getConfigName() { return send<"getConfigName", NSString*>(); }
    UIColor* getTextColor() { return send<"getTextColor", UIColor*>(); }
    UIColor* getHighlightColor() { return send<"getHighlightColor", UIColor*>(); }
    NSUInteger getBackgroundType() { return send<"getBackgroundType", NSUInteger>(); }
    NSUInteger getGradientDirection() { return send<"getGradientDirection", NSUInteger>(); }
    /// UIColors; nil when no entry is a string.
    NSArray* getColors() { return send<"getColors", NSArray*>(); }
    UIImage* getImage() { return send<"getImage", UIImage*>(); }
    double getImageAlpha() { return send<"getImageAlpha", double>(); }
    bool getVisibleKeycaps() { return send<"getVisibleKeycaps", bool>(); }

    void setConfigName(NSString* name) { send<"setConfigName:">(name); }
    void setTextColor(UIColor* color) { send<"setTextColor:">(color); }
    void setHighlightColor(UIColor* color) { send<"setHighlightColor:">(color); }
    void setBackgroundType(NSUInteger type) { send<"setBackgroundType:">(type); }
    void setGradientDirection(NSUInteger direction) { send<"setGradientDirection:">(direction); }
    void setColors(NSArray* colors) { send<"setColors:">(colors); }
    void setImageData(UIImage* image) { send<"setImageData:">(image); }
    void setImageAlpha(double alpha) { send<"setImageAlpha:">(alpha); }
    void setVisibleKeycaps(bool visible) { send<"setVisibleKeycaps:">(visible); }

    /// The dictionary itself.
    NSMutableDictionary* asPlist() { return send<"asPlist", NSMutableDictionary*>(); }
};

/// A still picture of a themed keyboard. There is one, and an earlier preview goes empty.
struct HCPreview : objc::Interface<HCPreview, "HCPreview", NSObject> {
    static HCPreview* sharedInstance() { return class_send<"sharedInstance", HCPreview*>(); }
    /// Points; zero where the system has no keyboard class to ask.
    static CGSize keyboardPortraitSize() { return class_send<"keyboardPortraitSize", CGSize>(); }

    /// Without a size of its own: what is in it is as large as a keyboard in portrait.
    UIView* viewForConfig(HuecraftConfig* theme) { return send<"viewForConfig:", UIView*>(theme); }
    void cleanup() { send<"cleanup">(); }
};

struct HCCITool : objc::Interface<HCCITool, "HCCITool", NSObject> {
    /// "#RRGGBB", or with alpha.
    static NSString* hexStringFromColor(UIColor* color) {
        return class_send<"hexStringFromColor:", NSString*>(color);
    }
    static UIColor* colorFromHexString(NSString* hex) {
        return class_send<"colorFromHexString:", UIColor*>(hex);
    }
    /// The image's shape in the colour.
    static UIImage* newColor(UIColor* color, UIImage* image) {
        return class_send<"newColor:forImage:", objc::strong<UIImage>>(color, image).autoreleased();
    }
};

/// The card that a tool is shown in, with a close button above its content and a confirm button below.
struct HCModalView : objc::Interface<HCModalView, "HCModalView", UIView> {
    UIView* contentView() { return send<"contentView", UIView*>(); }
    UIView* panelView() { return send<"panelView", UIView*>(); }
    UIView* shadowView() { return send<"shadowView", UIView*>(); }
};

/// A panel in which a person chooses a colour; its delegate receives it by
/// colorPickerReturnedWithColor:andHexString:. Confirming raises once the colours that were chosen last came
/// from their file, for the lists are immutable then.
struct HCColorPickerController
    : objc::Interface<HCColorPickerController, "HCColorPickerController", UIViewController> {
    /// Without an effect before the view is loaded.
    void setInitialColor(UIColor* colour) { send<"setInitialColor:">(colour); }
    void updateToColor(UIColor* colour) { send<"updateToColor:">(colour); }
    void shakeWrong() { send<"shakeWrong">(); }
    /// Weak.
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
    /// nil before the view is loaded.
    HCModalView* modal() { return send<"modal", HCModalView*>(); }
    UITextField* hexTextField() { return send<"hexTextField", UITextField*>(); }
    id recentColorDictionary() { return send<"recentColorDictionary", id>(); }
    void setRecentColorDictionary(NSMutableDictionary* all) { send<"setRecentColorDictionary:">(all); }
    id recentColors() { return send<"recentColors", id>(); }
    void setRecentColors(NSMutableArray* colours) { send<"setRecentColors:">(colours); }
};

/// An image that fills its superview, with a blur behind it where it is translucent.
struct HCImageView : objc::Interface<HCImageView, "HCImageView", UIView> {
    objc::strong<HCImageView> initWithImage(UIImage* image, double alpha) {
        return send<"initWithImage:alpha:", objc::strong<HCImageView>>(image, alpha);
    }
    /// Of the image that is shown, alphas that were set before count as well; the same alpha again has no
    /// effect.
    void setImageAlpha(double alpha) { send<"setImageAlpha:">(alpha); }
};

/// Theme files say the background's kind in these numbers.
namespace huecraft {
constexpr NSUInteger flat_background = 1, gradient_background = 2, image_background = 3, no_background = 4;
}
