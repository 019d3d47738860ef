#include "picture.h"

#include <cairo.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include "failed_pictures.h"

namespace test {
namespace {

namespace fs = std::filesystem;

/// Components may differ by this much, of 255, and one pixel in ten thousand by more.
constexpr int tolerance = 8;
constexpr size_t pixels_per_stray = 10'000;

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

/// Null, and why in `problem`, for what is not a picture.
Surface read(const fs::path& png, std::string& problem) {
    Surface surface(cairo_image_surface_create_from_png(png.c_str()), &cairo_surface_destroy);
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status == CAIRO_STATUS_SUCCESS) return surface;
    problem = png.string() + ": " + cairo_status_to_string(status);
    return {nullptr, &cairo_surface_destroy};
}

int width(const Surface& surface) { return cairo_image_surface_get_width(surface.get()); }
int height(const Surface& surface) { return cairo_image_surface_get_height(surface.get()); }

uint32_t* row(const Surface& surface, int y) {
    auto* data = cairo_image_surface_get_data(surface.get());
    return reinterpret_cast<uint32_t*>(data + y * cairo_image_surface_get_stride(surface.get()));
}

bool differs(uint32_t a, uint32_t b) {
    for (int shift = 0; shift < 24; shift += 8)
        if (std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)) > tolerance)
            return true;
    return false;
}

uint32_t faded(uint32_t pixel) { return 0xff000000 | ((pixel >> 2 & 0x3f3f3f) + 0xc0c0c0); }

/// A picture of the differences between two of one size, and how many pixels they are.
std::pair<Surface, size_t> differences_of(const Surface& expected, const Surface& actual) {
    constexpr uint32_t red = 0xffff0000;
    Surface marked(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width(expected), height(expected)),
                   &cairo_surface_destroy);
    cairo_surface_flush(marked.get());
    size_t count = 0;
    for (int y = 0; y < height(expected); ++y)
        for (int x = 0; x < width(expected); ++x) {
            const uint32_t pixel = row(expected, y)[x];
            const bool strays = differs(pixel, row(actual, y)[x]);
            count += strays;
            row(marked, y)[x] = strays ? red : faded(pixel);
        }
    cairo_surface_mark_dirty(marked.get());
    return {std::move(marked), count};
}

/// The expected picture of a name that begins with its subject.
fs::path expected_picture(const std::string& name) {
    const size_t dash = name.find('-');
    return fs::path(EXPECTED_PICTURES) / name.substr(0, dash) / (name.substr(dash + 1) + ".png");
}

bool is_rebaselining() {
    const char* wish = std::getenv("HUECRAFT_REBASELINE");
    return wish && std::string_view(wish) == "1";
}

}  // namespace

testing::AssertionResult looks_as_expected(const fs::path& png, const std::string& name,
                                           const std::string& variant) {
    const fs::path wanted = expected_picture(name);
    const FailedPicture failed(FAILED_PICTURES, variant + name);
    failed.remove();
    if (is_rebaselining()) {
        fs::create_directories(wanted.parent_path());
        fs::copy_file(png, wanted, fs::copy_options::overwrite_existing);
        return testing::AssertionSuccess();
    }

    std::string problem;
    const Surface actual = read(png, problem);
    if (!actual) return testing::AssertionFailure() << "no picture was made: " << problem;
    auto failure = [&](const Surface* differences) {
        fs::copy_file(png, failed.actual(), fs::copy_options::overwrite_existing);
        if (fs::exists(wanted))
            fs::copy_file(wanted, failed.expected(), fs::copy_options::overwrite_existing);
        if (differences) cairo_surface_write_to_png(differences->get(), failed.differences().c_str());
        failed.write_page();
        return testing::AssertionFailure() << "see " << failed.page().string() << "; ";
    };

    const Surface expected = read(wanted, problem);
    if (!expected) return failure(nullptr) << "what is expected cannot be read: " << problem;
    if (width(expected) != width(actual) || height(expected) != height(actual))
        return failure(nullptr) << failed.actual().string() << " has " << width(actual) << " x "
                                << height(actual) << " pixels, expected are " << width(expected) << " x "
                                << height(expected) << " (" << wanted.string() << ")";
    const auto [marked, count] = differences_of(expected, actual);
    const size_t allowed = static_cast<size_t>(width(expected)) * height(expected) / pixels_per_stray;
    if (count <= allowed) return testing::AssertionSuccess();
    return failure(&marked) << count << " pixels of " << failed.actual().string() << " differ from "
                            << wanted.string() << " by more than " << tolerance;
}

}  // namespace test
