// Text, laid out in one font, to be measured and drawn.
#pragma once
#include <pango/pangocairo.h>

#include <memory>

#include "platform/uikit.h"

namespace sim {

/// What text is fitted into.
struct TextBox {
    /// Points; without a width lines end only where the text says so.
    CGFloat width = -1;
    /// What is too long for the last line ends in an ellipsis; 0 is any number of lines.
    NSInteger lines = 1;
    NSTextAlignment alignment = NSTextAlignmentNatural;
};

class TextLayout {
  public:
    /// nil text is empty; a nil font is the system's at 17 points.
    TextLayout(NSString* text, UIFont* font, const TextBox& box);

    /// Points, not rounded.
    CGSize size() const;
    /// How far from the left edge a caret stands before that character, a UTF-16 unit, of the first line.
    CGFloat caret_offset(NSString* text, NSUInteger index) const;
    /// Draws with the upper left corner at the point, where y points down. NULL draws nothing.
    void draw(CGContextRef, CGPoint, CGColorRef) const;

  private:
    struct Unreference {
        void operator()(PangoLayout* layout) const { g_object_unref(layout); }
    };
    std::unique_ptr<PangoLayout, Unreference> layout_;
};

/// The size of such a layout. Views ask for it again whenever they are laid out, so the latest are
/// remembered.
CGSize size_of_text(NSString* text, UIFont* font, const TextBox& box);

}  // namespace sim
