// The types of the library's replacements, out of its hook table. Of the table only what is known while
// this is compiled is used: the replacements themselves are in the library.
#include "doctor/replacement_types.h"

#include <array>
#include <map>
#include <stdexcept>

#include "hooks/hook_table.h"

namespace command {
namespace {

struct Replacement {
    const char* class_name;
    objc::Side side;
    SEL (*selector)();
    const char* types;
};

constexpr auto replacements = [] {
    std::array<Replacement, std::size(hooks::hook_table)> all{};
    for (size_t i = 0; i < all.size(); ++i) {
        const objc::HookRow& row = hooks::hook_table[i].hook;
        all[i] = {row.class_name, row.side, row.selector, row.types};
    }
    return all;
}();

}  // namespace

std::string types_of_replacement(const std::string& target) {
    static const auto types = [] {
        std::map<std::string, std::string> all;
        for (const Replacement& each : replacements)
            all[std::string(each.side == objc::Side::instance ? "-[" : "+[") + each.class_name + " " +
                sel_getName(each.selector()) + "]"] = each.types;
        return all;
    }();
    const auto found = types.find(target);
    if (found == types.end()) throw std::logic_error("the hook table has no row of " + target);
    return found->second;
}

}  // namespace command
