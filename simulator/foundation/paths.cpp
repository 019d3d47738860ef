// Paths of Foundation are paths of the device: the one place where Foundation turns a path into bytes for the
// host answers a path inside the root folder, so that whatever is built on it stays inside.
#include "foundation/paths.h"

#include "foundation/corrections.h"
#include "foundation/file_contents.h"
#include "foundation/text.h"
#include "runtime/method_replacement.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

constinit thread_local LastLink last_link = LastLink::follow;

constinit IMP previous_next_object = nullptr;

struct PathManager : NSFileManager {
    // What has no place on the host is given the empty path, which no operation finds anything at.
    const char* fileSystemRepresentation(NSString* path) {
        const std::string host = host_path_of(path, last_link).value_or("");
        // Autoreleased, as the caller expects; the root folder's name may be in any encoding.
        return static_cast<const char*>(
            NSData::class_send<"dataWithBytes:length:", NSData*>(static_cast<const void*>(host.c_str()),
                                                                 NSUInteger{host.size() + 1})
                ->bytes());
    }

    NSString* currentDirectoryPath() { return string_of("/"); }
    bool changeCurrentDirectoryPath(NSString*) {
        not_modelled("NSFileManager", "changeCurrentDirectoryPath:", "the current folder is always the root");
    }
};

struct Path : NSString {
    NSString* resolved() {
        const auto path = utf8_of(this);
        const auto device_path = path && path->starts_with('/') ? resolved_device_path(*path) : std::nullopt;
        if (!device_path) return this;
        if (device_path->size() > 1 && device_path->ends_with('/'))
            return string_of(device_path->substr(0, device_path->size() - 1));
        return string_of(*device_path);
    }
};

/// An enumerator lists links and does not descend into them.
struct Enumerator : NSObject {
    id nextObject() {
        const KeepLinks keep;
        return objc::Previous<id()>(previous_next_object, this, objc::selector<"nextObject">())();
    }
};

}  // namespace

KeepLinks::KeepLinks() : before_(std::exchange(last_link, LastLink::keep)) {}
KeepLinks::~KeepLinks() { last_link = before_; }

void correct_paths() {
    Class manager = NSFileManager::class_object();
    redefine<"fileSystemRepresentationWithPath:", &PathManager::fileSystemRepresentation>(manager);
    redefine<"currentDirectoryPath", &PathManager::currentDirectoryPath>(manager);
    redefine<"changeCurrentDirectoryPath:", &PathManager::changeCurrentDirectoryPath>(manager);
    redefine<"stringByResolvingSymlinksInPath", &Path::resolved>(NSString::class_object());
    previous_next_object =
        redefine<"nextObject", &Enumerator::nextObject>(objc_getClass("NSDirectoryEnumerator"));
}

}  // namespace sim
