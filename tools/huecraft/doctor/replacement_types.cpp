#include "doctor/replacement_types.h"

#include <map>
#include <stdexcept>

#include "hooks/row_list.h"

namespace command {

std::string types_of_replacement(const std::string& target) {
    static const auto types = [] {
        std::map<std::string, std::string> all;
        for (const hooks::ListedRow& row : hooks::row_list) all[row.target()] = row.types;
        return all;
    }();
    const auto found = types.find(target);
    if (found == types.end()) throw std::logic_error("the hook table has no row of " + target);
    return found->second;
}

}  // namespace command
