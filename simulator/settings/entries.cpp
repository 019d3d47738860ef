// The rows that packages add as a loader of 2013 reads them, by its public source.
#include "settings/entries.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>

#include "foundation/text.h"
#include "objc/string.h"
#include "phone/device.h"
#include "platform/services.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

std::string text(NSString* string) { return utf8_of(string).value_or(""); }

NSString* folder() { return "/Library/PreferenceLoader/Preferences"_ns; }

struct KnownVersion {
    int major, minor;
    double core_foundation;
};
constexpr KnownVersion known_versions[] = {
    {11, 4, 1452.23}, {12, 0, 1556.00}, {12, 1, 1560.10}, {12, 2, 1570.15},
    {12, 3, 1575.13}, {12, 4, 1575.17}, {12, 5, 1575.23}, {13, 0, 1665.15},
};

/// Lower bound, and upper bound unless there is none; as float, like the loader's.
bool is_within(NSArray* bounds, float version) {
    if (!bounds || bounds->count() == 0) return true;
    const auto bound = [&](NSUInteger i) {
        return bounds->objectAtIndex(i)
                   ? static_cast<NSObject*>(bounds->objectAtIndex(i))->send<"floatValue", float>()
                   : 0;
    };
    if (version < bound(0)) return false;
    return bounds->count() < 2 || version < bound(1);
}

bool is_for_this_system(NSDictionary* file, NSDictionary* entry) {
    const auto version = static_cast<float>(core_foundation_version(device().system_version));
    NSDictionary* filters[] = {as<NSDictionary>(file->objectForKey("filter"_ns)),
                               as<NSDictionary>(file->objectForKey("pl_filter"_ns)),
                               as<NSDictionary>(entry->objectForKey("pl_filter"_ns))};
    return std::all_of(std::begin(filters), std::end(filters), [&](NSDictionary* filter) {
        return is_within(as<NSArray>(filter->objectForKey("CoreFoundationVersion"_ns)), version);
    });
}

bool is_folder(const std::string& path) {
    bool found = false;
    return NSFileManager::defaultManager()->fileExistsAtPath(string_of(path), &found) && found;
}

std::optional<std::string> bundle_of(NSDictionary* entry) {
    std::vector<std::string> places;
    if (auto* own = as<NSString>(entry->objectForKey("bundlePath"_ns))) places.push_back(text(own));
    if (auto* name = as<NSString>(entry->objectForKey("bundle"_ns)))
        for (const char* parent : {"/Library/PreferenceBundles/", "/System/Library/PreferenceBundles/"})
            places.push_back(parent + text(name) + ".bundle");
    for (const std::string& place : places)
        if (is_folder(place)) return place;
    return std::nullopt;
}

strong<PSSpecifier> specifier_of(const SettingsEntry& made, NSDictionary* entry) {
    constexpr NSInteger link_cell = 1;
    const strong<PSSpecifier> specifier =
        PSSpecifier::class_send<"preferenceSpecifierNamed:target:set:get:detail:cell:edit:", PSSpecifier*>(
            string_of(made.label), id{}, SEL{}, SEL{}, Class{}, link_cell, Class{});
    NSArray* keys = entry->allKeys();
    for (NSUInteger i = 0; i < keys->count(); ++i) {
        auto* key = static_cast<NSString*>(keys->objectAtIndex(i));
        specifier->setProperty(entry->objectForKey(key), key);
    }
    specifier->setProperty(string_of(made.bundle), "lazy-bundle"_ns);
    return specifier;
}

/// Nothing for a file that asks for no row, or for one that this phone cannot show.
std::optional<SettingsEntry> read_entry(NSString* path) {
    auto* file = NSDictionary::class_send<"dictionaryWithContentsOfFile:", NSDictionary*>(path);
    auto* entry = as<NSDictionary>(file->objectForKey("entry"_ns));
    if (!entry || !is_for_this_system(file, entry)) return std::nullopt;
    SettingsEntry made;
    auto* label = as<NSString>(entry->objectForKey("label"_ns));
    made.label = text(label ? label : path->lastPathComponent()->stringByDeletingPathExtension());
    if (auto* cell = as<NSString>(entry->objectForKey("cell"_ns)); text(cell) != "PSLinkCell") {
        std::fprintf(stderr, "Settings: %s is left out: its cell is \"%s\"; the model has PSLinkCell alone\n",
                     text(path).c_str(), text(cell).c_str());
        return std::nullopt;
    }
    auto bundle = bundle_of(entry);
    if (!bundle) {
        std::fprintf(stderr, "Settings: %s is left out: its bundle \"%s\" is nowhere\n", text(path).c_str(),
                     text(as<NSString>(entry->objectForKey("bundle"_ns))).c_str());
        return std::nullopt;
    }
    made.bundle = *bundle;
    made.detail = text(as<NSString>(entry->objectForKey("detail"_ns)));
    made.icon = text(as<NSString>(entry->objectForKey("icon"_ns)));
    made.specifier = specifier_of(made, entry);
    return made;
}

void read_folder(NSString* path, std::vector<SettingsEntry>& entries) {
    NSArray* names = NSFileManager::defaultManager()
                         ->contentsOfDirectoryAtPath(path, nullptr)
                         ->sortedArrayUsingSelector(objc::selector<"compare:">());
    for (NSUInteger i = 0; i < names->count(); ++i) {
        auto* name = static_cast<NSString*>(names->objectAtIndex(i));
        NSString* inside = path->stringByAppendingPathComponent(name);
        if (is_folder(text(inside)))
            read_folder(inside, entries);
        else if (name->hasSuffix(".plist"_ns))
            if (auto entry = read_entry(inside)) entries.push_back(std::move(*entry));
    }
}

}  // namespace

double core_foundation_version(const std::string& system_version) {
    const size_t dot = system_version.find('.');
    const int major = std::stoi(system_version);
    const int minor = dot == std::string::npos ? 0 : std::stoi(system_version.substr(dot + 1));
    double version = known_versions[0].core_foundation;
    for (const KnownVersion& known : known_versions)
        if (std::pair(known.major, known.minor) <= std::pair(major, minor)) version = known.core_foundation;
    return version;
}

std::vector<SettingsEntry> read_settings_entries() {
    std::vector<SettingsEntry> entries;
    read_folder(folder(), entries);
    std::sort(entries.begin(), entries.end(), [](const SettingsEntry& a, const SettingsEntry& b) {
        return string_of(a.label)->localizedCaseInsensitiveCompare(string_of(b.label)) < 0;
    });
    return entries;
}

}  // namespace sim
