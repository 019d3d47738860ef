#include "pane/model/shelf.h"

#include "pane/model/files.h"
#include "pane/texts.h"

namespace pane::shelf {
namespace {

bool is_same(NSString* one, NSString* other) {
    return one == other || (one && other && one->isEqualToString(other));
}

/// The preferences when a chosen theme was removed; a process has at most one that can be put back.
constinit Preferences* before_removal = nullptr;

void remember(const Preferences* preferences) {
    delete before_removal;
    before_removal = preferences ? new Preferences(*preferences) : nullptr;
}

/// Whether processes have read another theme than is in the chosen file now.
constinit bool chosen_was_edited = false;

/// The preferences speak of the file that a theme is in now, then the old one goes. nil stays nil.
NSString* settle(NSString* file, NSString* now, Preferences& preferences, NSError** error) {
    if (!now || !file || now->isEqualToString(file)) return now;
    NSFileManager* manager = NSFileManager::defaultManager();
    if (is_same(preferences.chosen, file)) {
        preferences.chosen = now;
        if (!write_preferences(preferences, error)) {
            manager->removeItemAtPath(themes::folder()->stringByAppendingPathComponent(now), nullptr);
            return nullptr;
        }
    }
    // Should the old file stay, the theme is there twice, and nothing is lost.
    manager->removeItemAtPath(themes::folder()->stringByAppendingPathComponent(file), nullptr);
    return now;
}

}  // namespace

bool choose(NSString* folder, NSString* file, NSError** error) {
    awaits_restart();
    if (!folder->isEqualToString(themes::folder())) file = themes::copy_to_user(file, error);
    return file && write_preferences({true, file}, error);
}

bool switch_on(bool on, NSError** error) {
    awaits_restart();
    auto preferences = certain_preferences(error);
    if (!preferences) return false;
    preferences->is_on = on;
    return write_preferences(*preferences, error);
}

bool reset(NSError** error) {
    awaits_restart();
    return write_preferences({}, error);
}

NSString* rename(NSString* file, NSString* name, NSError** error) {
    awaits_restart();
    auto preferences = certain_preferences(error);
    if (!preferences) return nullptr;
    return settle(file, themes::write_under_name(file, name, error), *preferences, error);
}

NSString* keep(HuecraftConfig* theme, NSString* file, NSString* name_before, NSError** error) {
    awaits_restart();
    auto preferences = certain_preferences(error);
    if (!preferences) return nullptr;
    const bool chosen = file && is_same(preferences->chosen, file);
    NSString* kept = settle(file, themes::keep(theme, file, name_before, error), *preferences, error);
    if (kept && chosen) chosen_was_edited = true;
    return kept;
}

bool remove(NSString* file, NSError** error) {
    awaits_restart();
    const auto preferences = certain_preferences(error);
    if (!preferences) return false;
    const bool chosen = is_same(preferences->chosen, file);
    if (chosen && !write_preferences({}, error)) return false;
    if (!themes::remove(file, error)) {
        if (chosen) write_preferences(*preferences, nullptr);
        return false;
    }
    remember(chosen ? &*preferences : nullptr);
    return true;
}

bool put_back(NSError** error) {
    NSString* file = themes::put_back(error);
    if (!file) return false;
    if (before_removal) {
        Preferences preferences = *before_removal;
        preferences.chosen = file;
        remember(nullptr);
        return write_preferences(preferences, error);
    }
    return true;
}

bool awaits_restart() {
    static constinit Preferences* at_first = nullptr;
    const Preferences now = read_preferences();
    if (!at_first) at_first = new Preferences(now);
    return now.is_on != at_first->is_on ||
           (now.is_on && (chosen_was_edited || !is_same(now.chosen, at_first->chosen)));
}

}  // namespace pane::shelf
