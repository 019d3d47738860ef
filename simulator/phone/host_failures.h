// Where the host failed to read or write a file of the device. Applications learn little of it, and go on
// as if there were no such file.
#pragma once
#include <string>
#include <string_view>

namespace sim {

/// Notes what went wrong at a path of the device, by its errno value, unless it can go wrong on a device
/// whose disk is sound: a file that is missing, say, or of another kind. Keeps errno.
void note_host_failure(std::string_view device_path, int error);

/// The first since this was last asked, "/path: Input/output error"; empty when there was none.
std::string take_host_failure();

}  // namespace sim
