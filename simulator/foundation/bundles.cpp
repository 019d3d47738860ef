// Bundles of the device. Foundation's own looks for GNUstep's layout and languages.
#include "foundation/bundles.h"

#include <algorithm>
#include <map>
#include <vector>

#include "foundation/text.h"
#include "objc/string.h"
#include "platform/services.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

std::string& user_language() {
    static auto* language = new std::string;
    return *language;
}

std::map<std::string, std::string, std::less<>>& paths_of_classes() {
    static auto* paths = new std::map<std::string, std::string, std::less<>>;
    return *paths;
}

bool is_folder(NSString* path) {
    bool folder = false;
    return NSFileManager::defaultManager()->fileExistsAtPath(path, &folder) && folder;
}

std::string text(NSString* string) { return utf8_of(string).value_or(""); }

/// The names of a folder's files, sorted.
std::vector<std::string> names_in(NSString* folder) {
    std::vector<std::string> names;
    NSArray* found = NSFileManager::defaultManager()->contentsOfDirectoryAtPath(folder, nullptr);
    for (NSUInteger i = 0; i < found->count(); ++i)
        names.push_back(text(static_cast<NSString*>(found->objectAtIndex(i))));
    std::sort(names.begin(), names.end());
    return names;
}

struct Bundle : NSBundle {
    static NSBundle* bundleWithPath(Class, NSString* path) { return bundle_at(text(path)); }
    static NSBundle* mainBundle(Class self) {
        auto* process = NSProcessInfo::processInfo();
        auto* executable = static_cast<NSString*>(
            process->arguments()->count() ? process->arguments()->objectAtIndex(0) : nullptr);
        NSBundle* found = bundle_at(text(executable->stringByDeletingLastPathComponent()));
        // A process without an application's folder has a bundle all the same.
        return found ? found : objc::send<"bundleWithPath:", NSBundle*>(reinterpret_cast<id>(self), "/"_ns);
    }
    static NSBundle* bundleForClass(Class self, Class of) {
        const auto found = paths_of_classes().find(std::string_view(class_getName(of)));
        return found == paths_of_classes().end() ? mainBundle(self) : bundle_at(found->second);
    }

    NSDictionary* infoDictionary() {
        NSString* file = bundlePath()->stringByAppendingPathComponent("Info.plist"_ns);
        auto* found = NSDictionary::class_send<"dictionaryWithContentsOfFile:", NSDictionary*>(file);
        return found ? found : NSDictionary::class_send<"dictionary", NSDictionary*>();
    }
    NSString* bundleIdentifier() {
        return as<NSString>(infoDictionary()->objectForKey("CFBundleIdentifier"_ns));
    }
    id objectForInfoDictionaryKey(NSString* key) { return infoDictionary()->objectForKey(key); }
    NSString* resourcePath() { return bundlePath(); }

    // ---- Languages ------------------------------------------------------------------------------

    NSArray* localizations() {
        NSMutableArray* found = NSMutableArray::arrayWithCapacity(8);
        for (const std::string& name : names_in(bundlePath()))
            if (name.ends_with(".lproj")) found->addObject(string_of(name.substr(0, name.size() - 6)));
        return found;
    }
    /// The user's language, with less and less of its tag; else the one that the bundle was written in.
    NSArray* preferredLocalizations() {
        NSArray* known = localizations();
        for (std::string tag = user_language();; tag.resize(tag.rfind('-'))) {
            NSString* wanted = string_of(tag);
            if (known->containsObject(wanted)) return NSArray::arrayWithObject(wanted);
            if (tag.find('-') == tag.npos) break;
        }
        for (NSString* wanted : {development_region(), "en"_ns, "Base"_ns})
            if (wanted && known->containsObject(wanted)) return NSArray::arrayWithObject(wanted);
        return known->count() ? NSArray::arrayWithObject(known->objectAtIndex(0)) : known;
    }
    NSString* developmentLocalization() { return development_region(); }

    // ---- Resources ------------------------------------------------------------------------------

