#include "themes/fixing.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "cli/terminal.h"
#include "formats/value.h"
#include "model/HCCITool.h"
#include "objc/fast_enumeration.h"
#include "photos/photo.h"
#include "support/text.h"
#include "themes/findings.h"

namespace command {
namespace {

using tools::text;
using tools::utf8;

enum Background : NSUInteger { no_background = 0, flat_colour = 1, gradient_of_colours = 2, image_data = 3 };

/// The number that a text is from its beginning to its end.
std::optional<double> number_in(id value) {
    auto* string = as<NSString>(value);
    if (!string) return std::nullopt;
    const std::string words = utf8(string);
    char* end = nullptr;
    const double number = std::strtod(words.c_str(), &end);
    return words.empty() || *end != '\0' ? std::nullopt : std::optional(number);
}

bool is_number(id value) {
    const Kind kind = kind_of(value);
    return kind == Kind::whole || kind == Kind::real || kind == Kind::boolean;
}

/// The hex colour that the library reads from a text; nothing where it reads none.
std::optional<std::string> readable_hex(id value) {
    auto* hex = as<NSString>(value);
    if (!hex) return std::nullopt;
    if (colour_of(utf8(hex))) return utf8(hex);
    if (!HCCITool::isValidHexColorString(hex)) return std::nullopt;
    return hex_of(colour_of(HCCITool::colorFromHexString(hex)));
}

class Fixing {
  public:
    Fixing(HuecraftConfig* config, const std::string& file) : config_(config), file_(file) {}

    std::vector<std::string> fix() {
        unknown_keys();
        name();
        colour(ThemeKey::text_colour, "#FFFFFF");
        colour(ThemeKey::highlight_colour, "#555555");
        image();
        colours();
        background_type();
        unused_image();
        direction();
        alpha();
        caps();
        return std::move(done_);
    }

  private:
    id stored(ThemeKey key) const { return config_->asPlist()->objectForKey(text(name_of(key))); }
    void put(ThemeKey key, id value) {
        config_->asPlist()->setObject(value, text(name_of(key)));
        done_.push_back(std::string(name_of(key)) + " is " + in_words(value));
    }
    void put(ThemeKey key, const std::string& value) { put(key, static_cast<id>(text(value))); }
    void put(ThemeKey key, NSUInteger value) {
        put(key, static_cast<id>(NSNumber::numberWithUnsignedInteger(value)));
    }
    void remove(const std::string& key) {
        config_->asPlist()->removeObjectForKey(text(key));
        done_.push_back(one_line(key) + " is removed");
    }
    bool wants_colours() const {
        const NSUInteger type = config_->getBackgroundType();
        return type == flat_colour || type == gradient_of_colours;
    }

    void unknown_keys() {
        for (const std::string& key : command::unknown_keys(config_)) remove(key);
    }

    void name() {
        auto* name = as<NSString>(stored(ThemeKey::name));
        if (name && name->length()) return;
        const std::string stem = std::filesystem::path(file_).stem().string();
        put(ThemeKey::name, text(stem) && !stem.empty() ? stem : "Theme");
    }

    void colour(ThemeKey key, const char* otherwise) {
        auto* hex = as<NSString>(stored(key));
        if (hex && colour_of(utf8(hex))) return;
        put(key, readable_hex(stored(key)).value_or(otherwise));
    }

    void image() {
        id value = stored(ThemeKey::image);
        if (!value) return;
        if (auto* word = as<NSString>(value); word && utf8(word) == "nil") return;
        UIImage* picture = kind_of(value) == Kind::data ? config_->getImage() : nullptr;
        if (!picture) return remove(name_of(ThemeKey::image));
        const Weight weight{true, CGImageGetWidth(picture->CGImage()), CGImageGetHeight(picture->CGImage())};
        if (!weight.is_heavy()) return;
        const PreparedPhoto photo =
            prepare_photo(*stored_image(config_), file_, PhotoWish{.fit = Fit::stretch});
        store_image(config_, stored_picture(photo.picture).bytes);
        done_.push_back("_Image is brought to " + std::to_string(photo.picture.width) + " x " +
                        std::to_string(photo.picture.height) + " pixels");
    }

