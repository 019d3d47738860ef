#include "coregraphics/drawing/pixels.h"

#include <cstdlib>

namespace sim {

Surface unwritten_surface(cairo_format_t format, size_t width, size_t height) {
    static const cairo_user_data_key_t memory_key{};
    const int columns = static_cast<int>(width), rows = static_cast<int>(height);
    const int stride = cairo_format_stride_for_width(format, columns);
    if (auto* memory = static_cast<unsigned char*>(std::malloc(static_cast<size_t>(stride) * height))) {
        Surface surface(cairo_image_surface_create_for_data(memory, format, columns, rows, stride));
        if (cairo_surface_set_user_data(surface, &memory_key, memory, std::free) == CAIRO_STATUS_SUCCESS)
            return surface;
        std::free(memory);
    }
    return Surface(cairo_image_surface_create(format, columns, rows));
}

}  // namespace sim
