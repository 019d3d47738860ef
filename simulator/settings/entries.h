// The rows that packages add to Settings: files in a folder of the phone.
#pragma once
#include <string>
#include <vector>

#include "platform/preferences.h"

namespace sim {

/// A row that an entry file asks for.
struct SettingsEntry {
    std::string label;
    /// The folder of the bundle on the device.
    std::string bundle;
    /// The class of its page; empty for the bundle's principal class.
    std::string detail;
    std::string icon;
    objc::strong<PSSpecifier> specifier;
};

/// Those of /Library/PreferenceLoader/Preferences and the folders in it that this system and this phone can
/// show, by label. What is left out for lack of a bundle is said on stderr, in a line each.
std::vector<SettingsEntry> read_settings_entries();

/// The number by which entries are filtered, of a system's version: 1575.17 of 12.4. The nearest older one
/// that is known.
double core_foundation_version(const std::string& system_version);

}  // namespace sim
