#include "coregraphics/pictures/animated_png.h"

#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <span>
#include <string_view>
#include <utility>

#include "coregraphics/drawing/pixels.h"
#include "coregraphics/pictures/picture_files.h"

namespace sim {
namespace {

using Bytes = std::vector<uint8_t>;

void put_32(Bytes& bytes, size_t number) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<uint8_t>(number >> shift));
}
void put_16(Bytes& bytes, size_t number) {
    bytes.push_back(static_cast<uint8_t>(number >> 8));
    bytes.push_back(static_cast<uint8_t>(number));
}

/// One chunk of a PNG: its type, and its whole with length and checksum.
struct Chunk {
    std::string_view type;
    std::span<const uint8_t> data, whole;
};

/// Of a PNG that libpng has just written, from `at` on, which goes behind it.
Chunk next_chunk(const Bytes& png, size_t& at) {
    const uint8_t* begin = png.data() + at;
    const size_t length = size_t{begin[0]} << 24 | begin[1] << 16 | begin[2] << 8 | begin[3];
    at += length + 12;
    return {{reinterpret_cast<const char*>(begin + 4), 4}, {begin + 8, length}, {begin, length + 12}};
}

constexpr size_t signature_size = 8;

/// The file's beginning: what holds for the picture as a whole.
Bytes before_pixels(const Bytes& png) {
    for (size_t begin = signature_size, at = begin;; begin = at)
        if (next_chunk(png, at).type == "IDAT")
            return {png.begin(), png.begin() + static_cast<std::ptrdiff_t>(begin)};
}

/// Where two pictures of one size differ; of no width when they do not.
PixelRectangle changed(const Pixels& before, const Pixels& now) {
    size_t left = now.width(), right = 0, top = now.height(), bottom = 0;
    for (size_t y = 0; y < now.height(); ++y) {
        const auto a = before.row(y), b = now.row(y);
        const auto differs = [&](size_t x) {
            const size_t at = x * Pixels::bytes;
            return !std::equal(&a[at], &a[at + Pixels::alpha], &b[at]);
        };
        size_t first = 0, end = now.width();
        while (first < end && !differs(first)) ++first;
        while (first < end && !differs(end - 1)) --end;
        if (first == end) continue;
        left = std::min(left, first), right = std::max(right, end);
        top = std::min(top, y), bottom = y + 1;
    }
    return left < right ? PixelRectangle{left, top, right - left, bottom - top} : PixelRectangle{};
}

/// The surface's own pixels within the rectangle, without their alpha.
Surface part_of(cairo_surface_t* surface, const PixelRectangle& part) {
    return Surface(cairo_image_surface_create_for_data(
        Pixels(surface).row(part.y).data() + part.x * Pixels::bytes, CAIRO_FORMAT_RGB24,
        static_cast<int>(part.width), static_cast<int>(part.height),
        cairo_image_surface_get_stride(surface)));
}

Surface resized(cairo_surface_t* surface, size_t width, size_t height) {
    Surface made(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height)));
    const Cairo cairo(cairo_create(made));
    cairo_set_source_surface(cairo, surface, 0, 0);
    cairo_paint(cairo);
    return made;
}

std::string system_error() { return std::strerror(errno); }

}  // namespace

/// Chunks on their way to a file.
class AnimatedPng::Chunks {
  public:
    /// The frames that come have that many before them.
    explicit Chunks(size_t frames) : frames_(frames) {}

    void put(std::string_view type, const Bytes& data) {
        put_32(bytes_, data.size());
        const size_t checked = bytes_.size();
        bytes_.insert(bytes_.end(), type.begin(), type.end());
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        put_32(bytes_, crc32(0, bytes_.data() + checked, static_cast<uInt>(bytes_.size() - checked)));
    }
    void put(std::span<const uint8_t> as_it_is) {
        bytes_.insert(bytes_.end(), as_it_is.begin(), as_it_is.end());
    }
    /// The chunks that give a frame's place or hold its pixels are numbered. The first frame's pixels are the
    /// picture for whoever does not know animations, which has no number; every later one has one chunk.
    size_t number_of_control() const { return frames_ ? 2 * frames_ - 1 : 0; }
    bool is_first() const { return !frames_; }
    const Bytes& bytes() const { return bytes_; }

