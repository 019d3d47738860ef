#include "uikit/text_layout.h"

#include <algorithm>
#include <compare>
#include <cstring>
#include <map>
#include <string>

#include "coregraphics/CGContext.h"
#include "uikit/UIFont.h"

namespace sim {
namespace {

PangoAlignment alignment_of(NSTextAlignment alignment) {
    if (alignment == NSTextAlignmentCenter) return PANGO_ALIGN_CENTER;
    return alignment == NSTextAlignmentRight ? PANGO_ALIGN_RIGHT : PANGO_ALIGN_LEFT;
}

/// What the size of a layout depends on.
struct Measured {
    const Typeface* typeface;
    CGFloat font_size, width;
    NSInteger lines;
    std::string text;
    friend auto operator<=>(const Measured&, const Measured&) = default;
};

}  // namespace

TextLayout::TextLayout(NSString* text, UIFont* font, const TextBox& box) {
    if (!font) font = UIFont::systemFontOfSize(17);
    layout_.reset(pango_layout_new(context_of(typeface_of(font))));
    PangoFontDescription* description = description_of(font);
    pango_layout_set_font_description(layout_.get(), description);
    pango_font_description_free(description);
    pango_layout_set_text(layout_.get(), text ? text->UTF8String() : "", -1);
    if (box.width >= 0) {
        constexpr CGFloat widest = 1e6;
        pango_layout_set_width(layout_.get(), static_cast<int>(std::min(box.width, widest) * PANGO_SCALE));
        pango_layout_set_wrap(layout_.get(), PANGO_WRAP_WORD_CHAR);
        pango_layout_set_alignment(layout_.get(), alignment_of(box.alignment));
        if (box.lines > 0) {
            pango_layout_set_ellipsize(layout_.get(), PANGO_ELLIPSIZE_END);
            pango_layout_set_height(layout_.get(), static_cast<int>(-std::min<NSInteger>(box.lines, 1000)));
        }
    }
}

CGSize TextLayout::size() const {
    int width = 0, height = 0;
    pango_layout_get_size(layout_.get(), &width, &height);
    return {static_cast<CGFloat>(width) / PANGO_SCALE, static_cast<CGFloat>(height) / PANGO_SCALE};
}

CGFloat TextLayout::caret_offset(NSString* text, NSUInteger index) const {
    NSString* before = text->send<"substringToIndex:", NSString*>(index);
    PangoRectangle strong;
    pango_layout_get_cursor_pos(layout_.get(), static_cast<int>(std::strlen(before->UTF8String())), &strong,
                                nullptr);
    return static_cast<CGFloat>(strong.x) / PANGO_SCALE;
}

void TextLayout::draw(CGContextRef context, CGPoint point, CGColorRef color) const {
    if (!context || !color) return;
    Canvas& canvas = canvas_of(context);
    canvas.with_cairo([&](cairo_t* cairo) {
        cairo_set_source(cairo, source_of(color, canvas.state().alpha));
        cairo_move_to(cairo, point.x, point.y);
        pango_cairo_show_layout(cairo, layout_.get());
    });
}

CGSize size_of_text(NSString* text, UIFont* font, const TextBox& box) {
    constexpr size_t longest = 200, most = 1000;
    const char* bytes = text ? text->UTF8String() : "";
    if (std::strlen(bytes) > longest) return TextLayout(text, font, box).size();
    if (!font) font = UIFont::systemFontOfSize(17);
    static auto& sizes = *new std::map<Measured, CGSize>;
    if (sizes.size() == most) sizes.clear();
    const auto [known, is_new] =
        sizes.try_emplace({&typeface_of(font), font->pointSize(), box.width, box.lines, std::string(bytes)});
    if (is_new) known->second = TextLayout(text, font, box).size();
    return known->second;
}

}  // namespace sim
