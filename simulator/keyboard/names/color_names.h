// The names of colours that the system knows.
#pragma once
#include <string_view>

namespace sim {

/// Whether the system has a colour of that name. Gradients have names of their own, which
/// UIKBGetNamedLinearGradient looks up.
bool is_color_name(std::string_view name);

}  // namespace sim
