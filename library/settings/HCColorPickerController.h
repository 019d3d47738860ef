// The screen on which a person chooses one colour.
#pragma once
#include "platform/scrolling.h"
#include "settings/HCColorSlider.h"
#include "settings/HCModalView.h"

/// Hears of the colour that was chosen. The method is optional.
struct HCColorPickerDelegate : objc::ProtocolInterface<"HCColorPickerDelegate"> {
    /// The colour is the sliders', the text the field's. They disagree when a text was typed and not
    /// returned.
    void colorPickerReturned(UIColor* colour, NSString* hex) {
        send<"colorPickerReturnedWithColor:andHexString:">(colour, hex);
    }
};

/// A modal panel that springs up from below: a preview, a hex text, four sliders, the six colours that were
/// chosen last, and two buttons that exchange the hex text with the pasteboard. Either button of the panel
/// dismisses it.
///
/// The current colour is what the four sliders say; `updateToColor:` makes text and preview follow.
struct HCColorPickerController
    : objc::Interface<HCColorPickerController, "HCColorPickerController", UIViewController> {
    objc::strong<HCColorPickerController> init() {
        return send<"init", objc::strong<HCColorPickerController>>();
    }
    /// Without an effect before the view is loaded.
    void setInitialColor(UIColor* colour) { send<"setInitialColor:">(colour); }
    void updateToColor(UIColor* colour) { send<"updateToColor:">(colour); }
    /// What a person sees when the input was refused.
    void shakeWrong() { send<"shakeWrong">(); }
    /// Reads the colours that were chosen last from their file.
    void grabRecentColorData() { send<"grabRecentColorData">(); }

    // The steps of building, in order.
    void configColorPicker() { send<"configColorPicker">(); }
    void setupContentView() { send<"setupContentView">(); }
    void setupContentSubviews() { send<"setupContentSubviews">(); }
    void addViewsInOrder() { send<"addViewsInOrder">(); }
    void setupConstraints() { send<"setupConstraints">(); }
    void applyColor() { send<"applyColor">(); }

    // The icons; not owned by the caller, whatever the first one's name says.
    UIImage* copyImage() { return send<"copyImage", UIImage*>(); }
    UIImage* pasteImage() { return send<"pasteImage", UIImage*>(); }

    void closeButtonPressed() { send<"closeButtonPressed">(); }
    void selectButtonPressed() { send<"selectButtonPressed">(); }

    /// Weak.
    HCColorPickerDelegate* delegate() { return send<"delegate", HCColorPickerDelegate*>(); }
    void setDelegate(HCColorPickerDelegate* delegate) { send<"setDelegate:">(delegate); }
    /// YES at first; read when the view is loaded.
    bool lightUI() { return send<"lightUI", bool>(); }
    void setLightUI(bool light) { send<"setLightUI:">(light); }
};
