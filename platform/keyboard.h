// UIKit's private keyboard classes: those whose methods the library replaces, and what they are made of.
#pragma once
#include "platform/controls.h"
#include "platform/effects.h"
#include "platform/tables.h"

struct UIKBRenderingContext;

// --- What a keyboard consists of, and how its keys are drawn ---

/// A keyboard, one of its planes, or a key: the keyboard's description of itself.
struct UIKBTree : objc::Interface<UIKBTree, "UIKBTree", NSObject> {
    objc::strong<UIKBTree> initWithType(int type) {
        return send<"initWithType:", objc::strong<UIKBTree>>(type);
    }

    int type() { return send<"type", int>(); }
    /// "Latin-Small-Letter-G", "Shift-Key"; nil until set.
    NSString* name() { return send<"name", NSString*>(); }
    void setName(NSString* name) { send<"setName:">(name); }
    /// Points, in the plane's coordinates.
    CGRect frame() { return send<"frame", CGRect>(); }
    void setFrame(CGRect frame) { send<"setFrame:">(frame); }
    /// The text on the key; nil for a key that shows a glyph.
    NSString* displayString() { return send<"displayString", NSString*>(); }
    void setDisplayString(NSString* text) { send<"setDisplayString:">(text); }
    /// The text that the key types.
    NSString* representedString() { return send<"representedString", NSString*>(); }
    void setRepresentedString(NSString* text) { send<"setRepresentedString:">(text); }
    /// What kind of key it is.
    int displayType() { return send<"displayType", int>(); }
    void setDisplayType(int type) { send<"setDisplayType:">(type); }
    /// Whether a finger is on the key.
    int state() { return send<"state", int>(); }
    void setState(int state) { send<"setState:">(state); }
    /// Of a plane: which factory draws it.
    int visualStyle() { return send<"visualStyle", int>(); }
    void setVisualStyle(int style) { send<"setVisualStyle:">(style); }
    NSMutableArray* subtrees() { return send<"subtrees", NSMutableArray*>(); }
};

/// The style that the keyboard is drawn in.
struct UIKBRenderConfig : objc::Interface<UIKBRenderConfig, "UIKBRenderConfig", NSObject> {
    /// The light one, and the dark one.
    static UIKBRenderConfig* defaultConfig() { return class_send<"defaultConfig", UIKBRenderConfig*>(); }
    static UIKBRenderConfig* darkConfig() { return class_send<"darkConfig", UIKBRenderConfig*>(); }

    /// The code of the backdrop that a keyboard of that style is put on.
    static NSInteger backdropStyle(NSInteger style, NSInteger quality) {
        return class_send<"backdropStyleForStyle:quality:", NSInteger>(style, quality);
    }

    /// Dark glyphs on light keys; NO for light glyphs on dark keys.
    bool lightKeyboard() { return send<"lightKeyboard", bool>(); }
    void setLightKeyboard(bool light) { send<"setLightKeyboard:">(light); }
};

/// Decides how each key is drawn. The names are of colours, to be resolved by UIKBGetNamedColor.
struct UIKBRenderFactory : objc::Interface<UIKBRenderFactory, "UIKBRenderFactory", NSObject> {
    /// Of the subclass for that kind of plane.
    static UIKBRenderFactory* factory(int visual_style, UIKBRenderingContext* context) {
        return class_send<"factoryForVisualStyle:renderingContext:", UIKBRenderFactory*>(visual_style,
                                                                                         context);
    }
    objc::strong<UIKBRenderFactory> initWithRenderingContext(UIKBRenderingContext* context,
                                                             bool skip_layout_segments) {
        return send<"initWithRenderingContext:skipLayoutSegments:", objc::strong<UIKBRenderFactory>>(
            context, skip_layout_segments);
    }

    UIKBRenderConfig* renderConfig() { return send<"renderConfig", UIKBRenderConfig*>(); }
    NSString* defaultKeyBackgroundColorName() { return send<"defaultKeyBackgroundColorName", NSString*>(); }
    NSString* defaultKeyShadowColorName() { return send<"defaultKeyShadowColorName", NSString*>(); }
    NSString* controlKeyBackgroundColorName() { return send<"controlKeyBackgroundColorName", NSString*>(); }
    NSString* controlKeyForegroundColorName() { return send<"controlKeyForegroundColorName", NSString*>(); }
    NSString* controlKeyShadowColorName() { return send<"controlKeyShadowColorName", NSString*>(); }
};

