// That the command has a sentence for every hook, without the command.
#include <gtest/gtest.h>

#include "doctor/hook_effects.h"
#include "hooks/row_list.h"

TEST(HookEffects, EveryRowHasASentence) {
    std::vector<std::string> targets{"UIKBGetNamedColor"};
    for (const hooks::ListedRow& row : hooks::row_list) targets.push_back(row.target());
    EXPECT_NO_THROW(command::require_effects_of(targets));
}
