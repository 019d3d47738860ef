// Where the work is done: a simulated phone in a child process, with a folder that plays its file system.
#pragma once
#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <string>

#include "cli/status.h"

namespace command {

/// The library that is put on the phones: the build that was named or, without a name, the one beside the
/// command as it was built, or under its installation.
std::filesystem::path library(const std::string& named = {});

/// What lies beside the library: the pictures of the settings pane, the themes.
std::filesystem::path data_folder();

/// The folder of a phone, which lasts as long as the command runs.
struct Workshop {
    std::filesystem::path device;

    /// Puts a theme's file into the folder of themes, in place of one of that name.
    void place_theme(const std::string& name, const std::string& contents) const;
    /// Gives the phone the folders that the library expects.
    void furnish() const;
    /// Gives the phone the pictures of the settings pane.
    void install_settings_pictures() const;
    /// Where a theme of the phone lies on this machine.
    std::filesystem::path theme(const std::string& name) const;
    /// A host path for a file that is needed for a while.
    std::filesystem::path scratch(const std::string& name) const { return device / "tmp" / name; }
};

/// Runs the work in a child process. A phone that stops takes only its own process along, and is complained
/// of.
Status in_workshop(const std::function<Status(const Workshop&)>& work);

/// Runs the work in a child of this process, and waits for it.
Status in_child(const std::function<Status()>& work);

/// The same in two steps, for several at once. A child that was started this way ends with its parent.
pid_t start_child(const std::function<Status()>& work);
struct ChildEnd {
    Status status;
    /// How it stopped before its end; empty for a child that came to it, or was asked to end.
    std::string stopped;
};
ChildEnd await_child(pid_t child);

}  // namespace command
