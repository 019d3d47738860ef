// What users would see on a system that lacks what a hook is about.
#pragma once
#include <string>
#include <vector>

namespace command {

/// One sentence for a row of the hook table, by its target.
std::string effect_without(const std::string& row_target);

/// Throws unless there is a sentence for each of these, which are all, and for nothing else.
void require_effects_of(const std::vector<std::string>& row_targets);

}  // namespace command
