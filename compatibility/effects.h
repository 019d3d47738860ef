// What users would see on a system that lacks what a hook is about.
#pragma once
#include <span>
#include <string_view>

namespace compatibility {

/// One sentence for a row of the hook table, by its target.
struct EffectWithout {
    const char *target, *sentence;
};
std::span<const EffectWithout> effects();

/// null for what is no row.
const char* effect_without(std::string_view target);

}  // namespace compatibility
