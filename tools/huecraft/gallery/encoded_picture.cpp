// Pictures of keyboards as small files.
#include "gallery/encoded_picture.h"

#include <webp/encode.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "photos/png_file.h"

namespace command {
namespace {

// ---- A palette ---------------------------------------------------------------------------------------

using Rgb = std::array<int, 3>;

Rgb rgb_of(uint32_t pixel) {
    return {static_cast<int>(pixel >> 16 & 255), static_cast<int>(pixel >> 8 & 255),
            static_cast<int>(pixel & 255)};
}

int square_distance(const Rgb& a, const Rgb& b) {
    int sum = 0;
    for (size_t i = 0; i < a.size(); ++i) sum += (a[i] - b[i]) * (a[i] - b[i]);
    return sum;
}

struct Shade {
    uint32_t pixel;
    Rgb rgb;
    size_t count = 0;
    /// In the palette, and how far that is away.
    uint8_t entry = 0;
    int error = 1 << 30;
};

/// The colours of a picture, most frequent first; nothing when they are too many for a palette to do.
std::optional<std::vector<Shade>> shades_of(const KeyboardPixels& picture) {
    constexpr size_t most = 2048;
    std::unordered_map<uint32_t, size_t> counts;
    for (auto pixel = picture.pixels.begin(); pixel != picture.pixels.end();) {
        const auto end =
            std::find_if(pixel, picture.pixels.end(), [&](uint32_t other) { return other != *pixel; });
        counts[*pixel] += static_cast<size_t>(end - pixel);
        if (counts.size() > most) return std::nullopt;
        pixel = end;
    }
    std::vector<Shade> shades;
    shades.reserve(counts.size());
    for (const auto& [pixel, count] : counts) shades.push_back({pixel, rgb_of(pixel), count});
    // Not by count alone: equal counts would stand in another order elsewhere.
    std::ranges::sort(shades, [](const Shade& a, const Shade& b) {
        return a.count != b.count ? a.count > b.count : a.pixel < b.pixel;
    });
    return shades;
}

/// Each entry is the shade that was worst off with those before.
std::vector<Rgb> choose_palette(std::vector<Shade>& shades, size_t most) {
    std::vector<Rgb> palette;
    const Shade* next = &shades.front();
    while (next && palette.size() < most) {
        const auto entry = static_cast<uint8_t>(palette.size());
        palette.push_back(next->rgb);
        next = nullptr;
        double worst = 0;
        for (Shade& shade : shades) {
            if (const int error = square_distance(shade.rgb, palette.back()); error < shade.error) {
                shade.error = error;
                shade.entry = entry;
            }
            const double regret = shade.error * std::sqrt(static_cast<double>(shade.count));
            if (regret > worst) {
                worst = regret;
                next = &shade;
            }
        }
    }
    return palette;
}

/// Whether an area is seen to have another colour. The edges of labels are as thin as not to be.
bool falsifies_areas(const std::vector<Shade>& shades, size_t pixels) {
    constexpr size_t smallest_part = 500;
    constexpr int bearable = 3 * 2 * 2;
    return std::ranges::any_of(shades, [&](const Shade& shade) {
        return shade.count * smallest_part > pixels && shade.error > bearable;
    });
}

std::string png_of(const KeyboardPixels& picture, const std::vector<Shade>& shades,
                   const std::vector<Rgb>& palette) {
    std::unordered_map<uint32_t, uint8_t> entries;
    for (const Shade& shade : shades) entries.emplace(shade.pixel, shade.entry);
    std::vector<uint8_t> indices;
    indices.reserve(picture.pixels.size());
    uint32_t last = picture.pixels.front();
    uint8_t entry = entries.at(last);
    for (uint32_t pixel : picture.pixels) {
        if (pixel != last) entry = entries.at(last = pixel);
        indices.push_back(entry);
    }
    std::vector<uint8_t> colours;
    for (const Rgb& rgb : palette)
        for (int component : rgb) colours.push_back(static_cast<uint8_t>(component));
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB_COLORMAP;
    image.colormap_entries = static_cast<png_uint_32>(palette.size());
    return png_file(image, indices, colours);
}

std::optional<std::string> with_palette(const KeyboardPixels& picture, size_t most_bytes) {
    const auto shades = shades_of(picture);
    if (!shades) return std::nullopt;
    // Up to 16 take half a byte a pixel.
    for (size_t colours : {16, 12, 8}) {
        auto chosen = *shades;
        const std::vector<Rgb> palette = choose_palette(chosen, colours);
        if (falsifies_areas(chosen, picture.pixels.size())) return std::nullopt;
        if (std::string png = png_of(picture, chosen, palette); png.size() <= most_bytes) return png;
    }
    return std::nullopt;
}

// ---- WebP --------------------------------------------------------------------------------------------

struct Encoder {
    explicit Encoder(const KeyboardPixels& source) {
        WebPPictureInit(&picture);
        picture.width = static_cast<int>(source.width);
        picture.height = static_cast<int>(source.height);
        const auto* bytes = reinterpret_cast<const uint8_t*>(source.pixels.data());
        if (!WebPPictureImportBGRX(&picture, bytes, picture.width * 4)) throw std::bad_alloc();
    }
    Encoder(const Encoder&) = delete;
    ~Encoder() { WebPPictureFree(&picture); }

    std::string encoded(float quality) {
        WebPConfig config;
        WebPConfigInit(&config);
        config.method = 2;  // the next one takes three times as long
        config.quality = quality;
        WebPMemoryWriter writer;
        WebPMemoryWriterInit(&writer);
        picture.writer = WebPMemoryWrite;
        picture.custom_ptr = &writer;
        const bool done = WebPEncode(&config, &picture);
        std::string file(reinterpret_cast<const char*>(writer.mem), writer.size);
        WebPMemoryWriterClear(&writer);
        if (!done) throw std::bad_alloc();
        return file;
    }

    WebPPicture picture;
};

std::optional<std::string> with_less_quality(const KeyboardPixels& picture, size_t most_bytes) {
    Encoder encoder(picture);
    constexpr float best = 50, steps[] = {best, 36, 22, 10, 0};
    for (float quality : steps)
        if (std::string file = encoder.encoded(quality); file.size() <= most_bytes) return file;
    return std::nullopt;
}

KeyboardPixels halved(const KeyboardPixels& picture) {
    KeyboardPixels half{picture.width / 2, picture.height / 2, {}};
    for (size_t y = 0; y < half.height; ++y)
        for (size_t x = 0; x < half.width; ++x) {
            const uint32_t* upper = &picture.pixels[2 * y * picture.width + 2 * x];
            uint32_t mean = 0;
            for (int shift : {0, 8, 16}) {
                uint32_t sum = 2;
                for (uint32_t pixel : {upper[0], upper[1], upper[picture.width], upper[picture.width + 1]})
                    sum += pixel >> shift & 255;
                mean |= sum / 4 << shift;
            }
            half.pixels.push_back(mean);
        }
    return half;
}

}  // namespace

EncodedPicture encoded_within(const KeyboardPixels& picture, size_t most_bytes) {
    if (auto png = with_palette(picture, most_bytes)) return {std::move(*png), "image/png"};
    if (auto webp = with_less_quality(picture, most_bytes)) return {std::move(*webp), "image/webp"};
    const KeyboardPixels half = halved(picture);
    if (auto webp = with_less_quality(half, most_bytes)) return {std::move(*webp), "image/webp"};
    return {Encoder(half).encoded(0), "image/webp"};
}

}  // namespace command
