#include "themes/findings.h"

#include <cmath>
#include <cstdio>

#include "cli/terminal.h"
#include "formats/value.h"
#include "model/HCCITool.h"
#include "objc/fast_enumeration.h"
#include "support/text.h"

namespace command {
namespace {

using tools::text;
using tools::utf8;

constexpr auto error = Finding::Severity::error, warning = Finding::Severity::warning;

enum Background : NSUInteger { flat_colour = 1, gradient_of_colours = 2, image_data = 3 };

constexpr const char* a_colour = "a hex colour, #RRGGBB or #RRGGBBAA";

/// Collects the findings of one theme.
class Inspector {
  public:
    explicit Inspector(const LoadedTheme& theme) : theme_(theme) {}

    std::vector<Finding> inspect() {
        name();
        colour(ThemeKey::text_colour, "labels");
        colour(ThemeKey::highlight_colour, "highlights");
        background_type();
        colours();
        direction();
        image();
        image_alpha();
        keycaps();
        for (const std::string& key : theme_.unknown_keys())
            findings_.push_back({warning, one_line(key), in_words(theme_.stored(key.c_str())), "no such key",
                                 "remove it, or fix its spelling: the library does not read it"});
        return std::move(findings_);
    }

  private:
    void add(Finding::Severity severity, ThemeKey key, const std::string& found, const std::string& expected,
             const std::string& fix) {
        findings_.push_back({severity, name_of(key), found, expected, fix});
    }

    id stored(ThemeKey key) const { return theme_.stored(name_of(key)); }

    /// The value in words, with its kind where the words alone do not say it.
    static std::string found(id value) {
        if (!value) return "nothing";
        std::string words = in_words(value);
        switch (kind_of(value)) {
            case Kind::data: return words + " of data";
            case Kind::list: return "the list " + words;
            case Kind::date: return "the date " + words;
            default: return words;
        }
    }

    void name() {
        id value = stored(ThemeKey::name);
        if (kind_of(value) != Kind::text)
            add(value ? error : warning, ThemeKey::name, found(value), "a text", "name the theme");
        else if (static_cast<NSString*>(value)->length() == 0)
            add(warning, ThemeKey::name, found(value), "a text that is not empty", "name the theme");
    }

    /// What is wrong with a text as a colour, if anything is.
    void colour_text(ThemeKey key, NSString* value, const std::string& place) {
        const std::string hex = utf8(value);
        if (colour_of(hex)) return;
        const std::string expected = a_colour + place;
        if (HCCITool::isValidHexColorString(value))
            add(warning, key, in_quotes(hex), expected,
                "the library reads it as " + hex_of(colour_of(HCCITool::colorFromHexString(value))) +
                    "; write the colour that you mean");
        else
            add(error, key, in_quotes(hex), expected, "the library reads it as transparent; write a colour");
    }

    void colour(ThemeKey key, const std::string& what) {
        id value = stored(key);
        if (kind_of(value) == Kind::text)
            colour_text(key, static_cast<NSString*>(value), "");
        else
            add(error, key, found(value), a_colour,
                "give the " + what + " a colour; without one they have none");
    }

    /// Numbers may stand in texts, as long as they do. False for what the library reads nothing from.
    bool is_number(ThemeKey key, const std::string& expected, const std::string& fallback) {
        id value = stored(key);
        const Kind kind = kind_of(value);
        if (kind == Kind::whole || kind == Kind::real || kind == Kind::boolean) return true;
        if (kind != Kind::text) {
            add(error, key, found(value), expected, "the library reads " + fallback + "; write a number");
            return false;
        }
        const std::string words = utf8(static_cast<NSString*>(value));
        char* end = nullptr;
        std::strtod(words.c_str(), &end);
        const bool number = !words.empty() && *end == '\0';
        add(number ? warning : error, key, "the text " + in_quotes(words), expected,
            number ? "write it as a number" : "the library reads 0; write a number");
        return number;
    }

    void background_type() {
        const char* expected = "a whole number: 1 flat colour, 2 gradient, 3 image, 0 none";
        if (!stored(ThemeKey::background_type)) {
            add(error, ThemeKey::background_type, "nothing", expected,
                "say which background the theme has; the library draws none");
            return;
        }
        if (!is_number(ThemeKey::background_type, expected, "4, no background")) return;
        if (theme_.config->getBackgroundType() > image_data)
            add(warning, ThemeKey::background_type, found(stored(ThemeKey::background_type)), expected,
                "the library draws no background; write 0 if that is meant");
    }

    void colours() {
        const NSUInteger type = theme_.config->getBackgroundType();
        const bool wanted = type == flat_colour || type == gradient_of_colours;
        id value = stored(ThemeKey::colours);
        const std::string expected = "a list of hex colours";
        if (!value && !wanted) return;
        if (kind_of(value) != Kind::list) {
            add(error, ThemeKey::colours, found(value), expected, "list the background's colours");
            return;
        }
        auto* list = static_cast<NSArray*>(value);
        NSUInteger number = 0;
        objc::for_each<NSObject>(list, [&](NSObject* entry) {
            const std::string place = " as colour " + std::to_string(++number);
            if (auto* hex = as<NSString>(entry))
                colour_text(ThemeKey::colours, hex, place);
            else
                add(error, ThemeKey::colours, found(entry), a_colour + place,
                    "the library leaves it out; write a colour");
        });
        if (wanted && number == 0)
            add(error, ThemeKey::colours, "an empty list", expected, "list the background's colours");
        if (type == gradient_of_colours && number == 1)
            add(warning, ThemeKey::colours, "one colour", "two colours or more for a gradient",
                "add a colour, or set _BackgroundType to 1");
    }

