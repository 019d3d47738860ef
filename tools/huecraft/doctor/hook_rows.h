// The hook table as the library installs it, and what the simulated phone has of it.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "cli/workshop.h"
#include "doctor/device_description.h"

namespace command {

struct HookRow {
    /// "-[Class selector]", "+[Class selector]"; the name of a function.
    std::string target;
    using How = compatibility::How;
    How how;
    /// Of the replacement, without offsets; of a function nothing.
    std::string types;
};

/// Boots the phone as a home screen under a theme, and loads the library, which names the rows in the order
/// of installation. Once per process.
std::vector<HookRow> installed_hook_rows(const Workshop& workshop);

/// All classes of the simulated phone, without the library's. Instead of the above, as the next.
std::map<std::string, ClassRecord> simulated_classes(const Workshop& workshop);

/// The description of the simulated phone: the classes that the hooks are about, what they derive from, and
/// what they have. Instead of the above, in a process of its own.
std::string simulated_description(const Workshop& workshop);

}  // namespace command
