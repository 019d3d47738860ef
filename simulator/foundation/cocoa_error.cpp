#include "foundation/cocoa_error.h"

#include <cerrno>

namespace sim {
namespace {

using namespace objc::literals;

NSError* error(CocoaError code, NSDictionary* user_info) {
    return NSError::errorWithDomain("NSCocoaErrorDomain"_ns, static_cast<NSInteger>(code), user_info);
}

}  // namespace

CocoaError read_error(int posix_error) {
    switch (posix_error) {
        case ENOENT:
        case ENOTDIR: return CocoaError::read_no_such_file;
        case EACCES:
        case EPERM: return CocoaError::read_no_permission;
        case ENAMETOOLONG: return CocoaError::read_invalid_file_name;
        default: return CocoaError::read_unknown;
    }
}

CocoaError write_error(int posix_error) {
    switch (posix_error) {
        case ENOENT:
        case ENOTDIR: return CocoaError::no_such_file;
        case EACCES:
        case EPERM: return CocoaError::write_no_permission;
        case EEXIST: return CocoaError::write_file_exists;
        case ENAMETOOLONG: return CocoaError::write_invalid_file_name;
        case ENOSPC:
        case EDQUOT: return CocoaError::write_out_of_space;
        case EROFS: return CocoaError::write_volume_read_only;
        default: return CocoaError::write_unknown;
    }
}

NSError* file_error(CocoaError code, NSString* path, int posix_error) {
    id keys[2], objects[2];
    NSUInteger count = 0;
    if (path) {
        keys[count] = "NSFilePath"_ns;
        objects[count++] = path;
    }
    if (posix_error) {
        keys[count] = "NSUnderlyingError"_ns;
        objects[count++] = NSError::errorWithDomain("NSPOSIXErrorDomain"_ns, posix_error, nullptr);
    }
    return error(code, NSDictionary::dictionaryWithObjects(objects, keys, count));
}

NSError* described_error(CocoaError code, const std::string& description) {
    const id keys[] = {"NSDebugDescription"_ns};
    const id objects[] = {NSString::stringWithUTF8String(description.c_str())};
    return error(code, NSDictionary::dictionaryWithObjects(objects, keys, 1));
}

}  // namespace sim
