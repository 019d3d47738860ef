// Packages of themes: files of the package's own, which scripts copy to where the library looks for them.
//
// An installer replaces what lies at a package's paths, or asks about it in a dialogue that no phone shows.
// So the users' folder is none of them. What is placed there is noted; what is not as it was placed is the
// user's.
#pragma once
#include <string>
#include <vector>

#include "themes/parcel.h"

namespace command {

/// Each package has a folder of its own in this one.
inline constexpr const char* packaged_themes = "/Library/Huecraft/Themes";

struct ThemePackage {
    std::string id, version, name, maintainer, description;
};

// What is wrong with a field by the rules of packages; empty for a good one.
std::string fault_of_id(const std::string& id);
std::string fault_of_version(const std::string& version);
/// Of a name or a person: one line that is not empty.
std::string fault_of_line(const std::string& text);

/// The description for the installer.
std::string control_of(const ThemePackage& package, size_t kilobytes);

/// Places the themes that are missing.
std::string script_after_installing(const std::string& id);
/// Takes the placed themes away that nobody has changed, before a removal and before an update.
std::string script_before_removing(const std::string& id);

/// The package's bytes, the same for the same themes in the same order wherever it runs. The time inside is
/// that of this version of the command, or SOURCE_DATE_EPOCH.
std::string packed(const ThemePackage& package, const std::vector<ParcelledTheme>& themes);

}  // namespace command
