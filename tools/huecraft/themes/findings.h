// What is wrong with a theme.
#pragma once
#include <string>
#include <vector>

#include "themes/backdrop.h"
#include "themes/theme.h"

namespace command {

struct Finding {
    enum class Severity { warning, error } severity;
    std::string key;
    /// The value found, the value expected, and what to do.
    std::string found, expected, fix;
};

/// What can be said of the values alone: missing, mistyped, unknown, unreadable.
std::vector<Finding> findings_in_values(const LoadedTheme& theme);

/// What the theme's image takes in memory.
struct Weight {
    bool has_image = false;
    size_t width = 0, height = 0;
    size_t decoded_bytes() const { return width * height * 4; }
    /// More than four times what fills the largest keyboard.
    bool is_heavy() const;
};
Weight weight_of(const LoadedTheme& theme);
std::vector<Finding> findings_in_weight(const LoadedTheme& theme, const Weight& weight);

/// What a colour is found and expected to be over what is behind it; `what` is drawn in it, `advice` follows.
std::vector<Finding> findings_in_contrast(ThemeKey key, const std::string& what, const Colour& colour,
                                          const Contrast& contrast, const Demand& demand,
                                          const std::string& advice);

}  // namespace command