/// What a key is filled with, by the name of a colour or of a gradient, or by two or three names of colours.
struct UIKBGradient : objc::Interface<UIKBGradient, "UIKBGradient", NSObject> {
    static UIKBGradient* gradientWithFlatColor(NSString* color) {
        return class_send<"gradientWithFlatColor:", UIKBGradient*>(color);
    }
    static UIKBGradient* gradientWithName(NSString* name) {
        return class_send<"gradientWithName:", UIKBGradient*>(name);
    }
    static UIKBGradient* gradientWithStartColor(NSString* start, NSString* end) {
        return class_send<"gradientWithStartColor:endColor:", UIKBGradient*>(start, end);
    }
    static UIKBGradient* gradientWith3Colors(NSArray* colors, CGFloat middle_location) {
        return class_send<"gradientWith3Colors:middleLocation:", UIKBGradient*>(colors, middle_location);
    }
    objc::strong<UIKBGradient> initWithFlatColor(NSString* color) {
        return send<"initWithFlatColor:", objc::strong<UIKBGradient>>(color);
    }
    objc::strong<UIKBGradient> initWithName(NSString* name) {
        return send<"initWithName:", objc::strong<UIKBGradient>>(name);
    }

    objc::strong<UIKBGradient> initWithStartColor(NSString* start, NSString* end) {
        return send<"initWithStartColor:endColor:", objc::strong<UIKBGradient>>(start, end);
    }
    objc::strong<UIKBGradient> initWith3Colors(NSArray* colors, CGFloat middle_location) {
        return send<"initWith3Colors:middleLocation:", objc::strong<UIKBGradient>>(colors, middle_location);
    }

    /// nil for any but one of a flat colour.
    NSString* flatColorName() { return send<"flatColorName", NSString*>(); }
    /// What its names stand for, looked up at each call; NULL for a flat colour, and for names of nothing.
    CGGradientRef CGGradient() { return send<"CGGradient", CGGradientRef>(); }
};

/// Lines along some edges of a key. Edges are the bits 1 (top), 2 (left), 4 (bottom), 8 (right); the weight
/// is the lines' width in points.
struct UIKBEdgeEffect : objc::Interface<UIKBEdgeEffect, "UIKBEdgeEffect", NSObject> {
    static UIKBEdgeEffect* effect(NSString* color, NSUInteger edges, CGFloat inset, CGFloat weight) {
        return class_send<"effectWithColor:edges:inset:weight:", UIKBEdgeEffect*>(color, edges, inset,
                                                                                  weight);
    }
    static UIKBEdgeEffect* effect(NSString* color, NSUInteger edges, UIEdgeInsets insets, CGFloat weight) {
        return class_send<"effectWithColor:edges:insets:weight:", UIKBEdgeEffect*>(color, edges, insets,
                                                                                   weight);
    }
    objc::strong<UIKBEdgeEffect> initWithColor(NSString* color, NSUInteger edges, UIEdgeInsets insets,
                                               CGFloat weight) {
        return send<"initWithColor:edges:insets:weight:", objc::strong<UIKBEdgeEffect>>(color, edges, insets,
                                                                                        weight);
    }

    /// The colour of its name, looked up at each call; NULL for none.
    CGColorRef CGColor() { return send<"CGColor", CGColorRef>(); }
    bool isValid() { return send<"isValid", bool>(); }
    NSUInteger edges() { return send<"edges", NSUInteger>(); }
    UIEdgeInsets insets() { return send<"insets", UIEdgeInsets>(); }
    CGFloat weight() { return send<"weight", CGFloat>(); }
};

/// A soft shadow behind a key. The weight is its blur radius in points.
struct UIKBShadowEffect : objc::Interface<UIKBShadowEffect, "UIKBShadowEffect", NSObject> {
    static UIKBShadowEffect* effect(NSString* color, CGSize offset, UIEdgeInsets insets, CGFloat weight) {
        return class_send<"effectWithColor:offset:insets:weight:", UIKBShadowEffect*>(color, offset, insets,
                                                                                      weight);
    }
    objc::strong<UIKBShadowEffect> initWithColor(NSString* color, CGSize offset, UIEdgeInsets insets,
                                                 CGFloat weight) {
        return send<"initWithColor:offset:insets:weight:", objc::strong<UIKBShadowEffect>>(color, offset,
                                                                                           insets, weight);
    }

