// What is verified of a package, one thing after the other.
#pragma once
#include <string>
#include <vector>

#include "cli/workshop.h"
#include "package/package.h"

namespace command {

struct Check {
    std::string name;
    std::string found;                ///< in a few words, what was found to be right
    std::vector<std::string> faults;  ///< what was found and what was expected
};
using Checks = std::vector<Check>;

/// The package around the dylib or the executable: its parts, places, description, size, and the filter of a
/// dylib. Needs a phone, whose Foundation reads the filter.
Checks checks_of_package(const Package& package);

/// A package of themes. Needs a phone with the library, which loads them.
Checks checks_of_theme_package(const Package& package, const Workshop& workshop);

/// What is wrong with the parts that every package consists of.
std::vector<std::string> faults_of_frame(const Package& package);

/// A mode as it is written: "0644".
std::string octal(unsigned mode);

/// The dylib: what system it is for, what it takes and offers, its signature and size. For the A12: the same
/// of each of its two slices, and that they are one code.
Checks checks_of_dylib(const std::string& bytes, bool for_a12);

/// The same of the settings pane, and of huecraft-describe.
Checks checks_of_pane(const std::string& bytes, bool for_a12);
Checks checks_of_executable(const std::string& bytes);

}  // namespace command
