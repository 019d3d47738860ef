// The Objective-C metadata of a Mach-O file, as the disassembler prints it.
#pragma once
#include <map>
#include <set>
#include <string>
#include <vector>

namespace test {

struct ClassFacts {
    std::string superclass;
    /// "-selector types", "+selector types"
    std::set<std::string> methods;
    /// "name type", in order
    std::vector<std::string> variables;
    friend bool operator==(const ClassFacts&, const ClassFacts&) = default;
};
using Classes = std::map<std::string, ClassFacts>;

/// Reads the output of llvm-objdump --macho --objc-meta-data.
Classes parse_metadata(const std::string& printed);

}  // namespace test
