// The device's file system: a folder of the host plays its root.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// Makes the folder the root, by its real path. Called once, at boot.
void mount_root(const std::string& host_folder);

/// Folders of the device that the process's sandbox denies it, with everything in them: EPERM.
void deny_folders(std::vector<std::string> device_folders);

/// Whether a symbolic link at the very end of a path is followed. Links on the way always are.
enum class LastLink { follow, keep };

/// Where a path of the device lies on the host: inside the root folder, whatever "..", absolute links and
/// chains of links say, as if the root folder were "/". A relative path counts from there too. What lies at
/// the end need not exist, nor the folders before it. Nothing for a path that cannot be: an empty one, one
/// with a zero byte, one whose links never end, or one that goes back ("..") from where nothing is. Before
/// boot every path is nothing. errno then says why: ENOENT, or EPERM of what the sandbox denies.
///
/// Files of the device are reached through this function and open_file only.
std::optional<std::string> host_path(std::string_view device_path, LastLink last = LastLink::follow);

/// The same place as a path of the device, without links and "..".
std::optional<std::string> resolved_device_path(std::string_view device_path,
                                                LastLink last = LastLink::follow);

/// Opens what lies at the path, links followed, without making it: a descriptor of the host, or -1 and errno.
int open_file(std::string_view device_path, int flags);

}  // namespace sim
