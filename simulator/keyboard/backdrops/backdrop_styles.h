// The codes of backdrops. The first four are named like this on the system; those of keyboards are the
// model's own.
#pragma once
#include "objc/runtime.h"

namespace sim {

constexpr NSInteger backdrop_style_none = -2;
constexpr NSInteger backdrop_style_light = 0;
constexpr NSInteger backdrop_style_dark = 1;
constexpr NSInteger backdrop_style_blur = 2;
constexpr NSInteger backdrop_style_light_keyboard = 3901;
constexpr NSInteger backdrop_style_dark_keyboard = 3902;

/// What +[UIKBRenderConfig backdropStyleForStyle:quality:] is asked with.
constexpr NSInteger keyboard_style_light = 0;
constexpr NSInteger keyboard_style_dark = 1;
constexpr NSInteger keyboard_quality_full = 100;

}  // namespace sim
