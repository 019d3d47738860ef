// What a modal panel is built from: where it is, how it looks, and who is notified by its buttons.
#pragma once
#include "platform/uikit.h"

/// Notified by the panel's two buttons. Both methods are required.
struct HCModalDelegate : objc::ProtocolInterface<"HCModalDelegate"> {
    void closeButtonPressed() { send<"closeButtonPressed">(); }
    void selectButtonPressed() { send<"selectButtonPressed">(); }
};

struct HCModalOptions : objc::Interface<HCModalOptions, "HCModalOptions", NSObject> {
    objc::strong<HCModalOptions> initWithModalFrame(CGRect frame, double corner_radius,
                                                    HCModalDelegate* delegate, bool light_ui,
                                                    NSString* select_button_title) {
        return send<"initWithModalFrame:cornerRadius:delegate:isLightUI:selectTitleForButton:",
                    objc::strong<HCModalOptions>>(frame, corner_radius, delegate, light_ui,
                                                  select_button_title);
    }

    /// The card's frame in the panel's view, in points.
    CGRect modalFrame() { return send<"modalFrame", CGRect>(); }
    void setModalFrame(CGRect frame) { send<"setModalFrame:">(frame); }
    /// Of the card, its shadow and its content area.
    double cornerRadius() { return send<"cornerRadius", double>(); }
    void setCornerRadius(double radius) { send<"setCornerRadius:">(radius); }
    /// Not retained; nil once it is gone.
    HCModalDelegate* delegate() { return send<"delegate", HCModalDelegate*>(); }
    void setDelegate(HCModalDelegate* delegate) { send<"setDelegate:">(delegate); }
    /// Whether the card is drawn light, where nothing else decides.
    bool lightUI() { return send<"lightUI", bool>(); }
    void setLightUI(bool light) { send<"setLightUI:">(light); }
    /// On the confirm button; nil leaves it without a title.
    NSString* selectButtonTitle() { return send<"selectButtonTitle", NSString*>(); }
    void setSelectButtonTitle(NSString* title) { send<"setSelectButtonTitle:">(title); }
};
