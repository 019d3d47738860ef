// NSFileManager: the operations that are in use, on files inside the root folder, with the device's errors.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <vector>

#include "foundation/cocoa_error.h"
#include "foundation/corrections.h"
#include "foundation/file_contents.h"
#include "foundation/paths.h"
#include "foundation/text.h"
#include "phone/host_failures.h"
#include "runtime/method_replacement.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

namespace fs = std::filesystem;

void note(NSString* path, int posix_error) {
    if (const auto device_path = utf8_of(path)) note_host_failure(*device_path, posix_error);
}

bool failed_to_write(NSError** error, NSString* path, int posix_error) {
    note(path, posix_error);
    return fail(error, [&] { return file_error(write_error(posix_error), path, posix_error); });
}

bool failed_to_read(NSError** error, NSString* path, int posix_error) {
    note(path, posix_error);
    return fail(error, [&] { return file_error(read_error(posix_error), path, posix_error); });
}

/// Why there is not even a link at the path that was just looked up, as an errno value; 0 if there is
/// something.
int absence(const std::optional<std::string>& host) {
    struct stat status;
    if (!host) return errno;
    return lstat(host->c_str(), &status) == 0 ? 0 : errno;
}

/// Of the attributes that a new file can be given, the one that is modelled.
std::optional<fs::perms> permissions_of(NSDictionary* attributes) {
    using namespace objc::literals;
    const NSUInteger count = attributes ? attributes->send<"count", NSUInteger>() : 0;
    if (!count) return std::nullopt;
    id permissions = attributes->objectForKey("NSFilePosixPermissions"_ns);
    if (!permissions || count > 1)
        not_modelled("NSFileManager", "create…", "attributes other than permissions are given");
    return fs::perms(objc::send<"unsignedIntValue", unsigned>(permissions)) & fs::perms::mask;
}

/// The links along both paths and at the end of the target's are followed, those at the end of the source's
/// kept.
struct Journey {
    std::optional<std::string> from, to;
    /// What forbids it, as an errno value; 0 if nothing does.
    int obstacle = 0;

    Journey(NSString* source, NSString* destination) : from(host_path_of(source, LastLink::keep)) {
        obstacle = absence(from);
        if (obstacle) return;
        to = host_path_of(destination, LastLink::keep);
        const int absent = absence(to);
        obstacle = !to ? absent : absent ? 0 : EEXIST;
    }
};

constinit IMP previous_attributes = nullptr;

struct Manager : NSFileManager {
    bool fileExists(NSString* path) { return fileExistsIsDirectory(path, nullptr); }

    bool fileExistsIsDirectory(NSString* path, bool* is_directory) {
        const auto device_path = utf8_of(path);
        const int found = device_path ? open_file(*device_path, O_PATH | O_CLOEXEC) : -1;
        if (found < 0) return false;
        struct stat status;
        const int failure = fstat(found, &status) == 0 ? 0 : errno;
        close(found);
        note_host_failure(*device_path, failure);
        if (failure) return false;
        if (is_directory) *is_directory = S_ISDIR(status.st_mode);
        return true;
    }

    bool removeItem(NSString* path, NSError** error) {
        const auto host = host_path_of(path, LastLink::keep);
        if (const int missing = absence(host)) return failed_to_write(error, path, missing);
        if (host == host_path("/")) return failed_to_write(error, path, EPERM);
        std::error_code failure;
        fs::remove_all(*host, failure);
        return !failure || failed_to_write(error, path, failure.value());
    }

    bool moveItem(NSString* source, NSString* destination, NSError** error) {
        const Journey journey(source, destination);
        if (const int obstacle = journey.obstacle) return failed_to_write(error, source, obstacle);
        std::error_code failure;
        fs::rename(*journey.from, *journey.to, failure);
        return !failure || failed_to_write(error, source, failure.value());
    }

    bool copyItem(NSString* source, NSString* destination, NSError** error) {
        const Journey journey(source, destination);
        if (const int obstacle = journey.obstacle)
            return obstacle == EEXIST ? failed_to_write(error, source, obstacle)
                                      : failed_to_read(error, source, obstacle);
        std::error_code failure;
        fs::copy(*journey.from, *journey.to, fs::copy_options::recursive | fs::copy_options::copy_symlinks,
                 failure);
        return !failure || failed_to_write(error, source, failure.value());
    }

