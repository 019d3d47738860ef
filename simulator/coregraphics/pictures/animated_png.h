// Animated PNG: pictures of one size, one after the other, as libpng encodes each and with the chunks that it
// does not know.
#pragma once
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "coregraphics/cairo_handles.h"

namespace sim {

struct PixelRectangle {
    size_t x = 0, y = 0, width = 0, height = 0;
};

/// Grows frame by frame, in an unnamed file of the host's folder for temporary files: memory holds the last
/// frame alone, and nothing is left behind whenever the process ends.
///
/// A frame that is the same as the one before only lasts longer; of another the rectangle that changed is
/// kept.
class AnimatedPng {
  public:
    /// Each frame lasts one part of a second, of that many. From 1 to 65535.
    explicit AnimatedPng(unsigned frames_per_second);

    /// The surface, of 32 bits a pixel, is kept and must not change any more; its alpha does not count. One
    /// of another size than the first is cut, or black is added, to the right and below. False, and `error`
    /// says why in one line, when it could not be kept.
    bool add(Surface frame, std::string& error);

    /// Writes what there is so far to a path of the host, to be played again and again.
    bool write(const std::string& path, std::string& error) const;

  private:
    /// The frame that is shown now: how long, is not known yet.
    struct Shown {
        PixelRectangle place;
        std::vector<uint8_t> png;
        size_t duration;
    };
    class Chunks;

    bool keep_shown(std::string& error);
    /// As its chunks in the file.
    void put_shown(Chunks&) const;

    unsigned frames_per_second_;
    /// What comes before the chunks of animations.
    std::vector<uint8_t> head_;
    Surface last_;
    Shown shown_{};
    /// Frames before the one that is shown, and the file that holds them.
    size_t kept_ = 0;
    long kept_bytes_ = 0;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

}  // namespace sim
