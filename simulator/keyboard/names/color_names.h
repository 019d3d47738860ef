// The names that the system knows, of colours and of gradients.
#pragma once
#include <string_view>

namespace sim {

/// Whether the system has a colour of that name, or a gradient: they are looked up by functions of their own.
bool is_color_name(std::string_view name);
bool is_gradient_name(std::string_view name);

}  // namespace sim