    /// The colour of its name, looked up at each call; NULL for none.
    CGColorRef CGColor() { return send<"CGColor", CGColorRef>(); }
    bool isValid() { return send<"isValid", bool>(); }
    CGSize offset() { return send<"offset", CGSize>(); }
    UIEdgeInsets insets() { return send<"insets", UIEdgeInsets>(); }
    CGFloat weight() { return send<"weight", CGFloat>(); }
};

/// How a key's text or glyph is drawn: font, size, and the name of its colour.
struct UIKBTextStyle : objc::Interface<UIKBTextStyle, "UIKBTextStyle", NSObject> {
    static UIKBTextStyle* style(NSString* font_name, CGFloat font_size) {
        return class_send<"styleWithFontName:withFontSize:", UIKBTextStyle*>(font_name, font_size);
    }

    /// nil for the system's font.
    NSString* fontName() { return send<"fontName", NSString*>(); }
    void setFontName(NSString* name) { send<"setFontName:">(name); }
    CGFloat fontSize() { return send<"fontSize", CGFloat>(); }
    void setFontSize(CGFloat size) { send<"setFontSize:">(size); }
    /// The name of a colour, to be resolved by UIKBGetNamedColor.
    NSString* textColor() { return send<"textColor", NSString*>(); }
    void setTextColor(NSString* color) { send<"setTextColor:">(color); }
};

// --- Views and layers ---

/// Draws its key, as the factory says, into a picture: into its own layer's, or into those of layers that it
/// keeps by what is in them.
struct UIKBKeyView : objc::Interface<UIKBKeyView, "UIKBKeyView", UIView> {
    objc::strong<UIKBKeyView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        return send<"initWithFrame:keyplane:key:", objc::strong<UIKBKeyView>>(frame, keyplane, key);
    }

    UIKBTree* key() { return send<"key", UIKBTree*>(); }
    UIKBTree* keyplane() { return send<"keyplane", UIKBTree*>(); }
    /// The one of the plane's visual style, unless it is given another.
    UIKBRenderFactory* factory() { return send<"factory", UIKBRenderFactory*>(); }
    void setFactory(UIKBRenderFactory* factory) { send<"setFactory:">(factory); }
    /// Whether what it draws is in layers of their own.
    bool requiresSublayers() { return send<"requiresSublayers", bool>(); }
    /// The layer that it keeps for these flags.
    CALayer* layerForRenderFlags(NSInteger flags) { return send<"layerForRenderFlags:", CALayer*>(flags); }
    /// To be called when the key's state has changed.
    void prepareForDisplay() { send<"prepareForDisplay">(); }
    void displayLayer(CALayer* layer) { send<"displayLayer:">(layer); }
};

/// A key's view with another key's view in it.
struct UIKBContainerKeyView : objc::Interface<UIKBContainerKeyView, "UIKBContainerKeyView", UIKBKeyView> {};

/// A key that is drawn over a backdrop of its own rather than into the plane.
struct UIKBBlurredKeyView : objc::Interface<UIKBBlurredKeyView, "UIKBBlurredKeyView", UIKBContainerKeyView> {
    objc::strong<UIKBBlurredKeyView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        return send<"initWithFrame:keyplane:key:", objc::strong<UIKBBlurredKeyView>>(frame, keyplane, key);
    }
};

/// A layer that a key view keeps.
struct _UIKBKeyViewLayer : objc::Interface<_UIKBKeyViewLayer, "_UIKBKeyViewLayer", CALayer> {};

/// The title over a section of the emoji plane.
struct UIKeyboardEmojiSectionHeader
    : objc::Interface<UIKeyboardEmojiSectionHeader, "UIKeyboardEmojiSectionHeader",
                      UICollectionReusableView> {
    NSString* headerName() { return send<"headerName", NSString*>(); }
    void setHeaderName(NSString* name) { send<"setHeaderName:">(name); }
    UIColor* headerTextColor() { return send<"headerTextColor", UIColor*>(); }
    void setHeaderTextColor(UIColor* color) { send<"setHeaderTextColor:">(color); }
    /// Points.
    CGFloat headerFontSize() { return send<"headerFontSize", CGFloat>(); }
    void setHeaderFontSize(CGFloat size) { send<"setHeaderFontSize:">(size); }
    /// From 0 to 1.
    double headerOpacity() { return send<"headerOpacity", double>(); }
    void setHeaderOpacity(double opacity) { send<"setHeaderOpacity:">(opacity); }
    /// Whether the title is blended into what is behind it instead of drawn over it.
    bool useVibrantBlend() { return send<"useVibrantBlend", bool>(); }
    void setUseVibrantBlend(bool vibrant) { send<"setUseVibrantBlend:">(vibrant); }
};

