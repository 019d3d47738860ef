#include "hooks/keyboard_cache.h"

namespace hooks {

using namespace objc::literals;

void remove_keyboard_cache(NSObject*, id) {
    NSString* cache = "/var/mobile/Library/Caches/com.apple.keyboards"_ns;
    NSFileManager* files = NSFileManager::defaultManager();
    bool is_directory = false;
    if (!files->fileExistsAtPath(cache, &is_directory) || !is_directory) return;
    NSError* ignored = nullptr;
    files->removeItemAtPath(cache, &ignored);
}

}  // namespace hooks
