#include "themes/theme.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/moderation.h"
#include "formats/value.h"
#include "model/HCPreferences.h"
#include "model/config_error.h"
#include "objc/exception.h"
#include "objc/fast_enumeration.h"
#include "objc/instance_variable.h"
#include "photos/picture_limits.h"
#include "support/text.h"

namespace command {
namespace {

using tools::text;
using tools::utf8;

std::string reason_of(NSError* error) {
    if (!error) return "the library says nothing of why it cannot be loaded";
    auto* info = error->send<"userInfo", NSDictionary*>();
    const std::string detail = utf8(as<NSString>(info->objectForKey(text("NSDebugDescription"))));
    if (!detail.empty()) return "it is not a property list: " + one_line(detail, 200);
    const std::string words = utf8(error->send<"localizedDescription", NSString*>());
    if (words == config_error::not_a_dictionary.description)
        return "it is a property list, but no theme: found no dictionary at its root, expected one";
    return one_line(words, 200);
}

[[noreturn]] void refuse(const std::string& file, ThemeKey key, const std::string& why) {
    throw Unusable(file, std::string(name_of(key)) + ": " + why);
}

/// The phone decodes whole pictures, whatever they take, and more than once.
void require_moderate_picture(id image, const std::string& file) {
    constexpr size_t most = 20'000'000;
    if (kind_of(image) != Kind::data) return;
    auto* data = static_cast<NSData*>(image);
    const std::string_view bytes{static_cast<const char*>(data->bytes()), data->length()};
    if (const size_t pixels = announced_pixels(bytes); pixels > most)
        refuse(file, ThemeKey::image,
               "found a picture of " + std::to_string(pixels / 1'000'000) + " megapixels, expected at most " +
                   std::to_string(most / 1'000'000));
    if (const std::string why = laborious(bytes); !why.empty()) refuse(file, ThemeKey::image, why);
}

}  // namespace

const std::vector<ThemeKeyName> theme_keys{
    {ThemeKey::name, "_ConfigName", "getConfigName"},
    {ThemeKey::text_colour, "_TextColor", "getTextColor"},
    {ThemeKey::highlight_colour, "_HighlightColor", "getHighlightColor"},
    {ThemeKey::background_type, "_BackgroundType", "getBackgroundType"},
    {ThemeKey::colours, "_Colors", "getColors"},
    {ThemeKey::direction, "_GradientDirection", "getGradientDirection"},
    {ThemeKey::image, "_Image", "getImage"},
    {ThemeKey::image_alpha, "_ImageAlpha", "getImageAlpha"},
    {ThemeKey::keycaps, "_VisibleKeycaps", "getVisibleKeycaps"},
};

const char* name_of(ThemeKey key) { return theme_keys[static_cast<size_t>(key)].name; }

std::string background_in_words(NSUInteger type) {
    constexpr const char* words[] = {"none", "flat colour", "gradient", "image"};
    return type < std::size(words) ? words[type] : "none";
}

std::string direction_in_words(NSUInteger direction) {
    constexpr const char* words[] = {"",
                                     "bottom to top",
                                     "top to bottom",
                                     "right to left",
                                     "left to right",
                                     "bottom right to top left",
                                     "bottom left to top right",
                                     "top right to bottom left",
                                     "top left to bottom right"};
    return direction >= 1 && direction <= 8 ? words[direction] : "drawn as 2, top to bottom";
}

id LoadedTheme::stored(const char* key) const { return config->asPlist()->objectForKey(text(key)); }

std::vector<std::string> unknown_keys(HuecraftConfig* config) {
    std::vector<std::string> unknown;
    objc::for_each<NSString>(config->asPlist(), [&](NSString* key) {
        const std::string name = utf8(key);
        if (std::ranges::none_of(theme_keys, [&](const auto& known) { return name == known.name; }))
            unknown.push_back(name);
    });
    std::ranges::sort(unknown);
    return unknown;
}

LoadedTheme load_theme(const Workshop& workshop, const std::string& file) {
    return load_theme(workshop, file, read_input(file));
}

LoadedTheme load_theme(const Workshop& workshop, const std::string& file, const std::string& contents) {
    require_moderate(contents, file);
    // By process: several may share a phone's folder.
    const std::string name = "theme-" + std::to_string(getpid()) + ".plist";
    workshop.place_theme(name, contents);
    LoadedTheme theme;
    theme.bytes = contents.size();
    NSError* error = nullptr;
    const auto start = std::chrono::steady_clock::now();
    id raised =
        objc::caught([&] { theme.config = HuecraftConfig::alloc()->initWithFilename(text(name), &error); });
    theme.milliseconds =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    if (raised) throw Unusable(file, exception_in_words(raised));
    if (!theme.config) throw Unusable(file, reason_of(error));
    require_moderate(static_cast<NSObject*>(theme.config->asPlist()), file, most_values_of_a_theme);
    require_moderate_picture(theme.stored(name_of(ThemeKey::image)), file);
    const bool any_known =
        std::ranges::any_of(theme_keys, [&](const auto& key) { return theme.stored(key.name); });
    if (!any_known)
        throw Unusable(file, "it is a property list, but no theme: it has none of a theme's keys");
    return theme;
}

void wear(HuecraftConfig* config) {
    auto& worn = objc::instance_variable<HuecraftConfig*>(HCPreferences::sharedInstance(), "configCache");
    objc::strong<HuecraftConfig>::adopt(worn);
    worn = objc::strong<HuecraftConfig>(config).leak();
}

}  // namespace command
