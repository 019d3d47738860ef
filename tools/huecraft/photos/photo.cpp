#include "photos/photo.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "cli/files.h"
#include "photos/colour_profile.h"
#include "photos/decoding.h"

namespace command {
namespace {

std::string extent(double width, double height) {
    return std::to_string(std::lround(width)) + " x " + std::to_string(std::lround(height));
}

std::string plain(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", number);
    return text;
}

/// The size of the photo as it is shown.
std::pair<double, double> shown_size(size_t width, size_t height, int orientation) {
    const auto w = static_cast<double>(width), h = static_cast<double>(height);
    return orientation >= 5 ? std::pair(h, w) : std::pair(w, h);
}

/// The part of the region, from its middle, that has the keyboard's shape.
Region in_keyboard_shape(const Region& region) {
    const double width = std::min(region.width, region.height * keyboard_shape),
                 height = std::min(region.height, region.width / keyboard_shape);
    return {region.x + (region.width - width) / 2, region.y + (region.height - height) / 2, width, height};
}

/// The photo as large as it fits, over the mean of its edges.
Picture inside_keyboard(const Picture& picture, const Region& region, size_t width, size_t height) {
    const double scale =
        std::min(static_cast<double>(width) / region.width, static_cast<double>(height) / region.height);
    const auto w = std::clamp<size_t>(static_cast<size_t>(std::lround(region.width * scale)), 1, width),
               h = std::clamp<size_t>(static_cast<size_t>(std::lround(region.height * scale)), 1, height);
    const Picture small = scaled(picture, region, w, h);
    const Colour edges = mean_of_edges(small);
    Picture all(width, height);
    for (size_t y = 0; y < height; ++y)
        for (size_t x = 0; x < width; ++x) {
            uint8_t* pixel = all.at(x, y);
            const double components[] = {edges.red, edges.green, edges.blue, 1};
            for (int c = 0; c < 4; ++c) pixel[c] = static_cast<uint8_t>(std::lround(components[c] * 255));
        }
    for (size_t y = 0; y < h; ++y)
        std::copy_n(small.at(0, y), w * 4, all.at((width - w) / 2, (height - h) / 2 + y));
    return all;
}

}  // namespace

PreparedPhoto prepare_photo(const std::string& bytes, const std::string& file, const PhotoWish& wish) {
    const auto reduction = [&](size_t width, size_t height, int orientation) {
        auto [w, h] = shown_size(width, height, orientation);
        if (wish.crop) {
            w = wish.crop->width;
            h = wish.crop->height;
        }
        if (wish.fit == Fit::inside) return std::max(w / largest_width, h / largest_height);
        if (wish.fit == Fit::stretch) return std::min(w / largest_width, h / largest_height);
        const Region kept = in_keyboard_shape({0, 0, w, h});
        return kept.width / largest_width;
    };
    Decoded decoded = decode_photo(bytes, file, reduction);
    PreparedPhoto photo;
    auto& done = photo.done;
    const auto [width, height] = shown_size(decoded.width, decoded.height, decoded.orientation);
    done.push_back("read " + decoded.format + ", " + extent(width, height) + " pixels");
    if (const std::string profile = convert_to_srgb(decoded); !profile.empty())
        done.push_back("converted from " + profile + " to sRGB");
    Picture whole = std::move(decoded.picture);
    if (decoded.orientation > 1) {
        whole = upright(whole, decoded.orientation);
        done.push_back("turned upright");
    }
    // From the photo's pixels to those that the decoder kept.
    const double across = static_cast<double>(whole.width) / width,
                 down = static_cast<double>(whole.height) / height;
    Region region{0, 0, width, height};
    if (wish.crop) {
        region = *wish.crop;
        if (region.x < 0 || region.y < 0 || region.width < 1 || region.height < 1 ||
            region.x + region.width > width || region.y + region.height > height)
            throw Unusable(file, "found the crop " + extent(region.width, region.height) + " at " +
                                     plain(region.x) + "," + plain(region.y) + ", expected it inside " +
                                     extent(width, height) + " pixels");
    }
    if (wish.fit == Fit::fill) {
        if (wish.crop) {
            region = in_keyboard_shape(region);
        } else {
            const Region best = best_region(whole, keyboard_shape * across / down);
            region = {best.x / across, best.y / down, best.width / across, best.height / down};
        }
    }
    if (region.width < width - 0.5 || region.height < height - 0.5)
        done.push_back("cropped to " + extent(region.width, region.height) + " at " +
                       std::to_string(std::lround(region.x)) + "," + std::to_string(std::lround(region.y)));
    // What has fewer pixels than the keyboard is not made larger; the phone does that.
    double fraction = region.width / largest_width;
    if (wish.fit == Fit::inside) fraction = std::max(fraction, region.height / largest_height);
    if (wish.fit == Fit::stretch)
        fraction = std::max(region.width / largest_width, region.height / largest_height);
    fraction = std::min(1.0, fraction);
    const auto to_width = std::max<size_t>(1, static_cast<size_t>(std::lround(largest_width * fraction))),
               to_height = std::max<size_t>(1, static_cast<size_t>(std::lround(largest_height * fraction)));
    const Region kept{region.x * across, region.y * down, region.width * across, region.height * down};
    photo.picture = wish.fit == Fit::inside ? inside_keyboard(whole, kept, to_width, to_height)
                                            : scaled(whole, kept, to_width, to_height);
    if (wish.fit == Fit::inside) done.push_back("put inside the keyboard's shape");
    if (wish.fit == Fit::stretch) done.push_back("stretched to the keyboard's shape");
    done.push_back("brought to " + std::to_string(to_width) + " x " + std::to_string(to_height) + " pixels");
    if (wish.blur > 0) {
        constexpr double points = 414;
        blur(photo.picture, wish.blur * static_cast<double>(to_width) / points);
        done.push_back("blurred by " + plain(wish.blur) + " points");
    }
    if (wish.dim > 0) {
        dim(photo.picture, wish.dim);
        done.push_back("dimmed by " + plain(wish.dim));
    }
    return photo;
}

}  // namespace command
