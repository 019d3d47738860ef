// The hook table as tests and tools read it. Only what is known while this is compiled is taken from it: the
// replacements themselves are in the library.
#pragma once
#include <array>
#include <string>

#include "hooks/hook_table.h"

namespace hooks {

struct ListedRow {
    Condition condition;
    const char* class_name;
    objc::Side side;
    bool adds;
    SEL (*selector)();
    const char* types;

    /// "-[Class selector]" or "+[Class selector]".
    std::string target() const {
        const std::string sign = side == objc::Side::instance ? "-[" : "+[";
        return sign + class_name + " " + sel_getName(selector()) + "]";
    }
};

inline constexpr auto row_list = [] {
    std::array<ListedRow, std::size(hook_table)> all{};
    for (size_t i = 0; i < all.size(); ++i) {
        const auto& [condition, hook] = hook_table[i];
        all[i] = {condition, hook.class_name, hook.side, hook.adds, hook.selector, hook.types};
    }
    return all;
}();

}  // namespace hooks
