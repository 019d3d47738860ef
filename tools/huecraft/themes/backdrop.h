// What is behind a themed keyboard's labels: rendered, and sampled where the keys are.
#pragma once
#include <string>
#include <vector>

#include "themes/colour.h"
#include "themes/theme.h"

namespace command {

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

/// Looks behind the keys of one theme after another. What a theme changes is the backdrop alone, so only that
/// is drawn for each, small; what the keyboard draws over its backdrop, the caps, is learned once for all.
class BackdropSampler {
  public:
    /// Switches this process's phone on and loads the library. The phone is a notes application over a plain
    /// page.
    explicit BackdropSampler(const Workshop& workshop);

    /// The theme's image leaves its dictionary, as when a keyboard shows it.
    Behind behind(HuecraftConfig* config) const;

  private:
    /// What a key puts over the backdrop at one point.
    struct Sample {
        double x, y;  // in points of the keyboard
        Colour hidden_cap, visible_cap;
    };
    struct Place {
        std::string key;
        std::vector<Sample> samples;
    };

    std::vector<Place> places_;
    CGSize size_{};
};

}  // namespace command
