// Whether labels and highlights stand out from what is behind them, and the colours nearest to a maker's
// that can.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "readability/colour.h"

namespace readability {

/// What is behind one key's label, at a few points of it; opaque.
struct BehindKey {
    std::string key;
    std::vector<Colour> colours;
};

struct Behind {
    /// Of the keys, and of the suggestions above them, "suggestion 1" to "suggestion 3".
    std::vector<BehindKey> labels;
    /// Behind the keys themselves and the suggestion in the middle, which is where highlights are drawn.
    std::vector<BehindKey> keys;
};

/// Below the one a contrast is an error, below the other a warning.
struct Demand {
    double error_below, warning_below;
};
/// Labels are text.
constexpr Demand demand_of_labels{3, 4.5};
/// Highlights are areas, as large as a key.
constexpr Demand demand_of_highlights{2, 3};
/// Of the label on a highlighted key, which lasts as long as a touch. With 3 there would be no highlight at
/// all for backgrounds of a luminance from 0.067 to 0.1: three steps of 3 reach further than from black to
/// white.
constexpr Demand demand_when_pressed{0, 2};

/// A contrast where it is smallest.
struct Contrast {
    double ratio = 0;
    std::string worst_key;
    Colour behind;
};
Contrast smallest_contrast(const Colour& colour, const std::vector<BehindKey>& behind);

/// With two decimals, never rounded up to a limit that it misses.
std::string ratio_text(double ratio);

/// The colour over what is behind each key.
std::vector<BehindKey> covered(const std::vector<BehindKey>& behind, const Colour& colour);

struct Pair {
    Colour labels, highlights;
};

/// The contrasts of a pair: each is as small as anywhere.
struct Legibility {
    Contrast labels, highlights, pressed;
    bool passes() const {
        return labels.ratio >= demand_of_labels.warning_below &&
               highlights.ratio >= demand_of_highlights.warning_below &&
               pressed.ratio >= demand_when_pressed.warning_below;
    }
};
Legibility legibility_of(const Pair& pair, const Behind& behind);

/// Of the pairs that pass on every key the nearest to the maker's, by the sum of both distances' squares in
/// OKLab; nothing when there is none.
std::optional<Pair> nearest_pair(const Pair& wanted, const Behind& behind);

}  // namespace readability
