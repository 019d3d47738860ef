#include "settings/eclipse.h"

#include "model/property_list_file.h"

namespace settings {

using namespace objc::literals;

bool is_eclipse_enabled() {
    NSString* library = "/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib"_ns;
    NSString* preferences = "/var/mobile/Library/Preferences/com.hvelden.eclipse.plist"_ns;
    NSFileManager* files = NSFileManager::defaultManager();
    if (!files->fileExistsAtPath(library) || !files->fileExistsAtPath(preferences)) return false;
    NSData* bytes = NSData::dataWithContentsOfFile(preferences);
    if (!bytes) return false;
    auto* values = as<NSDictionary>(read_property_list(bytes));
    return bool_value(values->objectForKey("enabled"_ns)) &&
           bool_value(values->objectForKey("EnabledApps-com.apple.Preferences"_ns));
}

}  // namespace settings
