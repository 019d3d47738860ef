// Whole files of the device, read and written.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/raw_bytes.h"
#include "phone/file_system.h"
#include "platform/foundation.h"

namespace sim {

/// The path of a file URL; nil for another, and for nil.
NSString* path_of(NSURL* url);

/// Where a path of the device lies on the host; nothing, and errno, for nil and for what is not a path.
std::optional<std::string> host_path_of(NSString* device_path, LastLink last = LastLink::follow);

/// Reads a file of the device. 0, or what went wrong as an errno value; for a nil path ENOENT.
int read_file(NSString* device_path, std::string& contents);
int read_file(NSString* device_path, RawBytes& contents);
int read_file(const std::string& device_path, std::vector<uint8_t>& contents);

enum class Writing {
    in_place,
    atomic,    ///< to a file of another name, which takes the place at the end: all or nothing
    new_only,  ///< a file that exists is an error, EEXIST
};

/// Writes a file of the device. 0, or what went wrong as an errno value. Atomic writing leaves nothing behind
/// when it fails.
int write_file(NSString* device_path, std::string_view contents, Writing);

}  // namespace sim
