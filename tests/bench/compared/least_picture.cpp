// The least that a process can do for a keyboard's picture: with the simulator's libraries loaded it opens
// the labels' font, draws the labels, lays finished layers over each other and writes the PNG. There is no
// system, no view and no theme.
#include <cairo-ft.h>
#include <png.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "simulator.h"

namespace {

struct Place {
    int32_t left, top, width, height;
};

/// A picture that layers are laid into: each a place and its pixels, the first as large as the picture.
class Picture {
  public:
    explicit Picture(Place whole)
        : width_(static_cast<size_t>(whole.width)),
          pixels_(width_ * static_cast<size_t>(whole.height)) {}

    void draw_labels(FT_Face font) {
        constexpr double size = 45;  // pixels
        const auto bytes = reinterpret_cast<unsigned char*>(pixels_.data());
        cairo_surface_t* surface = cairo_image_surface_create_for_data(
            bytes, CAIRO_FORMAT_RGB24, static_cast<int>(width_), static_cast<int>(pixels_.size() / width_),
            static_cast<int>(width_ * sizeof(uint32_t)));
        cairo_t* context = cairo_create(surface);
        cairo_font_face_t* face = cairo_ft_font_face_create_for_ft_face(font, 0);
        cairo_set_font_face(context, face);
        cairo_set_font_size(context, size);
        cairo_set_source_rgb(context, 1, 1, 1);
        double x = 0;
        for (const char* label = "QWERTYUIOPASDFGHJKLZXCVBNM123spacereturn"; *label; ++label, x += 18) {
            const char text[] = {*label, 0};
            cairo_move_to(context, x, 1000);
            cairo_show_text(context, text);
        }
        cairo_font_face_destroy(face);
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }

    void lay(const Place& place, const uint32_t* pixels) {
        for (int32_t y = 0; y < place.height; ++y, pixels += place.width) {
            uint32_t* row =
                &pixels_[static_cast<size_t>(place.top + y) * width_ + static_cast<size_t>(place.left)];
            for (int32_t x = 0; x < place.width; ++x) row[x] = pixels[x] >> 24 ? pixels[x] : row[x];
        }
    }

    bool write(const char* path) {
        png_image png{};
        png.version = PNG_IMAGE_VERSION;
        png.width = static_cast<png_uint_32>(width_);
        png.height = static_cast<png_uint_32>(pixels_.size() / width_);
        png.format = PNG_FORMAT_RGB;
        png.flags = PNG_IMAGE_FLAG_FAST;
        std::vector<uint8_t> rgb(pixels_.size() * 3);
        uint8_t* part = rgb.data();
        for (const uint32_t pixel : pixels_) {
            *part++ = static_cast<uint8_t>(pixel >> 16);
            *part++ = static_cast<uint8_t>(pixel >> 8);
            *part++ = static_cast<uint8_t>(pixel);
        }
        return png_image_write_to_file(&png, path, 0, rgb.data(), 0, nullptr);
    }

  private:
    size_t width_;
    std::vector<uint32_t> pixels_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s <layers> <font> <picture>\n", argv[0]);
        return 2;
    }
    sim_last_error();  // the simulator is linked, as for a picture of its own
    std::ifstream file(argv[1], std::ios::binary);
    std::string layers(std::filesystem::file_size(argv[1]), 0);
    file.read(layers.data(), static_cast<std::streamsize>(layers.size()));
    FT_Library library;
    FT_Face font;
    if (layers.size() < sizeof(Place) || FT_Init_FreeType(&library) != 0 ||
        FT_New_Face(library, argv[2], 0, &font) != 0)
        return 1;
    Place place;
    std::memcpy(&place, layers.data(), sizeof place);
    Picture picture(place);
    picture.draw_labels(font);
    for (size_t at = 0; at + sizeof place <= layers.size();) {
        std::memcpy(&place, layers.data() + at, sizeof place);
        at += sizeof place;
        picture.lay(place, reinterpret_cast<const uint32_t*>(layers.data() + at));
        at += sizeof(uint32_t) * static_cast<size_t>(place.width) * static_cast<size_t>(place.height);
    }
    return picture.write(argv[3]) ? 0 : 1;
}
