#include "pane/screens/theme_rows.h"

#include "pane/drawing/kept_pictures.h"
#include "pane/model/themes.h"
#include "pane/texts.h"

namespace pane {
namespace {

constexpr CGSize picture_size{104, 60};

NSObject* or_null(id object) { return object ? static_cast<NSObject*>(object) : NSNull::null(); }

/// Distinguishes one content of a file from the next.
NSString* stamp_of(NSString* path) {
    NSDictionary* attributes = NSFileManager::defaultManager()->attributesOfItemAtPath(path, nullptr);
    if (!attributes) return path;
    auto text_at = [&](NSString* key) {
        auto* value = static_cast<NSObject*>(attributes->objectForKey(key));
        return value ? value->description() : ""_ns;
    };
    // A date is written in whole seconds; a file that is saved again within one is another file by its
    // number.
    return with("%1 %2 "_ns, text_at("NSFileModificationDate"_ns), text_at("NSFileSize"_ns))
        ->stringByAppendingString(text_at("NSFileSystemFileNumber"_ns))
        ->stringByAppendingString(path);
}

}  // namespace

ThemeRows::ThemeRows() : painter_(picture_size) {}

ThemeRows::Shown ThemeRows::look_up(NSString* folder, NSString* file) {
    if (!known_) known_ = NSMutableDictionary::alloc()->initWithCapacity(16);
    NSString* key = stamp_of(folder->stringByAppendingPathComponent(file));
    if (auto* known = static_cast<NSArray*>(known_->objectForKey(key)))
        return {static_cast<NSString*>(known->objectAtIndex(0)), as<NSString>(known->objectAtIndex(1)),
                as<UIImage>(known->objectAtIndex(2))};
    const CGFloat scale = UIScreen::mainScreen()->scale();
    if (const auto kept = kept_pictures::find(key, scale); kept.picture)
        return remember(key, {kept.name, nullptr, kept.picture});
    const themes::Reading reading = themes::read(folder, file);
    NSString* name = reading.theme ? reading.theme->getConfigName() : nullptr;
    if (!name || name->length() == 0) name = file->stringByDeletingPathExtension();
    NSString* note = reading.fault ? reading.fault.get() : reading.remark.get();
    UIImage* picture = reading.theme ? painter_.picture_of(reading.theme) : nullptr;
    if (picture && !note) kept_pictures::keep(key, {name, picture});
    return remember(key, {name, note, picture});
}

ThemeRows::Shown ThemeRows::remember(NSString* key, const Shown& shown) {
    const id all[] = {shown.name, or_null(shown.note), or_null(shown.picture)};
    known_->setObject(NSArray::arrayWithObjects(all, 3), key);
    return shown;
}

void ThemeRows::show(NSString* folder, NSString* file, bool chosen, UITableViewCell* cell) {
    const Shown shown = look_up(folder, file);
    // The detail button takes the place of the table's own mark.
    NSString* mark = NSString::stringWithUTF8String("\u2713 ");
    cell->textLabel()->setText(chosen ? mark->stringByAppendingString(shown.name) : shown.name.get());
    cell->textLabel()->setTextColor(chosen ? cell->tintColor() : UIColor::blackColor());
    cell->textLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleBody));
    cell->detailTextLabel()->setText(shown.note);
    cell->detailTextLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleCaption1));
    cell->detailTextLabel()->setTextColor(UIColor::colorWithRGB(0.7, 0.2, 0.1, 1));
    cell->imageView()->setImage(shown.picture);
    cell->setAccessoryType(shown.picture ? UITableViewCellAccessoryDetailButton
                                         : UITableViewCellAccessoryNone);
    cell->setIsAccessibilityElement(true);
    cell->setAccessibilityLabel(shown.note ? with("%1, %2"_ns, shown.name, shown.note) : shown.name.get());
    cell->setAccessibilityTraits(chosen ? UIAccessibilityTraitButton | UIAccessibilityTraitSelected
                                        : UIAccessibilityTraitButton);
}

}  // namespace pane
