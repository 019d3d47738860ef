#include "quartzcore/compositing.h"

#include <string_view>
#include <utility>

#include "runtime/not_modelled.h"

namespace sim {

CGBlendMode blend_mode_of(id compositing_filter) {
    static constexpr std::pair<std::string_view, CGBlendMode> rows[] = {
        {"normalBlendMode", kCGBlendModeNormal},
        {"multiplyBlendMode", kCGBlendModeMultiply},
        {"screenBlendMode", kCGBlendModeScreen},
        {"overlayBlendMode", kCGBlendModeOverlay},
        {"darkenBlendMode", kCGBlendModeDarken},
        {"lightenBlendMode", kCGBlendModeLighten},
        {"colorDodgeBlendMode", kCGBlendModeColorDodge},
        {"colorBurnBlendMode", kCGBlendModeColorBurn},
        {"softLightBlendMode", kCGBlendModeSoftLight},
        {"hardLightBlendMode", kCGBlendModeHardLight},
        {"differenceBlendMode", kCGBlendModeDifference},
        {"exclusionBlendMode", kCGBlendModeExclusion},
        {"sourceOver", kCGBlendModeNormal},
        {"sourceIn", kCGBlendModeSourceIn},
        {"sourceOut", kCGBlendModeSourceOut},
        {"sourceAtop", kCGBlendModeSourceAtop},
        {"destOver", kCGBlendModeDestinationOver},
        {"destIn", kCGBlendModeDestinationIn},
        {"destOut", kCGBlendModeDestinationOut},
        {"destAtop", kCGBlendModeDestinationAtop},
        {"xor", kCGBlendModeXOR},
        {"plusD", kCGBlendModePlusDarker},
        {"plusL", kCGBlendModePlusLighter},
    };
    if (!compositing_filter) return kCGBlendModeNormal;
    auto* filter = as<CAFilter>(compositing_filter);
    auto* name = filter ? filter->type() : as<NSString>(compositing_filter);
    const std::string_view text = name ? name->UTF8String() : "a filter without a name";
    for (const auto& [row, mode] : rows)
        if (row == text) return mode;
    not_modelled("CALayer", "compositingFilter", text);
}

}  // namespace sim