    void direction() {
        id value = stored(ThemeKey::direction);
        const bool wanted = theme_.config->getBackgroundType() == gradient_of_colours;
        const char* expected = "a whole number from 1 to 8";
        if (!value) {
            if (wanted)
                add(warning, ThemeKey::direction, "nothing", expected,
                    "write 2, which is what the library draws");
            return;
        }
        if (!is_number(ThemeKey::direction, expected, "9, drawn as 2") || !wanted) return;
        const NSUInteger direction = theme_.config->getGradientDirection();
        if (direction < 1 || direction > 8)
            add(warning, ThemeKey::direction, found(value), expected,
                "write 2, which is what the library draws");
    }

    void image() {
        id value = stored(ThemeKey::image);
        const bool wanted = theme_.config->getBackgroundType() == image_data;
        const Kind kind = kind_of(value);
        const bool none = !value || (kind == Kind::text && utf8(static_cast<NSString*>(value)) == "nil");
        if (none) {
            if (wanted)
                add(error, ThemeKey::image, found(value), "the data of a PNG picture",
                    "add a picture, or set _BackgroundType to 1 or 2");
        } else if (kind != Kind::data) {
            add(error, ThemeKey::image, found(value), "the data of a PNG picture, or the text \"nil\"",
                "add a picture, or remove the key");
        } else if (!theme_.config->getImage()) {
            add(error, ThemeKey::image, found(value), "the data of a PNG picture",
                "it cannot be decoded; save the picture again");
        }
    }

    void image_alpha() {
        id value = stored(ThemeKey::image_alpha);
        const char* expected = "a number from 0 to 1";
        if (!value || !is_number(ThemeKey::image_alpha, expected, "1")) return;
        const double alpha = theme_.config->getImageAlpha();
        if (!(alpha >= 0 && alpha <= 1))
            add(warning, ThemeKey::image_alpha, found(value), expected, "write a number from 0 to 1");
    }

    void keycaps() {
        id value = stored(ThemeKey::keycaps);
        const Kind kind = kind_of(value);
        if (!value || kind == Kind::boolean) return;
        const bool readable = kind == Kind::text || kind == Kind::whole || kind == Kind::real;
        add(readable ? warning : error, ThemeKey::keycaps, found(value), "yes or no",
            std::string("the library reads ") + (theme_.config->getVisibleKeycaps() ? "yes" : "no") +
                "; write a boolean");
    }

    const LoadedTheme& theme_;
    std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> findings_in_values(const LoadedTheme& theme) { return Inspector(theme).inspect(); }

// The largest keyboard, and what the library adds to its height: 414 by 266 points of 3 pixels.
constexpr size_t fitting = size_t{1242} * 798 * 4;

bool Weight::is_heavy() const { return decoded_bytes() > 4 * fitting; }

Weight weight_of(const LoadedTheme& theme) {
    UIImage* image = theme.config->getImage();
    if (!image) return {};
    return {true, CGImageGetWidth(image->CGImage()), CGImageGetHeight(image->CGImage())};
}

std::vector<Finding> findings_in_weight(const LoadedTheme& theme, const Weight& weight) {
    if (!weight.has_image) return {};
    std::vector<Finding> findings;
    const std::string found = std::to_string(weight.width) + " x " + std::to_string(weight.height) +
                              " pixels, " + std::to_string(weight.decoded_bytes() >> 20) + " MB decoded";
    if (weight.is_heavy())
        findings.push_back({weight.decoded_bytes() > 16 * fitting ? error : warning, name_of(ThemeKey::image),
                            found, "no more than 1242 x 798 pixels, which fill the largest keyboard",
                            "make the picture smaller; each application decodes all of it"});
    if (theme.config->getBackgroundType() != image_data)
        findings.push_back({warning, name_of(ThemeKey::image), found,
                            "no picture where _BackgroundType is not 3",
                            "remove the picture, which is never shown, or set _BackgroundType to 3"});
    return findings;
}

std::vector<Finding> findings_in_contrast(ThemeKey key, const std::string& what, const Colour& colour,
                                          const Contrast& contrast, const Demand& demand,
                                          const std::string& advice) {
    if (contrast.ratio >= demand.warning_below) return {};
    const bool on_bar = contrast.worst_key.starts_with("suggestion ");
    return {{contrast.ratio < demand.error_below ? error : warning, name_of(key),
             hex_of(colour) + ", a contrast of " + readability::ratio_text(contrast.ratio) + " with " +
                 hex_of(contrast.behind) + " behind " +
                 (on_bar ? contrast.worst_key : "the key " + in_quotes(contrast.worst_key)),
             "at least " + readability::ratio_text(demand.warning_below) + " for " + what, advice}};
}

}  // namespace command
