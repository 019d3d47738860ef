#include "pane/model/preferences.h"

#include "pane/model/files.h"
#include "pane/texts.h"

namespace pane {
namespace {

NSString* path() { return "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist"_ns; }

/// The file is read once: what is said of it and what is written back are of the same bytes.
struct Reading {
    /// nil for a file that is missing, or none of ours.
    NSDictionary* content = nullptr;
    bool is_certain = true;
};
Reading read(NSError** error) {
    NSError* reason = nullptr;
    NSData* bytes = NSData::dataWithContentsOfFile(path(), 0, &reason);
    if (bytes)
        return {as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
            bytes, NSPropertyListSerialization::immutable, nullptr, nullptr))};
    if (is_absence(reason)) return {};
    if (error) *error = reason;
    return {nullptr, false};
}

Preferences preferences_in(NSDictionary* content) {
    if (!content) return {};
    // Whatever the library takes for a switch: files made by hand have texts there.
    auto* on = static_cast<NSObject*>(content->objectForKey("_Enabled"_ns));
    const bool is_on =
        on && on->respondsToSelector(objc::selector<"boolValue">()) && on->send<"boolValue", bool>();
    auto* chosen = as<NSString>(content->objectForKey("_Config"_ns));
    return {is_on, chosen && chosen->length() > 0 ? chosen : nullptr};
}

}  // namespace

Preferences read_preferences() { return preferences_in(read(nullptr).content); }

std::optional<Preferences> certain_preferences(NSError** error) {
    const Reading reading = read(error);
    if (!reading.is_certain) return std::nullopt;
    return preferences_in(reading.content);
}

bool write_preferences(const Preferences& preferences, NSError** error) {
    const auto [content, is_certain] = read(error);
    if (!is_certain) return false;
    auto changed = content ? content->mutableCopy() : NSMutableDictionary::alloc()->initWithCapacity(2);
    changed->setObject(NSNumber::numberWithBool(preferences.is_on), "_Enabled"_ns);
    changed->setObject(preferences.chosen ? preferences.chosen.get() : ""_ns, "_Config"_ns);
    return write_property_list(changed, path(), error);
}

}  // namespace pane
