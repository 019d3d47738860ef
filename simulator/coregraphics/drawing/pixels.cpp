#include "coregraphics/drawing/pixels.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>

namespace sim {
namespace {

constexpr size_t large_page = size_t{2} << 20;

/// Memory of a surface, which frees it. In large pages where there is enough for one: a screen's pixels fill
/// a thousand small ones, and the first touch of each has its price.
unsigned char* pixel_memory(size_t bytes) {
    if (bytes < large_page) return static_cast<unsigned char*>(std::malloc(bytes));
    const size_t whole_pages = (bytes + large_page - 1) / large_page * large_page;
    void* memory = std::aligned_alloc(large_page, whole_pages);
    if (memory) madvise(memory, whole_pages, MADV_HUGEPAGE);  // a wish: what is refused changes nothing
    return static_cast<unsigned char*>(memory);
}

}  // namespace

Surface unwritten_surface(cairo_format_t format, size_t width, size_t height) {
    static const cairo_user_data_key_t memory_key{};
    const int columns = static_cast<int>(width), rows = static_cast<int>(height);
    const int stride = cairo_format_stride_for_width(format, columns);
    if (unsigned char* memory = pixel_memory(static_cast<size_t>(stride) * height)) {
        Surface surface(cairo_image_surface_create_for_data(memory, format, columns, rows, stride));
        if (cairo_surface_set_user_data(surface, &memory_key, memory, std::free) == CAIRO_STATUS_SUCCESS)
            return surface;
        std::free(memory);
    }
    return Surface(cairo_image_surface_create(format, columns, rows));
}

Surface clear_surface(cairo_format_t format, size_t width, size_t height) {
    if (width * height * Pixels::bytes < large_page)
        return Surface(cairo_image_surface_create(format, static_cast<int>(width), static_cast<int>(height)));
    Surface surface = unwritten_surface(format, width, height);
    if (cairo_surface_status(surface)) return surface;
    const auto row_bytes = static_cast<size_t>(cairo_image_surface_get_stride(surface));
    std::memset(cairo_image_surface_get_data(surface), 0, row_bytes * height);
    cairo_surface_mark_dirty(surface);
    return surface;
}

}  // namespace sim
