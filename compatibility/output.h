// Where lines of the description go as they are made.
#pragma once
#include <cstddef>
#include <string_view>

namespace compatibility {

struct Output {
    void* context;
    void (*take)(void* context, std::string_view text);

    template <class... Parts>
    void line(Parts... parts) const {
        (take(context, std::string_view(parts)), ...);
        take(context, "\n");
    }
};

}  // namespace compatibility
