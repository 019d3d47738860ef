// Which theme a phone wears.
#pragma once
#include <string>

namespace tools {

/// Writes the preference file that switches the library on with the theme file of that name; with none, off.
/// The library reads it when it is loaded.
void choose_theme(const std::string& file_name);

}  // namespace tools
