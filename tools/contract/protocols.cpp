// The dylib names its protocols, and not what is in them: that is described here, and its selectors prove the
// rest.
#include "protocols.h"

#include <algorithm>
#include <stdexcept>

namespace contract {
namespace {

const std::vector<Protocol> described{
    {"HCColorPickerDelegate",
     "HCColorPickerController",
     {{.name = "-colorPickerReturnedWithColor:andHexString:", .optional = true}}},
    {"HCModalDelegate", "HCModalView", {{.name = "-closeButtonPressed"}, {.name = "-selectButtonPressed"}}},
};

}  // namespace

std::vector<Protocol> protocols_declared_in(const std::set<std::string>& names,
                                            const std::set<std::string>& selectors) {
    std::vector<Protocol> found;
    for (const std::string& name : names) {
        if (!name.starts_with("HC")) continue;
        const auto known = std::ranges::find(described, name, &Protocol::name);
        if (known == described.end())
            throw std::runtime_error("the dylib declares the protocol " + name +
                                     ", which tools/contract/protocols.cpp does not describe");
        for (const ProtocolMethod& method : known->methods)
            if (!selectors.contains(method.name.substr(1)))
                throw std::runtime_error("the dylib does not hold the selector of " + method.name + " in " +
                                         name + ", which tools/contract/protocols.cpp describes");
        found.push_back(*known);
    }
    return found;
}

}  // namespace contract
