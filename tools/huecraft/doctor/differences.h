// What differs between two descriptions.
#pragma once
#include <set>
#include <string>
#include <vector>

#include "doctor/device_description.h"
#include "formats/value.h"

namespace command {

/// One fact that is gone, new or another.
struct Difference {
    enum class Kind { gone, added, changed } kind;
    /// "class A", "-[A b]", "variable A b", "function f".
    std::string what;
    /// Of something changed: what it is, and what it was.
    std::string now, before;

    std::string in_words() const;
};

/// Where the one description differs from the other, in the order classes, methods, variables,
/// functions, each by name. Compared is what both describe: classes that both describe, members that neither
/// leaves unrecorded, types where both have them. Only of the watched classes and functions does it say that
/// they are gone or new.
std::vector<Difference> differences(const DeviceDescription& now, const DeviceDescription& before,
                                    const std::set<std::string>& watched);

}  // namespace command
