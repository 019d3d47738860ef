// Drawing by the rules of CoreGraphics, done by cairo: the state and the operations behind a CGContext.
#pragma once
#include <functional>
#include <vector>

#include "coregraphics/CGColor.h"
#include "coregraphics/CGPath.h"
#include "coregraphics/drawing/bitmap.h"
#include "coregraphics/drawing/gradient_fill.h"
#include "platform/coregraphics.h"

namespace sim {

/// What saving and restoring covers, besides the clip, which cairo keeps.
struct CanvasState {
    /// User space to the device's, y up from the lower left corner.
    CGAffineTransform ctm = identity_transform;
    objc::strong<CGColor> fill, stroke;
    CGFloat alpha = 1, line_width = 1;
    CGBlendMode blend = kCGBlendModeNormal;
    CGInterpolationQuality quality = kCGInterpolationDefault;
    /// The opacity of the clip for each pixel of the device; null where only the path clips.
    Surface mask;
};

enum class FillRule { winding, even_odd };

/// Pixels copied from a canvas.
struct Excerpt {
    /// ARGB32; null where the canvas has no pixels.
    Surface pixels;
    /// Where its upper left corner was, in pixels from the canvas's own.
    int left = 0, top = 0;
};

/// Coordinates are in user space. What is not finite, or lies on a line because the transformation is flat,
/// draws nothing.
class Canvas {
  public:
    explicit Canvas(Bitmap bitmap);

    const Bitmap& bitmap() const { return bitmap_; }
    CanvasState& state() { return state_; }
    void save();
    /// Without a save that is still open, nothing happens.
    void restore();
    /// Puts the transformation before the current one.
    void concat(const CGAffineTransform&);

    PathElements& path() { return path_; }
    /// The path's elements, transformed as the context is now.
    void add(const PathElements&);

    // These empty the path.
    void fill_path(FillRule);
    void stroke_path();
    void clip_to_path(FillRule);

    void fill(CGRect);
    void clear(CGRect);
    void clip(CGRect);
    /// Paints where the picture, drawn into the rectangle, is opaque.
    void clip_to_mask(CGRect, cairo_surface_t* picture);
    CGRect clip_box() const;
    /// The picture's top edge comes to where y is greatest.
    void draw_image(CGRect, cairo_surface_t* picture);
    /// Everything within the clip.
    void paint(const LinearGradient&);

    /// What has been drawn so far, into the innermost layer, in the box of whole pixels around the rectangle.
    Excerpt excerpt(CGRect) const;
    /// Puts the pixels, from where they were taken, in place of what is there now. Outside the clip nothing
    /// changes.
    void put_back(const Excerpt&);

    /// Until the end, drawing goes to a transparent layer, with alpha 1 and normal blending.
    void begin_layer();
    /// Composites the layer as the state of the beginning says, after `adjust` had its pixels, where there
    /// are any.
    void end_layer(const std::function<void(cairo_surface_t*)>& adjust = {});

    /// Runs `draw` with a cairo context that has the state's transformation, y up, its clip and its blend
    /// mode. It multiplies its source with the state's alpha itself.
    void with_cairo(const std::function<void(cairo_t*)>& draw);

  private:
    enum class Opened { state, layer };
    struct Frame {
        Opened opened;
        CanvasState state;
    };

    CGAffineTransform to_pixels(const CGAffineTransform& user) const;
    void trace(CGRect) const;
    bool paint_directly(cairo_t*, const LinearGradient&) const;
    void close_frame();
    /// Who heeds the state's mask.
    enum class Masking { of_result, in_drawing };
    /// `draw` with the blend mode set, and mixed in as the mask says unless it heeds the mask itself.
    template <class Draw>
    void composite(Draw draw, Masking = Masking::of_result);
    template <class Draw>
    void composite_masked(Draw draw);
    template <class Draw>
    void composite_darker(Draw draw);
    /// Fills what is traced.
    void fill_traced(FillRule, cairo_pattern_t* source);

    Bitmap bitmap_;
    Cairo cairo_;
    CGFloat height_;  // pixels
    CanvasState state_;
    std::vector<Frame> frames_;
    size_t layers_ = 0;
    PathElements path_;  // in pixels
};

}  // namespace sim
