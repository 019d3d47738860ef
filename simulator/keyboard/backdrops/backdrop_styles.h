// The codes of the backdrops that keyboards are put on. The system's meaning of most codes is not known: the
// model has the materials it needs, and reads -2 as no material at all.
#pragma once
#include "objc/runtime.h"

namespace sim {

constexpr NSInteger backdrop_style_none = -2;
constexpr NSInteger backdrop_style_light = 2;
constexpr NSInteger backdrop_style_light_keyboard = 3901;
constexpr NSInteger backdrop_style_dark_keyboard = 3902;

/// What +[UIKBRenderConfig backdropStyleForStyle:quality:] is asked with.
constexpr NSInteger keyboard_style_light = 0;
constexpr NSInteger keyboard_style_dark = 1;
constexpr NSInteger keyboard_quality_full = 100;

}  // namespace sim
