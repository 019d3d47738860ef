#include "doctor/hook_effects.h"

#include <algorithm>
#include <stdexcept>

#include "compatibility/effects.h"

namespace command {

std::string effect_without(const std::string& row_target) {
    const char* sentence = compatibility::effect_without(row_target);
    if (!sentence) throw std::out_of_range(row_target);
    return sentence;
}

void require_effects_of(const std::vector<std::string>& row_targets) {
    for (const std::string& row : row_targets)
        if (!compatibility::effect_without(row))
            throw std::logic_error("nobody has said what users see without " + row +
                                   " (compatibility/effects.cpp)");
    for (const auto& [target, sentence] : compatibility::effects())
        if (std::ranges::find(row_targets, target) == row_targets.end())
            throw std::logic_error(std::string("it is said what users see without ") + target +
                                   ", which the library no longer hooks (compatibility/effects.cpp)");
}

}  // namespace command