  private:
    size_t frames_;
    Bytes bytes_;
};

AnimatedPng::AnimatedPng(unsigned frames_per_second)
    : frames_per_second_(frames_per_second),
      file_(std::tmpfile(), &std::fclose) {}

bool AnimatedPng::add(Surface frame, std::string& error) {
    PixelRectangle place;
    if (!last_) {
        const Pixels pixels(frame);
        place = {0, 0, pixels.width(), pixels.height()};
    } else {
        const Pixels before(last_);
        if (const Pixels now(frame); now.width() != before.width() || now.height() != before.height())
            frame = resized(frame, before.width(), before.height());
        place = changed(before, Pixels(frame));
        if (!place.width) {
            ++shown_.duration;
            return true;
        }
        if (!keep_shown(error)) return false;
    }
    auto png = encode_png(part_of(frame, place));
    if (!png) {
        error = "the picture cannot be encoded";
        return false;
    }
    if (!last_) head_ = before_pixels(*png);
    shown_ = {place, std::move(*png), 1};
    last_ = std::move(frame);
    return true;
}

bool AnimatedPng::keep_shown(std::string& error) {
    Chunks chunks(kept_);
    put_shown(chunks);
    const Bytes& bytes = chunks.bytes();
    if (!file_ || std::fseek(file_.get(), kept_bytes_, SEEK_SET) != 0 ||
        std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size() ||
        std::fflush(file_.get()) != 0) {
        error = "cannot write to the folder for temporary files: " + system_error();
        return false;
    }
    kept_bytes_ += static_cast<long>(bytes.size());
    ++kept_;
    return true;
}

void AnimatedPng::put_shown(Chunks& chunks) const {
    constexpr size_t most = 65535;
    constexpr uint8_t stays = 0, takes_the_place = 0;
    Bytes control;
    size_t number = chunks.number_of_control();
    put_32(control, number++);
    for (const size_t value : {shown_.place.width, shown_.place.height, shown_.place.x, shown_.place.y})
        put_32(control, value);
    // A delay that is too long for frames is given in seconds; 18 hours are the limit.
    const bool in_frames = shown_.duration <= most;
    put_16(control, in_frames ? shown_.duration : std::min(shown_.duration / frames_per_second_, most));
    put_16(control, in_frames ? frames_per_second_ : 1);
    control.push_back(stays);
    control.push_back(takes_the_place);
    chunks.put("fcTL", control);

    Bytes numbered;
    put_32(numbered, number);
    for (size_t at = signature_size; at < shown_.png.size();) {
        const Chunk chunk = next_chunk(shown_.png, at);
        if (chunk.type != "IDAT") continue;
        if (chunks.is_first())
            chunks.put(chunk.whole);
        else
            numbered.insert(numbered.end(), chunk.data.begin(), chunk.data.end());
    }
    if (!chunks.is_first()) chunks.put("fdAT", numbered);
}

bool AnimatedPng::write(const std::string& path, std::string& error) const {
    Chunks end(kept_);
    put_shown(end);
    constexpr size_t again_and_again = 0;
    Bytes animation;
    put_32(animation, kept_ + 1);
    put_32(animation, again_and_again);
    Chunks begin(0);
    begin.put(head_);
    begin.put("acTL", animation);
    end.put("IEND", {});

    std::ofstream file(path, std::ios::binary);
    const auto put = [&](std::span<const uint8_t> bytes) {
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    };
    put(begin.bytes());
    bool complete = !file_ || std::fseek(file_.get(), 0, SEEK_SET) == 0;
    uint8_t part[65536];
    for (auto left = static_cast<size_t>(kept_bytes_); left && complete && file;) {
        const size_t count = std::fread(part, 1, std::min(left, sizeof part), file_.get());
        complete = count > 0;
        put({part, count});
        left -= count;
    }
    put(end.bytes());
    file.close();
    if (!complete)
        error = "cannot read the folder for temporary files: " + system_error();
    else if (!file)
        error = "cannot write the picture " + path + ": " + system_error();
    return complete && file;
}

}  // namespace sim
