// What makes a theme fine: values that the library reads as they are meant, and colours that can be told
// apart.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "themes/legibility.h"
#include "themes/theme.h"

namespace command {

/// Another configuration with the same content.
objc::strong<HuecraftConfig> copy_of(HuecraftConfig* config);

/// Puts right what `findings_in_values` and `findings_in_weight` find. Answers what was done, a line each.
/// `file` names a theme without a name.
std::vector<std::string> correct_values(HuecraftConfig* config, const std::string& file);

/// The pair to take and, where none passes on the background as it is, what to do to that first.
struct Advice {
    Pair pair;
    std::vector<Colour> colours = {};  ///< in place of the background's, nearer to one another
    double dim = 0, blur = 0;          ///< of the picture; the blur in points
    bool without_picture = false;      ///< which no dimming or blurring helps; the colours take its place
    bool changes_background() const { return !colours.empty() || dim > 0 || blur > 0; }
};

/// The colours of the theme, or the library's own where it has none.
Pair pair_of(HuecraftConfig* config);

/// The nearest pair that passes, on the nearest background for which there is one.
Advice advise(const BackdropSampler& sampler, HuecraftConfig* config);

/// "use #FFDFAE for labels and #778BBC for highlights …", to follow a colon.
std::string in_words(const Advice& advice);

/// What is done to the picture: "dimmed by 0.35".
std::string treatment_in_words(const Advice& advice);

void apply(const Advice& advice, HuecraftConfig* config);

/// The picture that the theme keeps; nothing for none that can be decoded.
std::optional<std::string> stored_image(HuecraftConfig* config);
void store_image(HuecraftConfig* config, const std::string& bytes);

}  // namespace command
