// huecraft show: every key of a theme, as it is stored and as the library reads it.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "objc/fast_enumeration.h"
#include "support/phone.h"
#include "support/text.h"
#include "themes/colour.h"
#include "themes/theme.h"

namespace command {
namespace {

using tools::utf8;

struct Answer {
    std::string words;
    Json json;
    std::string swatches = {};  ///< of the colours in it, for a terminal
};

Answer colour_answer(UIColor* color) {
    if (!color) return {"no colour", nullptr};
    const Colour colour = colour_of(color);
    const std::string hex = hex_of(colour);
    const auto byte = [](double component) {
        return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
    };
    return {hex, hex, swatch(byte(colour.red), byte(colour.green), byte(colour.blue))};
}

Answer colours_answer(NSArray* colors) {
    if (!colors) return {"no colours", nullptr};
    Answer answer{"", Json::array()};
    objc::for_each<UIColor>(colors, [&](UIColor* color) {
        const Answer one = colour_answer(color);
        answer.words += (answer.words.empty() ? "" : ", ") + one.words;
        answer.json.push_back(one.json);
        answer.swatches += one.swatches;
    });
    return answer;
}

Answer image_answer(UIImage* image) {
    if (!image) return {"no image", nullptr};
    const size_t width = CGImageGetWidth(image->CGImage()), height = CGImageGetHeight(image->CGImage());
    return {std::to_string(width) + " x " + std::to_string(height) + " pixels",
            {{"width", width}, {"height", height}}};
}

/// What the library makes of the key.
Answer answer_of(HuecraftConfig* config, ThemeKey key) {
    switch (key) {
        case ThemeKey::name: {
            NSString* name = config->getConfigName();
            return name ? Answer{in_quotes(utf8(name)), utf8(name)} : Answer{"no name", nullptr};
        }
        case ThemeKey::text_colour: return colour_answer(config->getTextColor());
        case ThemeKey::highlight_colour: return colour_answer(config->getHighlightColor());
        case ThemeKey::background_type: {
            const NSUInteger type = config->getBackgroundType();
            return {std::to_string(type) + ", " + background_in_words(type), type};
        }
        case ThemeKey::colours: return colours_answer(config->getColors());
        case ThemeKey::direction: {
            const NSUInteger direction = config->getGradientDirection();
            return {std::to_string(direction) + ", " + direction_in_words(direction), direction};
        }
        case ThemeKey::image: return image_answer(config->getImage());
        case ThemeKey::image_alpha: {
            char text[32];
            std::snprintf(text, sizeof text, "%.6g", config->getImageAlpha());
            return {text, config->getImageAlpha()};
        }
        case ThemeKey::keycaps:
            return {config->getVisibleKeycaps() ? "visible" : "hidden", config->getVisibleKeycaps()};
    }
    return {};
}

struct Show {
    std::vector<std::string> files;
    bool json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            tools::boot(workshop.device, tools::settings);
            tools::load(library());
            Json all = Json::array();
            const Status status = for_each_file(files, [&](const std::string& file) {
                const LoadedTheme theme = load_theme(workshop, file);
                json ? all.push_back(in_json(file, theme)) : print(file, theme);
                return Status::fine;
            });
            if (json) std::fputs(printed({{"files", all}}).c_str(), stdout);
            return status;
        });
    }

  private:
    static void print(const std::string& file, const LoadedTheme& theme) {
        std::printf("%s\n", toned(Tone::strong, one_line(file, 4096)).c_str());
        for (const ThemeKeyName& key : theme_keys) {
            id stored = theme.stored(key.name);
            const std::string value = stored ? in_words(stored) : "missing";
            const Answer answer = answer_of(theme.config, key.key);
            std::printf(
                "  %-19s %s%s\n  %s\n", key.name, answer.swatches.c_str(),
                toned(stored ? Tone::plain : Tone::faint, value).c_str(),
                toned(Tone::faint, "                    " + std::string(key.getter) + ": " + answer.words)
                    .c_str());
        }
        for (const std::string& name : theme.unknown_keys())
            std::printf("  %-19s %s\n  %s\n", one_line(name).c_str(),
                        in_words(theme.stored(name.c_str())).c_str(),
                        toned(Tone::warning, "                    unknown to the library").c_str());
    }

    static Json in_json(const std::string& file, const LoadedTheme& theme) {
        Json keys = Json::array();
        for (const ThemeKeyName& key : theme_keys) {
            id stored = theme.stored(key.name);
            keys.push_back({{"key", key.name},
                            {"stored", json_of(stored)},
                            {"missing", stored == nullptr},
                            {"getter", key.getter},
                            {"answer", answer_of(theme.config, key.key).json}});
        }
        Json unknown = Json::object();
        for (const std::string& name : theme.unknown_keys())
            unknown[name] = json_of(theme.stored(name.c_str()));
        return {{"file", file}, {"keys", keys}, {"unknown", unknown}};
    }
};

}  // namespace

void add_show(CLI::App& command, Request& request) {
    auto options = std::make_shared<Show>();
    const Subcommand sub =
        add_subcommand(command, request, "show",
                       "Show what a theme's file holds, and what the library reads from it", options);
    sub.add_option("THEMES", options->files, "The themes").required().type_name("FILE");
    add_json(sub, options->json);
    sub.footer(
        "Examples:\n"
        "  huecraft show Midnight.plist\n"
        "  huecraft show --json *.plist");
}

}  // namespace command
