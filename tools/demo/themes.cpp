#include "themes.h"

#include <cstdint>
#include <initializer_list>

#include "hills.h"
#include "model/HuecraftConfig.h"
#include "support/phone.h"
#include "support/text.h"
#include "support/theme_choice.h"

namespace demo {

using namespace tools;
namespace {

using objc::strong;

UIColor* color(uint32_t rgb, double alpha = 1) {
    auto component = [rgb](int shift) { return (rgb >> shift & 255) / 255.0; };
    return UIColor::colorWithRGB(component(16), component(8), component(0), alpha);
}

NSArray* colors(std::initializer_list<uint32_t> values) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(values.size());
    for (uint32_t value : values) list->addObject(color(value));
    return list;
}

constexpr NSUInteger top_to_bottom = 2, top_left_to_bottom_right = 8;

std::string reason_of(NSError* error) {
    NSString* description = error ? error->send<"localizedDescription", NSString*>() : nullptr;
    return description ? description->UTF8String() : "no reason is given";
}

void save(HuecraftConfig* config, const std::string& name) {
    if (!config) throw Failure("the library has no class HuecraftConfig to make a theme with");
    config->setConfigName(text(name));
    NSError* error = nullptr;
    if (!config->saveConfiguration(&error))
        throw Failure("saving the theme " + name + ": " + reason_of(error));
}

}  // namespace

void make_themes() {
    const auto& [peach, hills, midnight] = themes;

    save(HuecraftConfig::configWith(color(0x4a1d3f), gradient, colors({0xffe29a, 0xff9a8b, 0xff6a88}),
                                    top_left_to_bottom_right, nullptr, color(0xd9a5f5)),
         peach.name);

    HuecraftConfig* config = HuecraftConfig::configWith(
        color(0x14342b), image, colors({0xffffff}), top_to_bottom, draw_hills({375, 302}), color(0xe8743b));
    config->setImageAlpha(0.95);
    save(config, hills.name);

    config = HuecraftConfig::configWith(color(0xffb84d), flat, colors({0x1b2440}), top_to_bottom, nullptr,
                                        color(0x35539b));
    config->setVisibleKeycaps(true);
    save(config, midnight.name);
}

void make_theme(const Look& look) {
    HuecraftConfig* config = nullptr;
    switch (look.background) {
        case none:
            config = HuecraftConfig::configWith(color(0x4a1d3f), none, colors({}), look.direction, nullptr,
                                                color(0xd9a5f5));
            break;
        case flat:
            config = HuecraftConfig::configWith(color(0xffb84d), flat,
                                                NSArray::arrayWithObject(color(0x1b2440, look.alpha)),
                                                look.direction, nullptr, color(0x35539b));
            break;
        case gradient:
            config =
                HuecraftConfig::configWith(color(0x4a1d3f), gradient, colors({0xffe29a, 0xff9a8b, 0xff6a88}),
                                           look.direction, nullptr, color(0xd9a5f5));
            break;
        case image:
            config = HuecraftConfig::configWith(color(0x14342b), image, colors({0xffffff}), look.direction,
                                                draw_hills({375, 302}), color(0xe8743b));
            config->setImageAlpha(look.alpha);
            break;
    }
    config->setVisibleKeycaps(look.caps);
    save(config, look.name);
}

std::filesystem::path file_of(const std::filesystem::path& device, const std::string& theme) {
    if (theme.empty()) return {};
    return device / "var/mobile/Library/Preferences/HuecraftConfiguration" / (theme + ".plist");
}

void choose(const std::string& theme) { choose_theme(theme.empty() ? "" : theme + ".plist"); }

}  // namespace demo
