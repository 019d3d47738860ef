#include "pane/model/themes.h"

#include "objc/fast_enumeration.h"
#include "pane/model/file_names.h"
#include "pane/model/files.h"
#include "pane/model/library.h"
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

/// A theme's name, and the file for it.
struct Place {
    NSString *name, *file;
};

/// What lies in the folder, nothing in one that is not there; nil, and why, when it cannot be read.
NSArray* contents_of(NSString* folder, NSError** error) {
    NSError* reason = nullptr;
    NSArray* all = NSFileManager::defaultManager()->contentsOfDirectoryAtPath(folder, &reason);
    if (all) return all;
    if (is_absence(reason)) return NSArray::arrayWithObjects(nullptr, 0);
    if (error) *error = reason;
    return nullptr;
}

/// The names of a folder's files, whatever their case. Unknown, and why, when it cannot be read: then none is
/// free, for no file is to be replaced.
class Taken {
  public:
    Taken(NSString* folder, NSError** error) {
        NSArray* files = contents_of(folder, error);
        if (!files) return;
        names_ = NSMutableArray::arrayWithCapacity(files->count());
        objc::for_each<NSString>(files, [&](NSString* file) { names_->addObject(file->lowercaseString()); });
    }
    bool is_known() const { return names_; }
    bool has(NSString* file) const { return names_->containsObject(file->lowercaseString()); }

  private:
    NSMutableArray* names_ = nullptr;
};

/// The name, or with a number behind it when that is not 1; a name without anything for a file gets one.
Place numbered(NSString* name, NSInteger number) {
    NSString* stem = name ? string_of(stem_of(units_of(name))) : nullptr;
    const bool is_usable = stem && stem->length() > 0;
    if (!is_usable) stem = "Theme"_ns;
    if (number > 1) {
        stem = with("%1 %2"_ns, stem, number_text(number));
        if (is_usable) name = with("%1 %2"_ns, name, number_text(number));
    }
    return {name, stem->stringByAppendingString(".plist"_ns)};
}

/// The first that no file in the user's folder has; without a file, and why, when that cannot be known.
Place free_place(NSString* name, NSError** error) {
    const Taken taken(folder(), error);
    if (!taken.is_known()) return {name, nullptr};
    for (NSInteger number = 1;; ++number)
        if (const Place place = numbered(name, number); !taken.has(place.file)) return place;
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

/// nil where the library has a fault.
strong<HuecraftConfig> theme_of(NSDictionary* content) {
    if (library_fault()) return nullptr;
    strong<HuecraftConfig> theme = HuecraftConfig::defaultConfig();
    if (theme) theme->asPlist()->send<"setDictionary:">(content);
    return theme;
}

/// To no file at all when that is nil.
NSString* write(HuecraftConfig* theme, NSString* file, NSError** error) {
    const bool written = file && make_folder(folder(), error) &&
                         write_property_list(theme->asPlist(), in(folder(), file), error);
    return written ? file : nullptr;
}

}  // namespace

NSString* folder() { return "/var/mobile/Library/Preferences/HuecraftConfiguration"_ns; }
NSString* folder_that_comes_along() { return "/Library/PreferenceBundles/HuecraftSettings.bundle/Themes"_ns; }

NSArray* files_in(NSString* folder, NSError** error) {
    NSArray* all = contents_of(folder, error);
    if (!all) return nullptr;
    NSMutableArray* files = NSMutableArray::arrayWithCapacity(all->count());
    objc::for_each<NSString>(all, [&](NSString* file) {
        if (file->hasSuffix(".plist"_ns) && !file->hasPrefix("."_ns)) files->addObject(file);
    });
    return files->sortedArrayUsingSelector(objc::selector<"localizedCaseInsensitiveCompare:">());
}

Reading read(NSString* folder, NSString* file) {
    NSError* error = nullptr;
    if (id root = read_property_list(in(folder, file), &error)) return read(root);
    Reading reading;
    reading.fault = error->localizedDescription();
    return reading;
}

Reading read(id root) {
    Reading reading;
    auto* content = as<NSDictionary>(root);
    if (!content) {
        reading.fault = text<"The file holds no theme.">();
        return reading;
    }
    reading.theme = theme_of(content);
    reading.remark = remark_on(content);
    if (!reading.theme) reading.fault = library_fault();
    return reading;
}

