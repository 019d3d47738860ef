// The memory of a bitmap context: cairo's surface, and the caller's bytes in the caller's order.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "coregraphics/cairo_handles.h"
#include "platform/coregraphics.h"

namespace sim {

/// Where the components of a 32-bit pixel lie in memory.
struct PixelLayout {
    uint8_t blue, green, red, alpha;
    /// The fourth byte is there, but is not alpha: every pixel is opaque.
    bool alpha_skipped;

    /// Nothing for what is not 32 bits of premultiplied or skipped alpha.
    static std::optional<PixelLayout> of(CGBitmapInfo);
    /// The order in which cairo has it on this machine.
    bool is_cairos() const { return blue == 0 && green == 1 && red == 2 && alpha == 3; }
};

/// Cairo draws in one order of bytes only. Memory in that order is drawn into directly; other memory has a
/// surface beside it, and `load` and `store` carry the pixels over: each may change the picture in turn.
class Bitmap {
  public:
    /// Transparent or black memory in the format of UIKit's image contexts; the surface owns it. Nothing for
    /// sizes of zero and beyond the limits.
    static std::optional<Bitmap> of_size(size_t width, size_t height, bool opaque);
    /// Over `data`, which outlives it, or over zeroed memory of its own where that is null. `row_bytes` is at
    /// least four for each pixel.
    static std::optional<Bitmap> over(void* data, size_t width, size_t height, size_t row_bytes,
                                      CGBitmapInfo);

    cairo_surface_t* surface() const { return surface_; }
    void* data() const { return data_; }
    size_t row_bytes() const { return row_bytes_; }
    CGBitmapInfo info() const { return info_; }

    /// Before drawing: what the caller wrote.
    void load() const;
    /// After drawing: what the caller reads.
    void store() const;

  private:
    Surface surface_;
    std::unique_ptr<uint8_t[]> owned_;
    uint8_t* data_ = nullptr;
    size_t row_bytes_ = 0;
    CGBitmapInfo info_ = 0;
    PixelLayout layout_{};
};

/// A picture of the surface as it is now.
Surface snapshot(cairo_surface_t*);

}  // namespace sim
