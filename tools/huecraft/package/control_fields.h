// The description that a package has for the installer.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "package/package.h"

namespace command {

struct ControlFields {
    std::map<std::string, std::string> values;
    std::vector<std::string> faults;  ///< no description, or a field that it has twice

    /// Empty for a field that is not there.
    std::string value(const std::string& name) const;
    /// In quotes, or "no such field".
    std::string found(const std::string& name) const;
};

ControlFields control_fields_of(const Package& package);

}  // namespace command
