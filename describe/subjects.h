// What a description is about: the lists that CMake makes of describe/subjects.txt and of the hook table.
#pragma once
#include <span>

#include "hooks/decision.h"

namespace describe {

struct HookedMethod {
    const char* name;  ///< "-[UIKBEdgeEffect edges]"
    hooks::Condition condition;
};

std::span<const char* const> described_classes();
std::span<const char* const> described_functions();
/// The rows of the hook table, in its order.
std::span<const HookedMethod> hooked_methods();

}  // namespace describe
