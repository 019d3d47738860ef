// Saving a theme with the library's own class.
#pragma once
#include <string>

#include "cli/options.h"
#include "cli/workshop.h"
#include "formats/property_list.h"
#include "model/HuecraftConfig.h"

namespace command {

/// Where a theme goes, and under which name.
struct Destination {
    std::string name;
    /// Empty for the name's own file, "-" for standard output.
    std::string output;
    /// The library writes XML; the old form is beyond everyone but `convert`.
    Form form = Form::xml;
    /// Replaces a file that exists.
    bool force = false;
};

/// Adds where a new theme goes.
void add_output(Subcommand subcommand, Destination& destination);

/// A theme's name as a string of the system's. Throws Unusable for one that is not UTF-8, or has characters
/// that cannot be printed.
NSString* checked_name(const std::string& name);

/// Throws Unusable for a name that cannot be one. Answers the file's name.
std::string checked_file(HuecraftConfig* config, const Destination& destination);

/// Names and saves the theme. Throws Unusable when that cannot be.
void save_theme(HuecraftConfig* config, const Destination& destination, const std::string& file,
                const Workshop& workshop);

}  // namespace command
