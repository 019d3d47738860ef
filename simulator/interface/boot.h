// Switching the simulated phone on.
#pragma once
#include <set>
#include <string>
#include <vector>

#include "foundation/process_arguments.h"
#include "phone/device.h"
#include "runtime/injection/hooks.h"

namespace sim {

struct BootOptions {
    /// A folder of the host.
    std::string root;
    /// A path of the device.
    std::string executable = "/Applications/Notes.app/Notes";
    ClaimedArguments arguments = ClaimedArguments::executable;
    Device device;
    /// Names of classes that the model has and this phone has not.
    std::set<std::string, std::less<>> left_out_classes;
    HookLimits hook_limits;
    /// Of an arm64e process: its runtime answers without signatures.
    bool unsigned_answers = false;
    /// Of the device, without links, by their paths without a slash at the end.
    std::vector<std::string> denied_folders;
};

/// Does in advance what no option decides, and registers all classes but the home screen's and those kept
/// back, with their subclasses. The others can then no longer be left out. Once per process; throws a
/// Refusal.
void prepare(const std::set<std::string, std::less<>>& kept_back);

/// Once per process. Throws a Refusal before anything has been done, if the options cannot be met.
void boot(const BootOptions&);

bool is_booted();

}  // namespace sim
