#include "uikit/UIFont.h"

#include <compare>
#include <map>
#include <string>

#include "objc/class.h"
#include "uikit/surroundings/text_styles.h"

namespace {

using objc::strong;

struct Font : objc::Implements<Font, UIFont> {
    struct Design {
        const sim::Typeface* typeface = nullptr;
        CGFloat size = 0;
        friend auto operator<=>(const Design&, const Design&) = default;
    };
    struct LineMetrics {
        CGFloat ascent = 0, descent = 0;
    };
    struct Ivars {
        Design design;
    };

    static UIFont* with(const sim::Typeface* typeface, CGFloat size) {
        auto font = strong<Font>::adopt(UIFont::class_send<"new", Font*>());
        font->ivars().design = {typeface, size > 0 ? size : default_size};
        return strong<UIFont>(font.get()).autoreleased();
    }

    static UIFont* systemFontOfSize(Class self, CGFloat size) {
        return objc::send<"systemFontOfSize:weight:", UIFont*>(reinterpret_cast<id>(self), size,
                                                               UIFontWeightRegular);
    }
    static UIFont* boldSystemFontOfSize(Class self, CGFloat size) {
        return objc::send<"systemFontOfSize:weight:", UIFont*>(reinterpret_cast<id>(self), size,
                                                               UIFontWeightSemibold);
    }
    static UIFont* systemFontOfSizeAndWeight(Class, CGFloat size, UIFontWeight weight) {
        return with(&sim::system_typeface(weight, size), size);
    }
    static UIFont* fontWithName(Class, NSString* name, CGFloat size) {
        const auto* typeface = name ? sim::typeface_named(name->UTF8String()) : nullptr;
        return typeface ? with(typeface, size) : nullptr;
    }

    static UIFont* preferredFontForTextStyle(Class, NSString* style) {
        return sim::font_of_text_style(style);
    }

    UIFont* fontWithSize(CGFloat size) { return with(ivars().design.typeface, size); }
    NSString* fontName() {
        return NSString::stringWithUTF8String(std::string(ivars().design.typeface->font_name).c_str());
    }
    CGFloat pointSize() { return ivars().design.size; }

    CGFloat ascender() { return metrics().ascent; }
    CGFloat descender() { return -metrics().descent; }
    CGFloat lineHeight() { return ascender() - descender(); }

    bool isEqual(id other) {
        auto* font = static_cast<Font*>(as<UIFont>(other));
        return font && font->ivars().design == ivars().design;
    }
    NSUInteger hash() {
        return reinterpret_cast<NSUInteger>(ivars().design.typeface) ^
               static_cast<NSUInteger>(ivars().design.size);
    }
    strong<UIFont> copyWithZone(void*) { return this; }  // a font never changes

  private:
    static constexpr CGFloat default_size = 12;

    const LineMetrics& metrics() {
        static auto& measured = *new std::map<Design, LineMetrics>;
        const auto [known, is_new] = measured.try_emplace(ivars().design);
        if (is_new) known->second = measure();
        return known->second;
    }

    /// Of a glyph without ink: what Pango calls the font's metrics it lays a text out for, and scales twice
    /// for emoji.
    LineMetrics measure() {
        PangoFontDescription* description = sim::description_of(this);
        PangoFont* font = pango_context_load_font(sim::context_of(*ivars().design.typeface), description);
        PangoRectangle line;
        pango_font_get_glyph_extents(font, PANGO_GLYPH_EMPTY, nullptr, &line);
        g_object_unref(font);
        pango_font_description_free(description);
        auto in_points = [](int units) { return static_cast<CGFloat>(units) / PANGO_SCALE; };
        return {in_points(-line.y), in_points(line.y + line.height)};
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIFont, NSObject, Font,
           ivar<"_design", &Font::Ivars::design>,
           class_method<"systemFontOfSize:", &Font::systemFontOfSize>,
           class_method<"boldSystemFontOfSize:", &Font::boldSystemFontOfSize>,
           class_method<"systemFontOfSize:weight:", &Font::systemFontOfSizeAndWeight>,
           class_method<"fontWithName:size:", &Font::fontWithName>,
           class_method<"preferredFontForTextStyle:", &Font::preferredFontForTextStyle>,
           method<"fontWithSize:", &Font::fontWithSize>,
           method<"fontName", &Font::fontName>,
           method<"pointSize", &Font::pointSize>,
           method<"ascender", &Font::ascender>,
           method<"descender", &Font::descender>,
           method<"lineHeight", &Font::lineHeight>,
           method<"isEqual:", &Font::isEqual>,
           method<"hash", &Font::hash>,
           method<"copyWithZone:", &Font::copyWithZone>)

namespace sim {

const Typeface& typeface_of(UIFont* font) { return *static_cast<Font*>(font)->ivars().design.typeface; }

PangoFontDescription* description_of(UIFont* font) {
    const Typeface& typeface = typeface_of(font);
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family_static(description, typeface.family);
    pango_font_description_set_weight(description, typeface.pango_weight);
    pango_font_description_set_absolute_size(description, font->pointSize() * PANGO_SCALE);
    return description;
}

}  // namespace sim
