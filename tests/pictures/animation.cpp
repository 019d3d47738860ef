#include "animation.h"

#include <cairo.h>
#include <zlib.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <sstream>
#include <string>

#include "support/contents.h"

namespace test {
namespace {

uint32_t number_at(const std::string& bytes, size_t at) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i) number = number << 8 | static_cast<uint8_t>(bytes.at(at + i));
    return number;
}
unsigned short_at(const std::string& bytes, size_t at) {
    return static_cast<unsigned>(static_cast<uint8_t>(bytes.at(at)) << 8 |
                                 static_cast<uint8_t>(bytes.at(at + 1)));
}
std::string as_bytes(uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
    return bytes;
}
uint32_t checksum(const std::string& bytes) {
    return static_cast<uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}
std::string chunk(const std::string& type_and_data) {
    return as_bytes(static_cast<uint32_t>(type_and_data.size() - 4)) + type_and_data +
           as_bytes(checksum(type_and_data));
}

const std::string signature = "\x89PNG\r\n\x1a\n";

void for_each_chunk(const std::string& file,
                    const std::function<void(const std::string& type, const std::string& data)>& work) {
    for (size_t at = signature.size(); at < file.size();) {
        const size_t length = number_at(file, at);
        ASSERT_LE(at + length + 12, file.size()) << "a chunk goes beyond the end";
        const std::string checked = file.substr(at + 4, length + 4);
        EXPECT_EQ(number_at(file, at + 8 + length), checksum(checked)) << checked.substr(0, 4);
        work(checked.substr(0, 4), checked.substr(4));
        at += length + 12;
    }
}

struct Pixels {
    int width = 0, height = 0;
    std::vector<unsigned> colours;
};

Pixels decoded(const std::string& png) {
    std::istringstream stream(png);
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create_from_png_stream(
            [](void* from, unsigned char* to, unsigned count) {
                auto& bytes = *static_cast<std::istringstream*>(from);
                return bytes.read(reinterpret_cast<char*>(to), count) ? CAIRO_STATUS_SUCCESS
                                                                      : CAIRO_STATUS_READ_ERROR;
            },
            &stream),
        &cairo_surface_destroy);
    EXPECT_EQ(cairo_surface_status(surface.get()), CAIRO_STATUS_SUCCESS);
    Pixels pixels{
        cairo_image_surface_get_width(surface.get()), cairo_image_surface_get_height(surface.get()), {}};
    const unsigned char* data = cairo_image_surface_get_data(surface.get());
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x) {
            unsigned pixel;
            std::memcpy(&pixel, data + y * cairo_image_surface_get_stride(surface.get()) + 4 * x,
                        sizeof pixel);
            pixels.colours.push_back(pixel & 0xffffff);
        }
    return pixels;
}

/// The frames one after the other, as the chunks come.
class Reader {
  public:
    Animation animation;

    void take(const std::string& type, const std::string& data) {
        if (type == "IHDR") {
            header_ = data;
            animation.width = static_cast<int>(number_at(data, 0));
            animation.height = static_cast<int>(number_at(data, 4));
            canvas_.assign(static_cast<size_t>(animation.width * animation.height), 0);
        } else if (type == "acTL") {
            EXPECT_TRUE(animation.frames.empty()) << "it comes before the pictures";
            announced_ = number_at(data, 0);
            animation.plays = number_at(data, 4);
        } else if (type == "fcTL") {
            finish_frame();
            control_ = data;
            expect_next_number(data);
        } else if (type == "IDAT") {
            EXPECT_TRUE(animation.frames.empty()) << "only the first frame is the picture itself";
            pixels_ += data;
        } else if (type == "fdAT") {
            expect_next_number(data);
            pixels_ += data.substr(4);
        } else if (type == "IEND") {
            finish_frame();
        }
    }
    void expect_complete() const { EXPECT_EQ(animation.frames.size(), announced_); }

  private:
    void expect_next_number(const std::string& data) { EXPECT_EQ(number_at(data, 0), numbered_++); }

    void finish_frame() {
        if (control_.empty()) return;
        AnimationFrame frame{.seconds = static_cast<double>(short_at(control_, 20)) / short_at(control_, 22),
                             .x = static_cast<int>(number_at(control_, 12)),
                             .y = static_cast<int>(number_at(control_, 16)),
                             .width = static_cast<int>(number_at(control_, 4)),
                             .height = static_cast<int>(number_at(control_, 8)),
                             .pixels = {}};
        EXPECT_EQ(control_.substr(24), std::string(2, '\0')) << "it stays, and takes the place";
        const std::string header =
            as_bytes(static_cast<uint32_t>(frame.width)) + as_bytes(static_cast<uint32_t>(frame.height));
        const Pixels part = decoded(signature + chunk("IHDR" + header + header_.substr(8)) +
                                    chunk("IDAT" + pixels_) + chunk("IEND"));
        ASSERT_LE(frame.x + part.width, animation.width);
        ASSERT_LE(frame.y + part.height, animation.height);
        for (int y = 0; y < part.height; ++y)
            for (int x = 0; x < part.width; ++x)
                canvas_.at(static_cast<size_t>((frame.y + y) * animation.width + frame.x + x)) =
                    part.colours.at(static_cast<size_t>(y * part.width + x));
        frame.pixels = canvas_;
        animation.frames.push_back(std::move(frame));
        control_.clear();
        pixels_.clear();
    }

    std::string header_, control_, pixels_;
    std::vector<unsigned> canvas_;
    uint32_t announced_ = 0, numbered_ = 0;
};

}  // namespace

double Animation::seconds() const {
    double all = 0;
    for (const AnimationFrame& frame : frames) all += frame.seconds;
    return all;
}

const AnimationFrame& Animation::at(double seconds) const {
    for (const AnimationFrame& frame : frames) {
        seconds -= frame.seconds;
        if (seconds < 0) return frame;
    }
    return frames.back();
}

Animation read_animation(const std::filesystem::path& file) {
    const std::string bytes = contents_of(file);
    EXPECT_TRUE(bytes.starts_with(signature)) << file;
    Reader reader;
    for_each_chunk(bytes, [&](const std::string& type, const std::string& data) { reader.take(type, data); });
    reader.expect_complete();
    return std::move(reader.animation);
}

std::vector<unsigned> pixels_of(const std::filesystem::path& png) {
    return decoded(contents_of(png)).colours;
}

}  // namespace test
