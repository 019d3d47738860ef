// What `new` and `edit` can set of a theme.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "model/HuecraftConfig.h"
#include "photos/photo.h"
#include "themes/backdrop.h"

namespace command {

struct ThemeOptions {
    std::string text, highlight, flat, gradient, image, from_image, crop, fit;
    unsigned direction = 0;
    double dim = 0, blur = 0;
    std::optional<double> alpha;
    bool caps = false, no_caps = false, no_image = false;

    bool operator==(const ThemeOptions&) const = default;

    /// Throws Unusable for options that say nothing together.
    void check(bool has_picture) const;
    /// Sets what was asked for. Answers what was done to a photo, a line each. Throws Unusable.
    std::vector<std::string> paint(HuecraftConfig* config) const;
    /// With --from-image the colours that were not asked for, so that they can be told apart; answers what
    /// was done.
    std::vector<std::string> take_colours(HuecraftConfig* config, const BackdropSampler& sampler) const;

  private:
    PhotoWish photo_wish() const;
    std::vector<std::string> put_photo(HuecraftConfig* config, const std::string& file) const;
};

/// Adds the options; those of `edit` can also take something away.
void add_theme_options(Subcommand subcommand, ThemeOptions& options, bool editing);

/// What can be said against the contrasts of a theme, and the advice; empty for a fine one.
std::string doubts_about(HuecraftConfig* config, const BackdropSampler& sampler);

}  // namespace command
