// A keyboard's picture taken apart into layers.
#include "measuring/keyboard_layers.h"

#include <cairo.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <memory>

#include "measuring/check.h"

namespace bench {

namespace {

class Picture {
  public:
    explicit Picture(const std::filesystem::path& png)
        : surface_(cairo_image_surface_create_from_png(png.c_str()), &cairo_surface_destroy) {
        check(cairo_surface_status(surface_.get()) == CAIRO_STATUS_SUCCESS, "a picture can be read");
    }
    Size size() const {
        return {cairo_image_surface_get_width(surface_.get()),
                cairo_image_surface_get_height(surface_.get())};
    }
    uint32_t stored(int x, int y) const {
        const unsigned char* row =
            cairo_image_surface_get_data(surface_.get()) + y * cairo_image_surface_get_stride(surface_.get());
        return reinterpret_cast<const uint32_t*>(row)[x];
    }
    /// Opaque.
    uint32_t pixel(int x, int y) const { return stored(x, y) | 0xff000000; }

  private:
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
};

/// Pixels from the first up to, but not including, the end.
struct Box {
    int left, top, right, bottom;

    bool is_near(const Box& other, int gap) const {
        return left <= other.right + gap && other.left <= right + gap && top <= other.bottom + gap &&
               other.top <= bottom + gap;
    }
    void include(const Box& other) {
        left = std::min(left, other.left), right = std::max(right, other.right);
        top = std::min(top, other.top), bottom = std::max(bottom, other.bottom);
    }
};

/// Two pictures of one size, and where they differ.
class Difference {
  public:
    Difference(const std::filesystem::path& without, const std::filesystem::path& with)
        : below_(without),
          all_(with) {
        check(below_.size() == all_.size(), "the pictures are equally large");
    }

    /// Boxes around what differs: what is as near as `gap` pixels is in one.
    std::vector<Box> boxes(int gap) const {
        std::vector<Box> boxes;
        const auto [width, height] = all_.size();
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (is_at(x, y)) add(boxes, {x, y, x + 1, y + 1}, gap);
        check(!boxes.empty(), "the pictures differ");
        return boxes;
    }

    Layer write(const Box& box, const std::filesystem::path& file) const {
        const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> layer(
            cairo_image_surface_create(CAIRO_FORMAT_ARGB32, box.right - box.left, box.bottom - box.top),
            &cairo_surface_destroy);
        for (int y = box.top; y < box.bottom; ++y) {
            auto* row =
                reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(layer.get()) +
                                            (y - box.top) * cairo_image_surface_get_stride(layer.get()));
            for (int x = box.left; x < box.right; ++x) row[x - box.left] = is_at(x, y) ? all_.pixel(x, y) : 0;
        }
        cairo_surface_mark_dirty(layer.get());
        check(cairo_surface_write_to_png(layer.get(), file.c_str()) == CAIRO_STATUS_SUCCESS,
              "a layer can be written");
        return {file, box.left, box.top};
    }

  private:
    bool is_at(int x, int y) const { return below_.pixel(x, y) != all_.pixel(x, y); }

    static void add(std::vector<Box>& boxes, Box box, int gap) {
        for (bool grown = true; grown;) {
            grown = false;
            for (auto known = boxes.begin(); known != boxes.end(); ++known) {
                if (!known->is_near(box, gap)) continue;
                box.include(*known);
                boxes.erase(known);
                grown = true;
                break;
            }
        }
        boxes.push_back(box);
    }

    Picture below_, all_;
};

}  // namespace

Size size_of(const std::filesystem::path& png) { return Picture(png).size(); }

std::vector<Layer> write_layers(const std::filesystem::path& without, const std::filesystem::path& with,
                                const std::filesystem::path& name, int gap) {
    const Difference difference(without, with);
    std::vector<Layer> layers;
    for (const Box& box : difference.boxes(gap))
        layers.push_back(difference.write(box, name.string() + std::to_string(layers.size()) + ".png"));
    return layers;
}

void write_pixels(const std::filesystem::path& background, const std::vector<Layer>& layers,
                  const std::filesystem::path& file) {
    std::ofstream out(file, std::ios::binary);
    const auto write = [&](const Layer& layer, uint32_t also) {
        const Picture picture(layer.file);
        const auto [width, height] = picture.size();
        const int32_t place[] = {layer.left, layer.top, width, height};
        out.write(reinterpret_cast<const char*>(place), sizeof place);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const uint32_t pixel = picture.stored(x, y) | also;
                out.write(reinterpret_cast<const char*>(&pixel), sizeof pixel);
            }
    };
    write({background}, 0xff000000);
    for (const Layer& layer : layers) write(layer, 0);
    check(out.flush().good(), "the layers' pixels can be written");
}

void keep_lowest(const std::filesystem::path& png, int rows) {
    using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
    const Surface all(cairo_image_surface_create_from_png(png.c_str()), &cairo_surface_destroy);
    const int width = cairo_image_surface_get_width(all.get()),
              height = cairo_image_surface_get_height(all.get());
    check(height > rows, "a picture has more rows than are kept");
    const Surface part(cairo_surface_create_for_rectangle(all.get(), 0, height - rows, width, rows),
                       &cairo_surface_destroy);
    check(cairo_surface_write_to_png(part.get(), png.c_str()) == CAIRO_STATUS_SUCCESS,
          "a picture can be written");
}

bool look_alike(const std::filesystem::path& a, const std::filesystem::path& b) {
    const Picture one(a), other(b);
    const auto [width, height] = one.size();
    if (one.size() != other.size()) return false;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (one.pixel(x, y) != other.pixel(x, y)) return false;
    return true;
}

}  // namespace bench
