// The errors of theme files.
#pragma once
#include "platform/foundation.h"

namespace config_error {

/// What an error says. The texts are the system's own; settings panes show them as they stand.
struct Texts {
    const char *description, *reason, *suggestion;
};

inline constexpr Texts is_folder{"File is actually a folder", "Cannot parse a folder",
                                 "Enter in the correct filename and make sure it is not a folder"};
inline constexpr Texts not_found{"File not found", "File was not found so could not parse",
                                 "Enter in the correct filename and make sure it is not a folder"};
inline constexpr Texts unreadable{"NSData could not read the file", "File could not be read",
                                  "Make sure the file exists and is readable"};
inline constexpr Texts not_a_dictionary{"Parsed object was not an NSDictionary",
                                        "Parsed object was not an NSDictionary",
                                        "Make sure the file exists and is readable"};
inline constexpr Texts name_taken{"File name already exists", "File name already exists",
                                  "Set a different configuration name"};
inline constexpr Texts no_name{"Configuration name not set", "Configuration name not set",
                               "Set configuration name"};

/// An error of the domain "HuecraftConfigDomain", code -1.
NSError* make(const Texts& texts);

}  // namespace config_error
