// NSError objects of the device's Foundation, in NSCocoaErrorDomain.
#pragma once
#include <string>

#include "platform/foundation.h"

namespace sim {

/// The codes, with the device's numbers.
enum class CocoaError : NSInteger {
    no_such_file = 4,
    read_unknown = 256,
    read_no_permission = 257,
    read_invalid_file_name = 258,
    read_no_such_file = 260,
    read_unsupported_scheme = 262,
    write_unknown = 512,
    write_no_permission = 513,
    write_invalid_file_name = 514,
    write_file_exists = 516,
    write_unsupported_scheme = 518,
    write_out_of_space = 640,
    write_volume_read_only = 642,
    property_list_read_corrupt = 3840,
    property_list_write = 3851,
};

/// What the device makes of an errno value when reading, and when writing, creating or removing.
CocoaError read_error(int posix_error);
CocoaError write_error(int posix_error);

/// An error about a file, which may be nil; `posix_error` is the underlying one, 0 for none.
NSError* file_error(CocoaError code, NSString* path, int posix_error);

/// An error with a description for programmers.
NSError* described_error(CocoaError code, const std::string& description);

/// Hands the error to a caller that asked for one. False, so that a method can fail in one line.
template <class Make>
bool fail(NSError** error, Make make) {
    if (error) *error = make();
    return false;
}

}  // namespace sim
