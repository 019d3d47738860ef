// The phone that the settings pane runs on: the packages' files, and the user's from a folder and back to it.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "cli/workshop.h"

namespace command {

/// The settings pane that is put on the phones: the image that was named or, without a name, the one beside
/// the command.
std::filesystem::path pane_image(const std::string& named);

/// Lays out what the packages install. Without any, those that the command was built with. The pane's image
/// is the one that is given, which this machine's processor can run. Throws Unusable.
void lay_out(const Workshop& workshop, const std::vector<std::string>& packages,
             const std::filesystem::path& image);

/// What the pane reads and writes of the user's: themes, preferences, photos. Throws Unusable.
void lend_device(const Workshop& workshop, const std::string& device);
/// Themes and preferences back to where they came from; whatever has not changed is not touched.
void take_back_device(const Workshop& workshop, const std::string& device);
/// Puts a picture into the phone's photo library, where the photo picker lists it under its name.
void add_photo(const Workshop& workshop, const std::string& file);

/// "on, Peach.plist", "off", "no file".
std::string preferences_in_words(const Workshop& workshop);
/// The files of the user's themes, sorted.
std::vector<std::string> themes_of_user(const Workshop& workshop);

}  // namespace command
