// What everything that plays a script is asked for, and the pictures that come of it.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "cli/options.h"
#include "formats/value.h"
#include "support/phone.h"

namespace command {

struct ScriptOptions {
    std::string script, output, library, width = "375";
    double scale = 0;
    bool save = false, force = false, json = false;

    /// As errors name it.
    std::string file() const { return script.empty() ? "the script" : script; }
    /// The script's own; without one the phone is waited for, and a picture is taken if there is a folder.
    std::string text(const std::string& picture) const;
    const tools::Screen& screen() const;

    /// Writes pictures into the folder, which is made where it is missing. Throws Unusable where one would
    /// replace one of the inputs or a file of another kind.
    void write(const std::vector<std::string>& pictures, const std::vector<std::string>& inputs,
               const std::function<std::string(const std::string&)>& contents) const;
    void print(const std::vector<std::string>& pictures) const;
    Json places_of(const std::vector<std::string>& pictures) const;
};

// A subcommand's own options stand between these.
void add_first_script_options(Subcommand subcommand, ScriptOptions& options);
void add_last_script_options(Subcommand subcommand, ScriptOptions& options);

}  // namespace command
