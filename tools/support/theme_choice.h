// Which theme a phone wears.
#pragma once
#include <string>

namespace tools {

/// Writes the preference file that switches the library on with the theme file of that name; with none, off.
/// The library reads it when it is loaded.
void choose_theme(const std::string& file_name);

/// Throws a Failure when the library, which has been loaded, found no theme. It says nothing itself when it
/// cannot read its files, and leaves the keyboard as it is.
void require_theme();

}  // namespace tools
