// Themes as the library has them.
#pragma once
#include <string>
#include <vector>

#include "cli/workshop.h"
#include "model/HuecraftConfig.h"
#include "objc/strong.h"

namespace command {

enum class ThemeKey {
    name,
    text_colour,
    highlight_colour,
    background_type,
    colours,
    direction,
    image,
    image_alpha,
    keycaps,
};

/// A key of theme files, and the getter that reads it.
struct ThemeKeyName {
    ThemeKey key;
    const char* name;
    const char* getter;
};
extern const std::vector<ThemeKeyName> theme_keys;

const char* name_of(ThemeKey key);

/// What a background type says: "flat colour", "gradient", "image", "none".
std::string background_in_words(NSUInteger type);
/// "bottom to top"
std::string direction_in_words(NSUInteger direction);

/// The keys that the library does not read, in alphabetical order.
std::vector<std::string> unknown_keys(HuecraftConfig* config);

/// A theme, loaded by the library's own class from a phone's folder of themes, and how long that took.
struct LoadedTheme {
    objc::strong<HuecraftConfig> config;
    size_t bytes = 0;
    double milliseconds = 0;

    id stored(const char* key) const;
    std::vector<std::string> unknown_keys() const { return command::unknown_keys(config); }
};

/// Needs a phone that is on, with the library. Throws Unusable for what is not a theme.
LoadedTheme load_theme(const Workshop& workshop, const std::string& file);
/// The same of a file that has been read.
LoadedTheme load_theme(const Workshop& workshop, const std::string& file, const std::string& contents);

/// Puts the theme in force in a process that has the library with theming on: what is shown from now on wears
/// it. Whether key caps are visible, which is settled when the library is loaded, stays.
void wear(HuecraftConfig* config);

}  // namespace command