struct UIKeyboardEmojiKeyView
    : objc::Interface<UIKeyboardEmojiKeyView, "UIKeyboardEmojiKeyView", UIKBKeyView> {};

/// The row of category symbols below the emoji: one key, and a disc behind the selected category.
struct UIKeyboardEmojiCategoryBar
    : objc::Interface<UIKeyboardEmojiCategoryBar, "UIKeyboardEmojiCategoryBar", UIKeyboardEmojiKeyView> {
    objc::strong<UIKeyboardEmojiCategoryBar> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        return send<"initWithFrame:keyplane:key:", objc::strong<UIKeyboardEmojiCategoryBar>>(frame, keyplane,
                                                                                             key);
    }
    NSUInteger selectedIndex() { return send<"selectedIndex", NSUInteger>(); }
    void setSelectedIndex(NSUInteger index) { send<"setSelectedIndex:">(index); }
    UIView* scrubView() { return send<"scrubView", UIView*>(); }
};

/// One suggestion above the keys. Its instance variable `m_activeView`, a UIView, stands behind the text of
/// the active one.
struct UIKeyboardPredictionCell
    : objc::Interface<UIKeyboardPredictionCell, "UIKeyboardPredictionCell", UIView> {
    void setText(NSString* text, id prediction, bool active, bool is_emoji) {
        send<"setText:prediction:active:isEmoji:">(text, prediction, active, is_emoji);
    }
    UILabel* label() { return send<"label", UILabel*>(); }
    bool active() { return send<"active", bool>(); }
    void setActive(bool active) { send<"setActive:">(active); }
    UIColor* textColor() { return send<"textColor", UIColor*>(); }
};

/// The bar below the keys, on phones with a home indicator.
struct UIKeyboardDockView : objc::Interface<UIKeyboardDockView, "UIKeyboardDockView", UIView> {};

/// A button of the dock: the globe, the microphone.
struct UIKeyboardDockItemButton
    : objc::Interface<UIKeyboardDockItemButton, "UIKeyboardDockItemButton", UIButton> {};

/// The system's backdrop for a numeric style. It fits itself to the view that it is put into.
struct _UIBackdropView : objc::Interface<_UIBackdropView, "_UIBackdropView", UIView> {
    objc::strong<_UIBackdropView> initWithStyle(NSInteger style) {
        return send<"initWithStyle:", objc::strong<_UIBackdropView>>(style);
    }
};

/// What stands behind a keyboard or a part of one.
struct UIKBBackdropView : objc::Interface<UIKBBackdropView, "UIKBBackdropView", UIVisualEffectView> {
    objc::strong<UIKBBackdropView> initWithFrame(CGRect frame, NSInteger style) {
        return send<"initWithFrame:style:", objc::strong<UIKBBackdropView>>(frame, style);
    }
    void transitionToStyle(NSInteger style) { send<"transitionToStyle:">(style); }
    /// Added by the library: the themed view inside this one, or nil.
    UIView* activeBackgroundView() { return send<"activeBackgroundView", UIView*>(); }
    void setActiveBackgroundView(UIView* view) { send<"setActiveBackgroundView:">(view); }
};

/// A backdrop that is drawn as one plain surface.
struct UIKBVisualEffectView
    : objc::Interface<UIKBVisualEffectView, "UIKBVisualEffectView", UIKBBackdropView> {
    objc::strong<UIKBVisualEffectView> initWithFrame(CGRect frame, NSInteger style) {
        return send<"initWithFrame:style:", objc::strong<UIKBVisualEffectView>>(frame, style);
    }
};

