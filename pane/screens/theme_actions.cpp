#include "pane/screens/theme_actions.h"

#include "pane/model/library.h"
#include "pane/model/shelf.h"
#include "pane/model/themes_as_text.h"
#include "pane/screens/editor/edit.h"
#include "platform/controls.h"

namespace pane {
namespace {

using objc::strong;
using Page = strong<HuecraftSettingsController>;

/// Which file is meant, for as long as an answer takes.
struct Chosen {
    Page page;
    strong<NSString> folder, file;
    SheetSource source;

    /// What became of it: the file to show, or nil and why.
    void done(NSString* shown, NSString* complaint, NSError* error) const {
        page->showTheme(shown);
        if (!shown) tell(page, complaint, error);
    }
};

// ---- New ones -----------------------------------------------------------------------------------

void make_theme(HuecraftSettingsController* page, NSString* name) {
    NSError* error = nullptr;
    NSString* file = nullptr;
    if (NSString* fault = library_fault()) {
        error = make_error(fault);
    } else {
        const strong<HuecraftConfig> theme = HuecraftConfig::defaultConfig();
        theme->setConfigName(name);
        file = themes::keep_as_new(theme, &error);
    }
    page->showTheme(file);
    if (file)
        edit_theme(page, themes::folder(), file);
    else
        tell(page, text<"The theme could not be made.">(), error);
}

void import_theme(HuecraftSettingsController* page, HuecraftConfig* theme) {
    NSError* error = nullptr;
    NSString* file = themes::keep_arrived(theme, &error);
    page->showTheme(file);
    if (!file) tell(page, text<"The theme could not be imported.">(), error);
}

void import_from_pasteboard(HuecraftSettingsController* page) {
    NSString* copied = UIPasteboard::generalPasteboard()->string();
    if (!copied || copied->length() == 0) {
        tell(page, text<"The pasteboard holds no text.">(), text<"Copy a theme's text first.">());
        return;
    }
    const themes::Reading reading = themes::read_text(copied);
    if (!reading.theme) {
        tell(page, text<"The theme could not be imported.">(), reading.fault);
    } else if (!reading.remark) {
        import_theme(page, reading.theme);
    } else {
        UIAlertController* alert = make_alert(text<"This theme is not whole.">(), reading.remark);
        add_cancel(alert);
        add_answer(alert, text<"Import It">(), UIAlertActionStyleDefault,
                   [page = Page(page), theme = reading.theme] { import_theme(page, theme); });
        show(alert, page);
    }
}

// ---- With one of them ---------------------------------------------------------------------------

void rename(const Chosen& chosen, NSString* name) {
    NSError* error = nullptr;
    NSString* file = shelf::rename(chosen.file, name, &error);
    chosen.done(file, text<"The theme could not be renamed.">(), error);
}

void duplicate(const Chosen& chosen) {
    NSError* error = nullptr;
    NSString* file = themes::duplicate(chosen.folder, chosen.file, &error);
    chosen.done(file, text<"The theme could not be duplicated.">(), error);
}

/// The theme, unless the file changed meanwhile to one that holds none.
themes::Reading read_again(const Chosen& chosen) {
    themes::Reading reading = themes::read(chosen.folder, chosen.file);
    if (!reading.theme) {
        chosen.page->showTheme(nullptr);
        tell(chosen.page, text<"This theme cannot be used.">(), reading.fault);
    }
    return reading;
}

void share(const Chosen& chosen) {
    if (!read_again(chosen).theme) return;
    const id items[] = {NSURL::fileURLWithPath(chosen.folder->stringByAppendingPathComponent(chosen.file))};
    auto sheet = UIActivityViewController::alloc()->initWithActivityItems(NSArray::arrayWithObjects(items, 1),
                                                                          nullptr);
    show_from(chosen.source, sheet, chosen.page);
}

void copy_as_text(const Chosen& chosen) {
    const themes::Reading reading = read_again(chosen);
    if (!reading.theme) return;
    NSError* error = nullptr;
    if (NSString* copied = themes::text_of(reading.theme, &error))
        UIPasteboard::generalPasteboard()->setString(copied);
    else
        tell(chosen.page, text<"The theme could not be copied.">(), error);
}

NSString* name_of(const themes::Reading& reading, NSString* file) {
    NSString* name = reading.theme ? reading.theme->getConfigName() : nullptr;
    return name && name->length() > 0 ? name : file->stringByDeletingPathExtension();
}

}  // namespace

void offer_additions(HuecraftSettingsController* page, const SheetSource& source) {
    UIAlertController* sheet = make_sheet(nullptr);
    add_answer(sheet, text<"New Theme">(), UIAlertActionStyleDefault, [page = Page(page)] {
        ask_for_name(page, text<"New Theme">(), nullptr, text<"Create">(),
                     [page](NSString* name) { make_theme(page, name); });
    });
    add_answer(sheet, text<"From the Pasteboard">(), UIAlertActionStyleDefault,
               [page = Page(page)] { import_from_pasteboard(page); });
    add_cancel(sheet);
    show_from(source, sheet, page);
}

void offer_actions(HuecraftSettingsController* page, NSString* folder, NSString* file,
                   const SheetSource& source) {
    const Chosen chosen{Page(page), folder, file, source};
    const themes::Reading reading = themes::read(folder, file);
    const bool is_own = folder->isEqualToString(themes::folder());
    const strong<NSString> name = name_of(reading, file);
    UIAlertController* sheet = make_sheet(name, reading.fault ? reading.fault : reading.remark);
    if (reading.theme) {
        if (is_own)
            add_answer(sheet, text<"Rename">(), UIAlertActionStyleDefault, [chosen, name] {
                ask_for_name(chosen.page, text<"New Name">(), name, text<"Rename">(),
                             [chosen](NSString* given) { rename(chosen, given); });
            });
        add_answer(sheet, text<"Duplicate">(), UIAlertActionStyleDefault, [chosen] { duplicate(chosen); });
        add_answer(sheet, text<"Share">(), UIAlertActionStyleDefault, [chosen] { share(chosen); });
        add_answer(sheet, text<"Copy as Text">(), UIAlertActionStyleDefault,
                   [chosen] { copy_as_text(chosen); });
    }
    if (is_own)
        add_answer(sheet, text<"Delete">(), UIAlertActionStyleDestructive,
                   [chosen] { chosen.page->removeTheme(chosen.file); });
    add_cancel(sheet);
    show_from(source, sheet, page);
}

}  // namespace pane
