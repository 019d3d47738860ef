#include "pane/model/files.h"

#include "pane/texts.h"

namespace pane {
namespace {

// Foundation's numbers of its errors.
constexpr NSInteger no_such_file_to_write = 4, no_such_file_to_read = 260;

}  // namespace

id read_property_list(NSString* path, NSError** error) {
    NSError* reason = nullptr;
    auto* attributes = NSFileManager::defaultManager()->attributesOfItemAtPath(path, &reason);
    if (!attributes) {
        if (error) *error = reason;
        return nullptr;
    }
    if (is_folder(path)) return fail(error, text<"This is a folder.">());
    if (attributes->send<"fileSize", uint64_t>() > largest_file)
        return fail(error, text<"The file is too large for a theme.">());
    NSData* bytes = NSData::dataWithContentsOfFile(path, 0, error);
    if (!bytes) return nullptr;
    id list = NSPropertyListSerialization::propertyListWithData(bytes, NSPropertyListSerialization::immutable,
                                                                nullptr, nullptr);
    return list ? list : fail(error, text<"The file is not a property list.">());
}

bool write_property_list(id list, NSString* path, NSError** error) {
    NSData* bytes = NSPropertyListSerialization::dataWithPropertyList(
        list, NSPropertyListSerialization::xml_format, 0, error);
    return bytes && bytes->writeToFile(path, NSData::atomically, error);
}

bool make_folder(NSString* path, NSError** error) {
    return NSFileManager::defaultManager()->createDirectory(path, true, nullptr, error);
}

bool is_absence(NSError* error) {
    const NSInteger code = error ? error->code() : 0;
    return error && error->domain()->isEqualToString("NSCocoaErrorDomain"_ns) &&
           (code == no_such_file_to_read || code == no_such_file_to_write);
}

bool is_folder(NSString* path) {
    bool folder = false;
    return NSFileManager::defaultManager()->fileExistsAtPath(path, &folder) && folder;
}

}  // namespace pane
