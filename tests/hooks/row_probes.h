// Whether a row of the hook table is at work: a probe for each, through the hooked method itself.
#pragma once
#include <map>
#include <string>
#include <vector>

namespace test {

struct RowProbe {
    /// Beside the row's own class, those whose absence hides what the row does.
    std::vector<std::string> needs;
    bool (*shows_the_theme)();
};

/// By the row's name, without the types of what is added. A theme made by `arrange_theme` is in force.
const std::map<std::string, RowProbe>& row_probes();

}  // namespace test
