// What a backdrop draws for the code of its style.
#include "keyboard/backdrops/backdrop_material.h"

namespace sim {

BackdropMaterial backdrop_material(NSInteger style) {
    switch (style) {
        case backdrop_style_light: return {UIColor::colorWithWhite(1, 0.3), 20};
        case backdrop_style_light_keyboard:
            return {UIColor::colorWithRGB(209 / 255.0, 213 / 255.0, 219 / 255.0, 1), 0};
        case backdrop_style_dark_keyboard: return {UIColor::colorWithWhite(0.15, 1), 0};
    }
    return {};
}

}  // namespace sim