    void colours() {
        id value = stored(ThemeKey::colours);
        auto* list = as<NSArray>(value);
        if (!value) return;
        NSMutableArray* kept = NSMutableArray::arrayWithCapacity(list ? list->count() : 0);
        bool differs = !list;
        objc::for_each<NSObject>(list, [&](NSObject* entry) {
            const auto hex = readable_hex(entry);
            if (hex) kept->addObject(text(*hex));
            differs = differs || !hex || *hex != utf8(static_cast<NSString*>(static_cast<id>(entry)));
        });
        if (kept->count() == 0 && (differs || wants_colours())) return remove(name_of(ThemeKey::colours));
        if (differs) put(ThemeKey::colours, static_cast<id>(kept));
    }

    /// What the theme has the makings of.
    NSUInteger possible_background(NSUInteger wanted) const {
        auto* list = as<NSArray>(stored(ThemeKey::colours));
        const NSUInteger count = list ? list->count() : 0;
        const bool picture = kind_of(stored(ThemeKey::image)) == Kind::data;
        if (wanted == no_background || (wanted == flat_colour && count) ||
            (wanted == image_data && picture) || (wanted == gradient_of_colours && count > 1))
            return wanted;
        if (count) return count == 1 ? flat_colour : gradient_of_colours;
        return picture ? image_data : no_background;
    }

    void background_type() {
        id value = stored(ThemeKey::background_type);
        const bool is_written = is_number(value);
        const NSUInteger read = config_->getBackgroundType();
        // What is drawn as nothing was meant as nothing only where it says 0.
        const NSUInteger possible = possible_background(
            value && (is_written || number_in(value)) ? std::min(read, NSUInteger{4}) : 4);
        if (!is_written || possible != read) put(ThemeKey::background_type, possible);
    }

    void unused_image() {
        if (kind_of(stored(ThemeKey::image)) == Kind::data && config_->getBackgroundType() != image_data)
            remove(name_of(ThemeKey::image));
    }

    void direction() {
        id value = stored(ThemeKey::direction);
        const bool wanted = config_->getBackgroundType() == gradient_of_colours;
        const NSUInteger read = config_->getGradientDirection();
        const bool in_range = read >= 1 && read <= 8;
        constexpr NSUInteger drawn = 2;
        if (!value && !wanted) return;
        if (!value || (wanted && !in_range) || !is_number(value))
            put(ThemeKey::direction, in_range && (is_number(value) || number_in(value)) ? read : drawn);
    }

    void alpha() {
        id value = stored(ThemeKey::image_alpha);
        if (!value) return;
        const double read = config_->getImageAlpha();
        const bool readable = is_number(value) || number_in(value);
        if (is_number(value) && read >= 0 && read <= 1) return;
        const double meant = readable && !std::isnan(read) ? std::clamp(read, 0.0, 1.0) : 1;
        put(ThemeKey::image_alpha, static_cast<id>(NSNumber::numberWithFloat(static_cast<float>(meant))));
    }

    void caps() {
        id value = stored(ThemeKey::keycaps);
        if (value && kind_of(value) != Kind::boolean)
            put(ThemeKey::keycaps, static_cast<id>(NSNumber::numberWithBool(config_->getVisibleKeycaps())));
    }

    HuecraftConfig* config_;
    const std::string& file_;
    std::vector<std::string> done_;
};

}  // namespace

objc::strong<HuecraftConfig> copy_of(HuecraftConfig* config) {
    objc::strong<HuecraftConfig> copy = HuecraftConfig::defaultConfig();
    copy->asPlist()->send<"setDictionary:">(static_cast<id>(config->asPlist()));
    return copy;
}

std::vector<std::string> correct_values(HuecraftConfig* config, const std::string& file) {
    return Fixing(config, file).fix();
}

std::optional<std::string> stored_image(HuecraftConfig* config) {
    id value = config->asPlist()->objectForKey(text(name_of(ThemeKey::image)));
    if (kind_of(value) != Kind::data) return std::nullopt;
    return bytes_of(static_cast<NSData*>(value));
}

void store_image(HuecraftConfig* config, const std::string& bytes) {
    config->asPlist()->setObject(data_of(bytes), text(name_of(ThemeKey::image)));
}

}  // namespace command
