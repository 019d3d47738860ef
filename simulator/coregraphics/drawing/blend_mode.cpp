#include "coregraphics/drawing/blend_mode.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "coregraphics/drawing/pixels.h"
#include "runtime/not_modelled.h"

namespace sim {

cairo_operator_t operator_of(CGBlendMode mode) {
    switch (mode) {
        case kCGBlendModeNormal: return CAIRO_OPERATOR_OVER;
        case kCGBlendModeMultiply: return CAIRO_OPERATOR_MULTIPLY;
        case kCGBlendModeScreen: return CAIRO_OPERATOR_SCREEN;
        case kCGBlendModeOverlay: return CAIRO_OPERATOR_OVERLAY;
        case kCGBlendModeDarken: return CAIRO_OPERATOR_DARKEN;
        case kCGBlendModeLighten: return CAIRO_OPERATOR_LIGHTEN;
        case kCGBlendModeColorDodge: return CAIRO_OPERATOR_COLOR_DODGE;
        case kCGBlendModeColorBurn: return CAIRO_OPERATOR_COLOR_BURN;
        case kCGBlendModeSoftLight: return CAIRO_OPERATOR_SOFT_LIGHT;
        case kCGBlendModeHardLight: return CAIRO_OPERATOR_HARD_LIGHT;
        case kCGBlendModeDifference: return CAIRO_OPERATOR_DIFFERENCE;
        case kCGBlendModeExclusion: return CAIRO_OPERATOR_EXCLUSION;
        case kCGBlendModeHue: return CAIRO_OPERATOR_HSL_HUE;
        case kCGBlendModeSaturation: return CAIRO_OPERATOR_HSL_SATURATION;
        case kCGBlendModeColor: return CAIRO_OPERATOR_HSL_COLOR;
        case kCGBlendModeLuminosity: return CAIRO_OPERATOR_HSL_LUMINOSITY;
        case kCGBlendModeClear: return CAIRO_OPERATOR_CLEAR;
        case kCGBlendModeCopy: return CAIRO_OPERATOR_SOURCE;
        case kCGBlendModeSourceIn: return CAIRO_OPERATOR_IN;
        case kCGBlendModeSourceOut: return CAIRO_OPERATOR_OUT;
        case kCGBlendModeSourceAtop: return CAIRO_OPERATOR_ATOP;
        case kCGBlendModeDestinationOver: return CAIRO_OPERATOR_DEST_OVER;
        case kCGBlendModeDestinationIn: return CAIRO_OPERATOR_DEST_IN;
        case kCGBlendModeDestinationOut: return CAIRO_OPERATOR_DEST_OUT;
        case kCGBlendModeDestinationAtop: return CAIRO_OPERATOR_DEST_ATOP;
        case kCGBlendModeXOR: return CAIRO_OPERATOR_XOR;
        case kCGBlendModePlusLighter: return CAIRO_OPERATOR_ADD;
    }
    not_modelled("CGContextSetBlendMode", "blend mode " + std::to_string(mode));
}

bool is_bounded(CGBlendMode mode) {
    return mode != kCGBlendModeSourceIn && mode != kCGBlendModeSourceOut &&
           mode != kCGBlendModeDestinationIn && mode != kCGBlendModeDestinationAtop;
}

void blend_plus_darker(cairo_surface_t* target, cairo_surface_t* source) {
    double target_x, target_y, source_x, source_y;
    cairo_surface_get_device_offset(target, &target_x, &target_y);
    cairo_surface_get_device_offset(source, &source_x, &source_y);
    const long right = std::lround(target_x - source_x), down = std::lround(target_y - source_y);
    const Pixels below(target), above(source);
    const bool opaque = cairo_image_surface_get_format(target) == CAIRO_FORMAT_RGB24;
    const long width = static_cast<long>(below.width()), height = static_cast<long>(below.height());
    for (long y = 0; y < static_cast<long>(above.height()); ++y) {
        if (y + down < 0 || y + down >= height) continue;
        const uint8_t* from = above.row(static_cast<size_t>(y)).data();
        uint8_t* row = below.row(static_cast<size_t>(y + down)).data();
        for (long x = 0; x < static_cast<long>(above.width()); ++x, from += Pixels::bytes) {
            if (x + right < 0 || x + right >= width || !from[Pixels::alpha]) continue;
            uint8_t* to = row + static_cast<size_t>(x + right) * Pixels::bytes;
            const int old_alpha = opaque ? 255 : to[Pixels::alpha], new_alpha = from[Pixels::alpha];
            const int alpha = std::min(old_alpha + new_alpha, 255);
            for (size_t i : {Pixels::blue, Pixels::green, Pixels::red})
                to[i] =
                    static_cast<uint8_t>(std::max(alpha - (old_alpha - to[i]) - (new_alpha - from[i]), 0));
            to[Pixels::alpha] = static_cast<uint8_t>(alpha);
        }
    }
    below.changed();
}

}  // namespace sim
