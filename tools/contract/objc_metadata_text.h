// The Objective-C metadata of a Mach-O file, as the disassembler prints it.
#pragma once
#include <map>
#include <set>
#include <string>
#include <vector>

namespace contract {

struct ClassFacts {
    std::string superclass;
    /// "-selector types", "+selector types"
    std::set<std::string> methods;
    /// "name type", in order
    std::vector<std::string> variables;
    /// "name attributes", in order
    std::vector<std::string> properties;
    /// Adopted by the class itself, in order.
    std::vector<std::string> protocols;
    friend bool operator==(const ClassFacts&, const ClassFacts&) = default;
};
using Classes = std::map<std::string, ClassFacts>;

/// Reads the output of llvm-objdump --macho --objc-meta-data.
Classes parse_metadata(const std::string& printed);

}  // namespace contract
