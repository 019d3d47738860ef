// The library's own protocols, as the dylib lists them.
#pragma once
#include <string>
#include <vector>

namespace contract {

struct ProtocolMethod {
    /// "-selector"
    std::string name;
    /// With the classes of objects.
    std::string types;
    /// An object may do without it: whoever sends it asks first.
    bool optional = false;
};

struct Protocol {
    std::string name;
    std::vector<ProtocolMethod> methods;
};

}  // namespace contract
