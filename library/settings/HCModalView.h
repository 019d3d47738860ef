// A rounded card with a shadow, in which the settings pane shows a tool.
#pragma once
#include "platform/controls.h"
#include "settings/HCModalOptions.h"

/// The content area in the middle of the card is 300 points high; a round close button and a strip for more
/// are above it, a confirm button below. Nothing checks that the card has room for them.
///
/// The palette is dark or light as the options say, or Eclipse's, if that darkens the Settings app.
struct HCModalView : objc::Interface<HCModalView, "HCModalView", UIView> {
    /// Builds all of it. The buttons notify the delegate that the options have now, without retaining it.
    objc::strong<HCModalView> initWithFrame(CGRect frame, HCModalOptions* options) {
        return send<"initWithFrame:modalOptions:", objc::strong<HCModalView>>(frame, options);
    }

    // The four steps of building, in order.
    void setupViews() { send<"setupViews">(); }
    void addSubviewsInOrder() { send<"addSubviewsInOrder">(); }
    void setupConstraints() { send<"setupConstraints">(); }
    /// May be called again when colours have changed.
    void applyColor() { send<"applyColor">(); }

    HCModalOptions* modalOptions() { return send<"modalOptions", HCModalOptions*>(); }
    /// Where a user's own views go.
    UIView* contentView() { return send<"contentView", UIView*>(); }
    /// Fills `extraTopView`: the place for a toolbar.
    UIView* topView() { return send<"topView", UIView*>(); }
    /// Read from Eclipse's preferences once, when the panel is built.
    bool isEclipseEnabled() { return send<"isEclipseEnabled", bool>(); }
    void setIsEclipseEnabled(bool enabled) { send<"setIsEclipseEnabled:">(enabled); }

    /// Each text colour is the other scheme colour.
    UIColor* primaryColor() { return send<"primaryColor", UIColor*>(); }
    UIColor* secondaryColor() { return send<"secondaryColor", UIColor*>(); }
    UIColor* primaryTextColor() { return send<"primaryTextColor", UIColor*>(); }
    UIColor* secondaryTextColor() { return send<"secondaryTextColor", UIColor*>(); }

    /// Casts the card's shadow and shows nothing else.
    UIView* shadowView() { return send<"shadowView", UIView*>(); }
    /// The card.
    UIView* panelView() { return send<"panelView", UIView*>(); }
    UIButton* closeButton() { return send<"closeButton", UIButton*>(); }
    UIButton* selectButton() { return send<"selectButton", UIButton*>(); }
    /// The strip to the right of the close button.
    UIView* extraTopView() { return send<"extraTopView", UIView*>(); }
};
