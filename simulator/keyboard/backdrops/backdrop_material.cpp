#include "keyboard/backdrops/backdrop_material.h"

namespace sim {

BackdropMaterial backdrop_material(NSInteger style) {
    constexpr CGFloat blur_radius = 20;
    switch (style) {
        case backdrop_style_light: return {UIColor::colorWithWhite(1, 0.3), blur_radius};
        case backdrop_style_dark: return {UIColor::colorWithWhite(0.1, 0.7), blur_radius};
        case backdrop_style_blur: return {nullptr, blur_radius};
        case backdrop_style_light_keyboard:
            return {UIColor::colorWithRGB(209 / 255.0, 213 / 255.0, 219 / 255.0, 1), 0};
        case backdrop_style_dark_keyboard: return {UIColor::colorWithWhite(0.15, 1), 0};
    }
    return {};
}

}  // namespace sim
