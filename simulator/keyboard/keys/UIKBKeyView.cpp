// A view that draws one key.
#include <map>

#include "keyboard/planes/key_kind.h"
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "keyboard/rendering/key_painter.h"
#include "keyboard/rendering/key_symbols.h"
#include "objc/class.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct KeyView : objc::Implements<KeyView, UIKBKeyView> {
    struct Ivars {
        strong<UIKBTree> keyplane, key;
        strong<UIKBRenderFactory> factory;
        std::map<NSInteger, strong<CALayer>> keyLayers;
    };

    strong<UIKBKeyView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().keyplane = keyplane;
        self->ivars().key = key;
        self->setBackgroundColor(nullptr);
        self->setOpaque(false);
        self->setContentMode(UIViewContentModeRedraw);
        self->setNeedsDisplay();
        return self;
    }

    UIKBTree* key() { return ivars().key; }
    UIKBTree* keyplane() { return ivars().keyplane; }
    UIKBRenderFactory* factory() {
        if (!ivars().factory) ivars().factory = sim::factory_of(ivars().keyplane);
        return ivars().factory;
    }
    void setFactory(UIKBRenderFactory* factory) {
        ivars().factory = factory;
        setNeedsDisplay();
    }
    void prepareForDisplay() { setNeedsDisplay(); }

    bool requiresSublayers() {
        return static_cast<sim::KeyKind>(ivars().key->displayType()) == sim::KeyKind::categories;
    }
    CALayer* layerForRenderFlags(NSInteger flags) {
        strong<CALayer>& kept = ivars().keyLayers[flags];
        if (!kept) {
            kept = _UIKBKeyViewLayer::class_send<"layer", CALayer*>();
            layer()->addSublayer(kept);
        }
        return kept;
    }

    void displayLayer(CALayer* layer) {
        if (self()->requiresSublayers()) {
            display_categories(
                self()->layerForRenderFlags(static_cast<NSInteger>(sim::RenderFlags::symbols)));
            return;
        }
        populate(layer, [this](CGContextRef context) {
            const sim::KeyTraits traits = sim::key_traits(self()->factory(), ivars().key);
            sim::paint_cap(context, sim::Path::rounded(cap(), traits.corner_radius), traits);
            sim::draw_symbols(context, ivars().key, traits.text, cap());
        });
    }

  private:
    CGRect cap() {
        CGRect bounds = this->bounds();
        bounds.size.height -= sim::room_below_cap;
        return bounds;
    }

    /// The multiply colour and the blend mode make the white symbols grey.
    void display_categories(CALayer* symbols) {
        symbols->setFrame(bounds());
        populate(symbols, [this](CGContextRef) { sim::draw_categories(bounds()); });
        symbols->setContentsMultiplyColor(UIColor::colorWithWhite(0.3, 0.8)->CGColor());
        symbols->setCompositingFilter("multiplyBlendMode"_ns);
    }

    /// Makes what `draw` draws in a context of the view's size the layer's contents.
    template <class Draw>
    void populate(CALayer* layer, Draw draw) {
        UIGraphicsBeginImageContextWithOptions(bounds().size, false, 0);
        draw(UIGraphicsGetCurrentContext());
        UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
        UIGraphicsEndImageContext();
        layer->setContents(reinterpret_cast<id>(picture->CGImage()));
        layer->setContentsScale(picture->scale());
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBKeyView, UIView, KeyView,
           ivar<"m_keyplane", &KeyView::Ivars::keyplane>,
           ivar<"m_key", &KeyView::Ivars::key>,
           ivar<"m_factory", &KeyView::Ivars::factory>,
           ivar<"_keyLayers", &KeyView::Ivars::keyLayers>,
           method<"initWithFrame:keyplane:key:", &KeyView::initWithFrame>,
           method<"key", &KeyView::key>,
           method<"keyplane", &KeyView::keyplane>,
           method<"factory", &KeyView::factory>,
           method<"setFactory:", &KeyView::setFactory>,
           method<"prepareForDisplay", &KeyView::prepareForDisplay>,
           method<"requiresSublayers", &KeyView::requiresSublayers>,
           method<"layerForRenderFlags:", &KeyView::layerForRenderFlags>,
           method<"displayLayer:", &KeyView::displayLayer>)