strong<HuecraftConfig> copy_of(HuecraftConfig* theme) { return theme_of(theme->asPlist()); }

NSString* keep_as_new(HuecraftConfig* theme, NSError** error) {
    const Place place = free_place(theme->getConfigName(), error);
    if (place.name) theme->setConfigName(place.name);
    return write(theme, place.file, error);
}

NSString* save(HuecraftConfig* theme, NSString* file, NSError** error) { return write(theme, file, error); }

NSString* keep(HuecraftConfig* theme, NSString* file, NSString* name_before, NSError** error) {
    NSString* name = theme->getConfigName();
    const bool same_name = name && name_before && name->isEqualToString(name_before);
    NSString* stem = string_of(stem_of(units_of(name)));
    if (file && (same_name || stem->caseInsensitiveCompare(file->stringByDeletingPathExtension()) == 0))
        return write(theme, file, error);
    const strong<NSString> before = name;
    NSString* kept = keep_as_new(theme, error);
    if (!kept && before) theme->setConfigName(before);
    return kept;
}

NSString* copy_to_user(NSString* file, NSError** error) {
    auto* content = as<NSDictionary>(read_property_list(in(folder_that_comes_along(), file), error));
    if (!content) return nullptr;
    const auto theme = theme_of(content);
    if (!theme) return fail(error, library_fault());
    NSString* stem = file->stringByDeletingPathExtension();
    const strong<NSString> name = theme->getConfigName();
    const Taken taken(folder(), error);
    if (!taken.is_known()) return nullptr;
    for (NSInteger number = 1;; ++number) {
        const Place place = numbered(stem, number);
        if (number > 1 && name) theme->setConfigName(numbered(name, number).name);
        if (!taken.has(place.file)) return write(theme, place.file, error);
        auto* own = static_cast<NSObject*>(read_property_list(in(folder(), place.file), nullptr));
        if (own && own->isEqual(theme->asPlist())) return place.file;
    }
}

NSString* duplicate(NSString* folder, NSString* file, NSError** error) {
    const Reading reading = read(folder, file);
    if (!reading.theme) return fail(error, reading.fault);
    NSString* name = reading.theme->getConfigName();
    if (!name || name->length() == 0) name = file->stringByDeletingPathExtension();
    reading.theme->setConfigName(text<"%1 copy">(name));
    return keep_as_new(reading.theme, error);
}

NSString* write_under_name(NSString* file, NSString* name, NSError** error) {
    const Reading reading = read(folder(), file);
    if (!reading.theme) return fail(error, reading.fault);
    NSString* stem = string_of(stem_of(units_of(name)));
    const bool same = stem->caseInsensitiveCompare(file->stringByDeletingPathExtension()) == 0;
    const Place place = same ? Place{name, file} : free_place(name, error);
    reading.theme->setConfigName(place.name);
    return write(reading.theme, place.file, error);
}

bool remove(NSString* file, NSError** error) {
    NSFileManager* manager = NSFileManager::defaultManager();
    NSArray* earlier = make_folder(put_away(), error) ? contents_of(put_away(), error) : nullptr;
    if (!earlier) return false;
    // Of the same name it stands in the way; the others go when the file is safe.
    if (earlier->containsObject(file)) manager->removeItemAtPath(in(put_away(), file), nullptr);
    if (!manager->moveItem(in(folder(), file), in(put_away(), file), error)) return false;
    objc::for_each<NSString>(earlier, [&](NSString* each) {
        if (!each->isEqualToString(file)) manager->removeItemAtPath(in(put_away(), each), nullptr);
    });
    return true;
}

NSString* removed_file() {
    NSArray* files = NSFileManager::defaultManager()->contentsOfDirectoryAtPath(put_away(), nullptr);
    return files ? static_cast<NSString*>(files->firstObject()) : nullptr;
}

NSString* put_back(NSError** error) {
    NSString* file = removed_file();
    if (!file) return fail(error, text<"There is nothing to put back.">());
    NSString* place = free_place(file->stringByDeletingPathExtension(), error).file;
    const bool moved =
        place && make_folder(folder(), error) &&
        NSFileManager::defaultManager()->moveItem(in(put_away(), file), in(folder(), place), error);
    return moved ? place : nullptr;
}

}  // namespace pane::themes