    NSString* pathForResource(NSString* name, NSString* type) {
        return pathForResourceInDirectory(name, type, nullptr);
    }
    // What has no language comes first.
    NSString* pathForResourceInDirectory(NSString* name, NSString* type, NSString* folder) {
        if (!name->length()) return nullptr;
        NSString* file = type->length() ? name->stringByAppendingPathExtension(type) : name;
        for (NSString* place : places(folder)) {
            NSString* path = place->stringByAppendingPathComponent(file);
            if (NSFileManager::defaultManager()->fileExistsAtPath(path)) return path;
        }
        return nullptr;
    }
    NSArray* pathsForResources(NSString* type, NSString* folder) {
        NSMutableArray* found = NSMutableArray::arrayWithCapacity(8);
        const std::string ending = type->length() ? "." + text(type) : "";
        for (NSString* place : places(folder))
            for (const std::string& name : names_in(place))
                if (name.ends_with(ending) && !name.ends_with(".lproj"))
                    found->addObject(place->stringByAppendingPathComponent(string_of(name)));
        return found;
    }

    NSString* localizedString(NSString* key, NSString* value, NSString* table) {
        NSString* otherwise = value->length() ? value : key ? key : ""_ns;
        if (!key) return otherwise;
        NSString* found =
            as<NSString>(strings_of(table->length() ? table : "Localizable"_ns)->objectForKey(key));
        return found ? found : otherwise;
    }

  private:
    /// A table of texts is read once, and stays as long as the process. nil for one that is not there.
    NSDictionary* strings_of(NSString* table) {
        static auto* known = new std::map<std::string, strong<NSDictionary>>;
        const auto [place, is_new] = known->try_emplace(text(bundlePath()) + "/" + text(table));
        if (is_new)
            if (NSString* file = pathForResource(table, "strings"_ns))
                place->second = as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
                    NSData::dataWithContentsOfFile(file), NSPropertyListSerialization::immutable, nullptr,
                    nullptr));
        return place->second;
    }
    static NSBundle* bundle_at(const std::string& path) {
        static auto* known = new std::map<std::string, NSBundle*>;
        NSString* folder = string_of(path);
        if (path.empty() || !is_folder(folder)) return nullptr;
        NSBundle*& bundle = (*known)[path];
        if (!bundle) bundle = objc::make<"initWithPath:", NSBundle>(NSBundle::class_object(), folder).leak();
        return bundle;
    }
    NSString* development_region() {
        return as<NSString>(infoDictionary()->objectForKey("CFBundleDevelopmentRegion"_ns));
    }
    std::vector<NSString*> places(NSString* folder) {
        std::vector<NSString*> list{bundlePath()};
        NSArray* languages = preferredLocalizations();
        auto add = [&](NSString* language) {
            list.push_back(bundlePath()->stringByAppendingPathComponent(
                language->stringByAppendingPathExtension("lproj"_ns)));
        };
        for (NSUInteger i = 0; i < languages->count(); ++i)
            add(static_cast<NSString*>(languages->objectAtIndex(i)));
        if (NSString* region = development_region(); region && !languages->containsObject(region))
            add(region);
        if (folder->length())
            for (NSString*& each : list) each = each->stringByAppendingPathComponent(folder);
        return list;
    }
};

}  // namespace

void correct_bundles(const std::string& language) {
    user_language() = language;
    Class bundle = NSBundle::class_object();
    redefine<"bundleWithPath:", &Bundle::bundleWithPath>(bundle);
    redefine<"mainBundle", &Bundle::mainBundle>(bundle);
    redefine<"bundleForClass:", &Bundle::bundleForClass>(bundle);
    redefine<"infoDictionary", &Bundle::infoDictionary>(bundle);
    redefine<"bundleIdentifier", &Bundle::bundleIdentifier>(bundle);
    redefine<"objectForInfoDictionaryKey:", &Bundle::objectForInfoDictionaryKey>(bundle);
    redefine<"resourcePath", &Bundle::resourcePath>(bundle);
    redefine<"localizations", &Bundle::localizations>(bundle);
    redefine<"preferredLocalizations", &Bundle::preferredLocalizations>(bundle);
    redefine<"developmentLocalization", &Bundle::developmentLocalization>(bundle);
    redefine<"pathForResource:ofType:", &Bundle::pathForResource>(bundle);
    redefine<"pathForResource:ofType:inDirectory:", &Bundle::pathForResourceInDirectory>(bundle);
    redefine<"pathsForResourcesOfType:inDirectory:", &Bundle::pathsForResources>(bundle);
    redefine<"localizedStringForKey:value:table:", &Bundle::localizedString>(bundle);
}

void put_class_into_bundle(std::string_view class_name, const std::string& bundle_path) {
    paths_of_classes()[std::string(class_name)] = bundle_path;
}

}  // namespace sim