/// The backdrop of the keys, or of a bar above them: one piece, or a left and a right one while the keyboard
/// is split. A piece may be nil.
struct UIKBInputBackdropView : objc::Interface<UIKBInputBackdropView, "UIKBInputBackdropView", UIView> {
    UIKBBackdropView* inputBackdropFullView() { return send<"inputBackdropFullView", UIKBBackdropView*>(); }
    UIKBBackdropView* inputBackdropLeftView() { return send<"inputBackdropLeftView", UIKBBackdropView*>(); }
    UIKBBackdropView* inputBackdropRightView() { return send<"inputBackdropRightView", UIKBBackdropView*>(); }
    void setInputBackdropFullView(UIKBBackdropView* piece) { send<"setInputBackdropFullView:">(piece); }
    void setInputBackdropLeftView(UIKBBackdropView* piece) { send<"setInputBackdropLeftView:">(piece); }
    void setInputBackdropRightView(UIKBBackdropView* piece) { send<"setInputBackdropRightView:">(piece); }
    /// Shows the full piece, in its own coordinates, and hides the others.
    void layoutToFull(CGRect rect) { send<"layoutInputBackdropToFullWithRect:">(rect); }
    /// Shows the left and the right piece, and hides the full one.
    void layoutToSplit(CGRect left, CGRect right, NSUInteger inner_corners) {
        send<"layoutInputBackdropToSplitWithLeftViewRect:andRightViewRect:innerCorners:">(left, right,
                                                                                          inner_corners);
    }
    /// Added by the library: takes the themed view out of the piece.
    void removeKBBackdropEffects(UIView* piece) { send<"removeKBBackdropEffects:">(piece); }
};

/// The list of keyboards that the globe key opens.
struct UIInputSwitcherTableView
    : objc::Interface<UIInputSwitcherTableView, "UIInputSwitcherTableView", UITableView> {};

/// One keyboard of the list. The selected one is the keyboard in use.
struct UIInputSwitcherTableCell
    : objc::Interface<UIInputSwitcherTableCell, "UIInputSwitcherTableCell", UITableViewCell> {
    objc::strong<UIInputSwitcherTableCell> initWithStyle(NSInteger style, NSString* reuse_identifier) {
        return send<"initWithStyle:reuseIdentifier:", objc::strong<UIInputSwitcherTableCell>>(
            style, reuse_identifier);
    }
};

/// One picture of the switcher's row of keyboard positions. Its instance variables `_originalImage` and
/// `_invertedImage`, both UIImage, are what the picture is taken from.
struct UIInputSwitcherTableCellSegmentView
    : objc::Interface<UIInputSwitcherTableCellSegmentView, "UIInputSwitcherTableCellSegmentView", UIView> {
    UIImageView* imageView() { return send<"imageView", UIImageView*>(); }
    bool isSelected() { return send<"isSelected", bool>(); }
    /// Shows the inverted image.
    void setSelected(bool selected) { send<"setSelected:">(selected); }
};

/// A view above a keyboard or in its place.
struct UIInputView : objc::Interface<UIInputView, "UIInputView", UIView> {};

/// The bar over the keyboard of a web form. Its instance variables `_leftToolbar` and `_rightToolbar` are
/// views.
struct UIWebFormAccessory : objc::Interface<UIWebFormAccessory, "UIWebFormAccessory", UIInputView> {};

/// The part of a bar that holds its buttons.
struct _UIBarContentView : objc::Interface<_UIBarContentView, "_UIBarContentView", UIView> {};
struct _UIToolbarContentView
    : objc::Interface<_UIToolbarContentView, "_UIToolbarContentView", _UIBarContentView> {};

// --- The rest ---

struct UIKeyboardImpl : objc::Interface<UIKeyboardImpl, "UIKeyboardImpl", UIView> {
    /// Points; zero where the system has no such class.
    static CGSize keyboardSize(UIInterfaceOrientation orientation) {
        return class_send<"keyboardSizeForInterfaceOrientation:", CGSize>(orientation);
    }
};

extern "C" {
/// The colour of a name such as "UIKBColorClear"; not owned by the caller. A system without it has the
/// address zero, so that the library loads all the same.
[[gnu::weak]] CGColorRef UIKBGetNamedColor(NSString* name);
/// The gradient of a name such as "UIKBColorWildcatKeyGradient", which is no colour's; not owned by the
/// caller.
CGGradientRef UIKBGetNamedLinearGradient(NSString* name);
}
