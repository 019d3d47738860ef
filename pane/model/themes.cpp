// Themes as files: see the header.
#include "pane/model/themes.h"

#include "objc/fast_enumeration.h"
#include "pane/model/file_names.h"
#include "pane/model/files.h"
#include "pane/texts.h"

namespace pane::themes {
namespace {

using objc::strong;

/// Where a removed file waits to be put back.
NSString* put_away() { return "/var/mobile/Library/Caches/com.quillmoth.huecraftios12.settings/Removed"_ns; }

NSString* in(NSString* folder, NSString* file) { return folder->stringByAppendingPathComponent(file); }

std::u16string units_of(NSString* text) {
    std::u16string units(text->length(), 0);
    text->getCharacters(units.data(), {0, units.size()});
    return units;
}
NSString* string_of(std::u16string_view units) {
    return NSString::stringWithCharacters(units.data(), units.size());
}

/// `text`, or "text 2", or … with the ending; the first that no file in the folder has, in whatever case.
NSString* free_file(NSString* name, NSString* folder) {
    NSString* stem = name ? string_of(stem_of(units_of(name))) : nullptr;
    if (!stem || stem->length() == 0) stem = "Theme"_ns;
    NSMutableArray* taken = NSMutableArray::arrayWithCapacity(16);
    objc::for_each<NSString>(NSFileManager::defaultManager()->contentsOfDirectoryAtPath(folder, nullptr),
                             [&](NSString* file) { taken->addObject(file->lowercaseString()); });
    for (NSInteger number = 1;; ++number) {
        NSString* file = number == 1 ? stem : with("%1 %2"_ns, stem, number_text(number));
        file = file->stringByAppendingString(".plist"_ns);
        if (!taken->containsObject(file->lowercaseString())) return file;
    }
}

/// A key's value is as a theme's maker meant it. The list of colours may hold others' entries.
bool is_text(id value) { return as<NSString>(value); }
bool is_number(id value) { return as<NSNumber>(value); }
bool is_list(id value) { return as<NSArray>(value); }
bool is_picture(id value) {
    return as<NSData>(value) || (is_text(value) && static_cast<NSString*>(value)->isEqualToString("nil"_ns));
}

NSString* remark_on(NSDictionary* content) {
    struct Expectation {
        NSString* key;
        bool (*holds)(id);
        bool is_needed;
    };
    const Expectation expectations[] = {
        {"_ConfigName"_ns, is_text, false},       {"_TextColor"_ns, is_text, true},
        {"_HighlightColor"_ns, is_text, true},    {"_BackgroundType"_ns, is_number, true},
        {"_Colors"_ns, is_list, false},           {"_GradientDirection"_ns, is_number, false},
        {"_Image"_ns, is_picture, false},         {"_ImageAlpha"_ns, is_number, false},
        {"_VisibleKeycaps"_ns, is_number, false},
    };
    for (const auto& [key, holds, is_needed] : expectations) {
        id value = content->objectForKey(key);
        if (!value && is_needed) return text<"%1 is missing.">(key);
        if (value && !holds(value)) return text<"%1 has a value of another kind than expected.">(key);
    }
    return nullptr;
}

strong<HuecraftConfig> theme_of(NSDictionary* content) {
    strong<HuecraftConfig> theme = HuecraftConfig::defaultConfig();
    if (theme) theme->asPlist()->send<"setDictionary:">(content);
    return theme;
}

NSString* write(HuecraftConfig* theme, NSString* file, NSError** error) {
    const bool written =
        make_folder(folder(), error) && write_property_list(theme->asPlist(), in(folder(), file), error);
    return written ? file : nullptr;
}

}  // namespace

NSString* folder() { return "/var/mobile/Library/Preferences/HuecraftConfiguration"_ns; }
NSString* folder_that_comes_along() { return "/Library/PreferenceBundles/HuecraftSettings.bundle/Themes"_ns; }

NSArray* files_in(NSString* folder, NSError** error) {
    NSError* reason = nullptr;
    NSArray* all = NSFileManager::defaultManager()->contentsOfDirectoryAtPath(folder, &reason);
    if (!all && !is_absence(reason)) {
        if (error) *error = reason;
        return nullptr;
    }
    NSMutableArray* files = NSMutableArray::arrayWithCapacity(all->count());
    objc::for_each<NSString>(all, [&](NSString* file) {
        if (file->hasSuffix(".plist"_ns) && !file->hasPrefix("."_ns)) files->addObject(file);
    });
    return files->sortedArrayUsingSelector(objc::selector<"localizedCaseInsensitiveCompare:">());
}

Reading read(NSString* folder, NSString* file) {
    Reading reading;
    NSError* error = nullptr;
    id root = read_property_list(in(folder, file), &error);
    auto* content = as<NSDictionary>(root);
    if (content)
        reading.theme = theme_of(content);
    else
        reading.fault = root ? text<"The file holds no theme.">() : error->localizedDescription();
    if (content) reading.remark = remark_on(content);
    if (content && !reading.theme) reading.fault = text<"Huecraft itself is not loaded here.">();
    return reading;
}

strong<HuecraftConfig> copy_of(HuecraftConfig* theme) { return theme_of(theme->asPlist()); }

NSString* keep_as_new(HuecraftConfig* theme, NSError** error) {
    return write(theme, free_file(theme->getConfigName(), folder()), error);
}

NSString* save(HuecraftConfig* theme, NSString* file, NSError** error) { return write(theme, file, error); }

NSString* copy_to_user(NSString* file, NSError** error) {
    id content = read_property_list(in(folder_that_comes_along(), file), error);
    if (!content) return nullptr;
    id own = read_property_list(in(folder(), file), nullptr);
    if (own && static_cast<NSObject*>(own)->isEqual(content)) return file;
    const auto theme = theme_of(static_cast<NSDictionary*>(content));
    return write(theme, free_file(file->stringByDeletingPathExtension(), folder()), error);
}

NSString* duplicate(NSString* from, NSString* file, NSError** error) {
    const Reading reading = read(from, file);
    if (!reading.theme) return fail(error, reading.fault);
    NSString* name = reading.theme->getConfigName();
    if (!name || name->length() == 0) name = file->stringByDeletingPathExtension();
    NSString* copied = free_file(text<"%1 copy">(name), folder());
    reading.theme->setConfigName(copied->stringByDeletingPathExtension());
    return write(reading.theme, copied, error);
}

NSString* write_under_name(NSString* file, NSString* name, NSError** error) {
    const Reading reading = read(folder(), file);
    if (!reading.theme) return fail(error, reading.fault);
    reading.theme->setConfigName(name);
    NSString* stem = string_of(stem_of(units_of(name)));
    const bool same = stem->caseInsensitiveCompare(file->stringByDeletingPathExtension()) == 0;
    return write(reading.theme, same ? file : free_file(name, folder()), error);
}

bool remove(NSString* file, NSError** error) {
    NSFileManager* manager = NSFileManager::defaultManager();
    manager->removeItemAtPath(put_away(), nullptr);
    return make_folder(put_away(), error) &&
           manager->moveItem(in(folder(), file), in(put_away(), file), error);
}

NSString* removed_file() {
    NSArray* files = NSFileManager::defaultManager()->contentsOfDirectoryAtPath(put_away(), nullptr);
    return files ? static_cast<NSString*>(files->firstObject()) : nullptr;
}

NSString* put_back(NSError** error) {
    NSString* file = removed_file();
    if (!file) return fail(error, text<"There is nothing to put back.">());
    NSString* place = free_file(file->stringByDeletingPathExtension(), folder());
    const bool moved = make_folder(folder(), error) && NSFileManager::defaultManager()->moveItem(
                                                           in(put_away(), file), in(folder(), place), error);
    return moved ? place : nullptr;
}

}  // namespace pane::themes
