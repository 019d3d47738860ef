// What the library reads when a process starts: see the header.
#include "pane/model/preferences.h"

#include "pane/model/files.h"
#include "pane/texts.h"

namespace pane {
namespace {

NSString* path() { return "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist"_ns; }

}  // namespace

Preferences read_preferences() {
    auto* content = as<NSDictionary>(read_property_list(path(), nullptr));
    if (!content) return {};
    // Whatever the library takes for a switch: files made by hand have texts there.
    auto* on = static_cast<NSObject*>(content->objectForKey("_Enabled"_ns));
    const bool is_on =
        on && on->respondsToSelector(objc::selector<"boolValue">()) && on->send<"boolValue", bool>();
    auto* chosen = as<NSString>(content->objectForKey("_Config"_ns));
    return {is_on, chosen && chosen->length() > 0 ? chosen : nullptr};
}

bool write_preferences(const Preferences& preferences, NSError** error) {
    NSError* reason = nullptr;
    NSData* bytes = NSData::dataWithContentsOfFile(path(), 0, &reason);
    if (!bytes && !is_absence(reason)) {
        if (error) *error = reason;
        return false;
    }
    auto* content = as<NSDictionary>(read_property_list(path(), nullptr));
    auto changed = content ? content->mutableCopy() : NSMutableDictionary::alloc()->initWithCapacity(2);
    changed->setObject(NSNumber::numberWithBool(preferences.is_on), "_Enabled"_ns);
    changed->setObject(preferences.chosen ? preferences.chosen.get() : ""_ns, "_Config"_ns);
    return write_property_list(changed, path(), error);
}

}  // namespace pane
