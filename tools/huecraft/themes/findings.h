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
    std::string found, expected, mend;
};

/// What can be told of the values alone: missing, mistyped, unknown, unreadable.
std::vector<Finding> findings_in_values(const LoadedTheme& theme);

/// What the theme's image takes in memory.
struct Weight {
    bool has_image = false;
    size_t width = 0, height = 0;
    size_t decoded_bytes() const { return width * height * 4; }
};
Weight weight_of(const LoadedTheme& theme);
std::vector<Finding> findings_in_weight(const LoadedTheme& theme, const Weight& weight);

/// A contrast where it is smallest.
struct Contrast {
    double ratio = 0;
    std::string worst_key;
    Colour behind;
};
Contrast smallest_contrast(const Colour& colour, const std::vector<BehindKey>& behind);

/// Below the one a contrast is an error, below the other a warning.
struct Demand {
    double error_below, warning_below;
};
constexpr Demand demand_at_rest{3, 4.5};
/// Of the label on a highlighted key, which is large: contrasts of 4.5 on both sides of a highlight leave
/// hardly a colour for it.
constexpr Demand demand_when_pressed{0, 3};

/// What a colour is found and expected to be over what is behind it. `what` is drawn in it.
std::vector<Finding> findings_in_contrast(ThemeKey key, const std::string& what, const Colour& colour,
                                          const Contrast& contrast, const std::vector<BehindKey>& behind,
                                          const Demand& demand);

/// The colour over what is behind each key.
std::vector<BehindKey> covered(const std::vector<BehindKey>& behind, const Colour& colour);

}  // namespace command
