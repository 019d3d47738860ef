// The library's own protocols, held against the names in the dylib.
#pragma once
#include <set>
#include <string>
#include <vector>

namespace contract {

struct ProtocolMethod {
    /// "-selector"
    std::string name;
    /// An object may do without it: whoever sends it asks first.
    bool optional = false;
};

struct Protocol {
    std::string name, of;
    std::vector<ProtocolMethod> methods;
};

/// Those that the dylib declares, among the system's. Throws a runtime_error, naming it, for one of ours that
/// is not described here, and for a described method whose selector the dylib does not hold.
std::vector<Protocol> protocols_declared_in(const std::set<std::string>& names,
                                            const std::set<std::string>& selectors);

}  // namespace contract