    bool createDirectory(NSString* path, bool with_intermediates, NSDictionary* attributes, NSError** error) {
        const auto permissions = permissions_of(attributes);
        const auto host = host_path_of(path);
        if (!host) return failed_to_write(error, path, errno);
        std::error_code failure;
        if (with_intermediates) {
            const bool is_there = !absence(host), is_folder = is_there && fs::is_directory(*host, failure);
            if (is_there && !failure && !is_folder) return failed_to_write(error, path, EEXIST);
            if (!failure) fs::create_directories(*host, failure);
        } else if (mkdir(host->c_str(), 0755) != 0) {
            failure.assign(errno, std::generic_category());
        }
        if (!failure && permissions) fs::permissions(*host, *permissions, failure);
        return !failure || failed_to_write(error, path, failure.value());
    }

    bool createFile(NSString* path, NSData* contents, NSDictionary* attributes) {
        const auto permissions = permissions_of(attributes);
        const std::string_view bytes(contents ? static_cast<const char*>(contents->bytes()) : "",
                                     contents ? contents->length() : 0);
        const auto host = host_path_of(path);
        if (!host || write_file(path, bytes, Writing::atomic) != 0) return false;
        std::error_code failure;
        if (permissions) fs::permissions(*host, *permissions, failure);
        return !failure;
    }

    NSData* contents(NSString* path) { return NSData::dataWithContentsOfFile(path); }

    /// Sorted, so that nothing depends on the host.
    NSArray* contentsOfDirectory(NSString* path, NSError** error) {
        const auto host = host_path_of(path);
        std::error_code failure(errno, std::generic_category());
        fs::directory_iterator entries;
        if (host) entries = fs::directory_iterator(*host, failure);
        std::vector<std::string> names;
        // Each step reads the disk, and may fail.
        for (; !failure && entries != fs::directory_iterator(); entries.increment(failure))
            names.push_back(entries->path().filename().string());
        if (failure) {
            failed_to_read(error, path, failure.value());
            return nullptr;
        }
        std::sort(names.begin(), names.end());
        auto* found = NSMutableArray::arrayWithCapacity(names.size());
        for (const std::string& name : names)
            if (NSString* text = string_of(name)) found->addObject(text);
        return found;
    }

    bool createSymbolicLink(NSString* path, NSString* destination, NSError** error) {
        const auto host = host_path_of(path, LastLink::keep);
        const int posix_error = errno;
        const auto target = utf8_of(destination);
        if (!host || !target) return failed_to_write(error, path, host ? ENOENT : posix_error);
        return symlink(target->c_str(), host->c_str()) == 0 || failed_to_write(error, path, errno);
    }

    NSString* destinationOfSymbolicLink(NSString* path, NSError** error) {
        const auto host = host_path_of(path, LastLink::keep);
        std::error_code failure(errno, std::generic_category());
        fs::path target;
        if (host) target = fs::read_symlink(*host, failure);
        if (failure) failed_to_read(error, path, failure.value());
        return failure ? nullptr : string_of(target.string());
    }

    NSDictionary* attributesOfItem(NSString* path, NSError** error) {
        const auto host = host_path_of(path, LastLink::keep);
        if (const int missing = absence(host)) {
            failed_to_read(error, path, missing);
            return nullptr;
        }
        const KeepLinks keep;
        errno = 0;
        auto* found = objc::Previous<NSDictionary*(NSString*, NSError**)>(
            previous_attributes, this, objc::selector<"attributesOfItemAtPath:error:">())(path, error);
        if (!found) note(path, errno ? errno : EIO);  // something is there
        return found;
    }
};

}  // namespace

void correct_file_manager() {
    Class manager = NSFileManager::class_object();
    redefine<"fileExistsAtPath:", &Manager::fileExists>(manager);
    redefine<"fileExistsAtPath:isDirectory:", &Manager::fileExistsIsDirectory>(manager);
    redefine<"removeItemAtPath:error:", &Manager::removeItem>(manager);
    redefine<"moveItemAtPath:toPath:error:", &Manager::moveItem>(manager);
    redefine<"copyItemAtPath:toPath:error:", &Manager::copyItem>(manager);
    redefine<"createDirectoryAtPath:withIntermediateDirectories:attributes:error:",
             &Manager::createDirectory>(manager);
    redefine<"createFileAtPath:contents:attributes:", &Manager::createFile>(manager);
    redefine<"contentsAtPath:", &Manager::contents>(manager);
    redefine<"contentsOfDirectoryAtPath:error:", &Manager::contentsOfDirectory>(manager);
    redefine<"createSymbolicLinkAtPath:withDestinationPath:error:", &Manager::createSymbolicLink>(manager);
    redefine<"destinationOfSymbolicLinkAtPath:error:", &Manager::destinationOfSymbolicLink>(manager);
    previous_attributes = redefine<"attributesOfItemAtPath:error:", &Manager::attributesOfItem>(manager);
}

}  // namespace sim
