// The settings pane's screens by random touches and typing, while its files are removed, replaced, damaged
// and unreadable beneath it, and the disk is full. Nothing is raised, no constraint contradicts another one;
// and what nobody damaged is whole at the end.
#include <sys/stat.h>

#include <fstream>
#include <map>
#include <optional>

#include "harness/fuzz.h"
#include "pane/kept_files.h"
#include "pane/laid_out_packages.h"
#include "platform/controls.h"
#include "platform/navigation.h"
#include "platform/tables.h"
#include "support/contents.h"

namespace {

namespace fs = std::filesystem;
using objc::send;
using test::text;

constexpr const char* preferences = "/var/mobile/Library/Preferences";
constexpr const char* photos = "/var/mobile/Media/DCIM/100APPLE";
constexpr const char* caches = "/var/mobile/Library/Caches/com.quillmoth.huecraftios12.settings";
constexpr double width = 320, height = 568;

constexpr const char* labels[] = {"Add Colour",
                                  "Apply",
                                  "Background",
                                  "Cancel",
                                  "Choose Photo",
                                  "Compatibility",
                                  "Contrast",
                                  "Copy as Text",
                                  "Create",
                                  "Crop, Dim and Blur",
                                  "Delete",
                                  "Discard",
                                  "Duplicate",
                                  "From the Pasteboard",
                                  "Gradient",
                                  "Colour",
                                  "Image",
                                  "None",
                                  "Highlights",
                                  "Import It",
                                  "Keep Both",
                                  "Labels",
                                  "Mine",
                                  "Other",
                                  "Name",
                                  "New Theme",
                                  "OK",
                                  "Redo",
                                  "Rename",
                                  "Replace",
                                  "Reset",
                                  "Restart",
                                  "Save",
                                  "SELECT",
                                  "CLOSE",
                                  "Share",
                                  "Share Report",
                                  "Text",
                                  "To the left",
                                  "Turn Off",
                                  "Undo",
                                  "Use It",
                                  "Use Photo",
                                  "Use the Nearest Readable Pair",
                                  "Visible Key Caps",
                                  "hill.png",
                                  "Edit",
                                  "Settings",
                                  "Peach"};

test::Phone::Options settings() {
    test::Phone::Options options = fuzz::small_phone();
    options.executable = "/Applications/Preferences.app/Preferences";
    return options;
}

/// Files with their contents, and folders; by path on the host.
using Files = std::map<fs::path, std::optional<std::string>>;

std::string filled_png(UIColor* color, double width, double height) {
    NSData* png = UIImagePNGRepresentation(test::filled_image(color, width, height));
    return {static_cast<const char*>(png->bytes()), png->length()};
}

/// The keyboard that a theme is shown on has a few pixels here: no input changes it.
void reduce_preview_pictures() {
    for (const char* name : {"Background", "Text", "Highlight", "KeyCaps"})
        fuzz::phone().write(
            std::string("/Library/PreferenceBundles/Huecraft.bundle/PreviewKeyboard") + name + ".png",
            filled_png(test::color(0.5, 0.5, 0.5), 15, 9));
}

/// What lies there when an input begins.
Files first_files() {
    const test::Phone& phone = fuzz::phone();
    Files files;
    for (const char* folder : {preferences, photos}) {
        fs::remove_all(phone.host(folder));
        phone.make_folder(folder);
        files[phone.host(folder)];
    }
    phone.make_folder(test::theme_folder);
    test::put_theme(phone, "Mine.plist", "Mine");
    test::put_theme(phone, "Other.plist", "Other");
    phone.write(test::preference_file, "{_Enabled = 1; _Config = \"Mine.plist\"; kept = yes;}");
    phone.write(std::string(photos) + "/hill.png", filled_png(test::color(0.2, 0.5, 0.3), 40, 30));
    for (const char* folder : {preferences, photos})
        for (const auto& entry : fs::recursive_directory_iterator(phone.host(folder)))
            if (entry.is_directory())
                files[entry.path()];
            else
                files[entry.path()] = test::contents_of(entry.path());
    phone.write("/usr/bin/sbreload", "");
    files[phone.host("/usr/bin/sbreload")] = "";
    return files;
}

bool is_folder(const fs::path& path) { return fs::is_directory(fs::symlink_status(path)); }
bool is_file(const fs::path& path) { return fs::is_regular_file(fs::symlink_status(path)); }

void remove_others(const fs::path& folder, const Files& files) {
    for (const auto& entry : fs::directory_iterator(folder))
        if (!files.contains(entry.path())) fs::remove_all(entry.path());
}

/// Files that are as they should be are left alone: the pane knows them again, and does not draw them anew.
void restore(const Files& files) {
    for (const auto& [path, contents] : files) {
        if (contents ? is_file(path) && test::contents_of(path) == *contents : is_folder(path)) continue;
        fs::remove_all(path);
        if (contents)
            std::ofstream(path) << *contents;
        else
            fs::create_directory(path);
    }
    for (const char* folder : {preferences, photos, test::theme_folder})
        remove_others(fuzz::phone().host(folder), files);
}

void arrange() {
    static const Files files = [] {
        test::Phone& phone = fuzz::phone_without_library(settings());
        test::lay_out_packages(phone, FUZZED_PANE);
        reduce_preview_pictures();
        return first_files();
    }();
    restore(files);
    const fs::path pictures = fuzz::phone().host(std::string(caches) + "/Keyboards");
    fuzz::phone().make_folder(caches);
    remove_others(fuzz::phone().host(caches), {{pictures, std::nullopt}});
    if (!is_folder(pictures)) fs::remove_all(pictures);
    EXPECT_EQ(sim_end_programs_with(0), SIM_OK) << sim_last_error();
}

void expect_done_or_refused(sim_status status) {
    EXPECT_TRUE(status == SIM_OK || status == SIM_NOT_FOUND || status == SIM_MISUSE)
        << status << " " << sim_last_error();
}

UITableView* table() {
    void* view = nullptr;
    return sim_view_on_screen("UITableView", &view) == SIM_OK
               ? static_cast<UITableView*>(static_cast<id>(view))
               : nullptr;
}

/// The detail button of a row, which opens the editor.
void open_editor(NSInteger row, NSInteger section) {
    UITableView* shown = table();
    if (!shown || section >= shown->numberOfSections() || row >= shown->numberOfRowsInSection(section))
        return;
    id page = static_cast<id>(shown->dataSource());
    if (!send<"respondsToSelector:", bool>(
            page, sel_registerName("tableView:accessoryButtonTappedForRowWithIndexPath:")))
        return;
    send<"tableView:accessoryButtonTappedForRowWithIndexPath:">(page, shown,
                                                                NSIndexPath::indexPathForRow(row, section));
}

/// Something happens to a file, as another process would do it.
void meddle(fuzz::Bytes& bytes) {
    static const std::string files[] = {test::in_themes("Mine.plist"),
                                        test::in_themes("Other.plist"),
                                        test::in_themes("New Theme.plist"),
                                        test::preference_file,
                                        std::string(test::theme_folder),
                                        std::string(photos) + "/hill.png",
                                        std::string(photos),
                                        "/usr/bin/sbreload",
                                        std::string(caches) + "/Keyboards"};
    fs::path file = fuzz::phone().host(files[bytes.below(std::size(files))]);
    if (!file.has_filename()) file = file.parent_path();
    std::error_code ignored;
    fs::remove_all(file, ignored);
    fs::create_directories(file.parent_path(), ignored);
    switch (bytes.below(8)) {
        case 0: return;
        case 1: fs::create_directory(file, ignored); return;
        case 2: fs::create_symlink("nowhere", file, ignored); return;
        case 3: fs::create_symlink(file.filename(), file, ignored); return;
        case 4: mkfifo(file.c_str(), 0600); return;
        case 5: std::ofstream(file) << test::theme().substr(0, bytes.byte()); return;
        case 6: std::ofstream(file) << test::theme(); return;
        default: std::ofstream(file) << bytes.counted();
    }
}

/// Answers whether somebody else was at the files.
bool step(fuzz::Bytes& bytes) {
    const auto point = [&] { return CGPoint{bytes.part() * width, bytes.part() * height}; };
    switch (bytes.below(16)) {
        case 0:
        case 1:
        case 2:
        case 3: expect_done_or_refused(sim_tap_label(labels[bytes.below(std::size(labels))])); break;
        case 4: {
            const CGPoint at = point();
            expect_done_or_refused(sim_tap(at.x, at.y));
            break;
        }
        case 5: {
            const int phase = static_cast<int>(bytes.below(4));
            const CGPoint at = point();
            expect_done_or_refused(sim_touch(phase, at.x, at.y));
            break;
        }
        case 6: {
            const CGPoint from = point(), to = point();
            for (int part = 0; part < 4; ++part)
                expect_done_or_refused(sim_touch(part == 0   ? SIM_TOUCH_BEGAN
                                                 : part == 3 ? SIM_TOUCH_ENDED
                                                             : SIM_TOUCH_MOVED,
                                                 from.x + (to.x - from.x) * part / 3,
                                                 from.y + (to.y - from.y) * part / 3));
            break;
        }
        case 7: {
            const CGPoint one = point(), other = point();
            for (int phase : {SIM_TOUCH_BEGAN, SIM_TOUCH_MOVED, SIM_TOUCH_ENDED})
                expect_done_or_refused(
                    sim_touch_two(phase, one.x - phase * 9, one.y, other.x + phase * 9, other.y));
            break;
        }
        case 8: {
            const std::string typed(bytes.counted().substr(0, 20));
            expect_done_or_refused(sim_type_text(typed.substr(0, typed.find('\0')).c_str()));
            break;
        }
        case 9: expect_done_or_refused(bytes.below(2) ? sim_delete_backward() : sim_press_return()); break;
        case 10: {
            const auto section = static_cast<NSInteger>(bytes.below(4));
            open_editor(static_cast<NSInteger>(bytes.below(4)), section);
            break;
        }
        case 11: {
            id board = send<"generalPasteboard", id>(test::class_named("UIPasteboard"));
            const bool is_theme = bytes.below(2);
            if (NSString* copied = is_theme ? text(test::theme()) : text(bytes.counted()))
                send<"setString:">(board, copied);
            break;
        }
        case 12:
            expect_done_or_refused(bytes.below(4) ? sim_advance_clock(bytes.part() * 6)
                                                  : sim_warn_of_memory());
            break;
        case 13: expect_done_or_refused(sim_end_programs_with(static_cast<int>(bytes.below(3)))); break;
        case 14: {
            const test::FullDisk full;
            expect_done_or_refused(sim_tap_label(labels[bytes.below(std::size(labels))]));
            break;
        }
        default: meddle(bytes); return true;
    }
    expect_done_or_refused(sim_advance_clock(1));
    return false;
}

NSDictionary* dictionary_in(const fs::path& file) {
    return as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
        test::data(test::contents_of(file)), NSPropertyListSerialization::immutable, nullptr, nullptr));
}

/// Themes and preferences can be read, with the keys of others; the theme that is chosen is there; no draft
/// was left.
void expect_whole() {
    const test::Phone& phone = fuzz::phone();
    for (const auto& entry : fs::directory_iterator(phone.host(test::theme_folder))) {
        const std::string name = entry.path().filename();
        if (entry.is_directory()) continue;
        EXPECT_NE(dictionary_in(entry.path()), nullptr) << name;
    }
    NSDictionary* kept = dictionary_in(phone.host(test::preference_file));
    EXPECT_NE(kept, nullptr);
    EXPECT_EQ(test::utf8(kept->objectForKey(text("kept"))), "yes");
    if (id chosen = kept->objectForKey(text("_Config")); chosen && !test::utf8(chosen).empty())
        EXPECT_TRUE(phone.exists(test::in_themes(test::utf8(chosen)))) << test::utf8(chosen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::phone_without_library(settings());
    const fuzz::Pool pool;
    arrange();
    fuzz::Bytes bytes(data, size);
    EXPECT_EQ(sim_open_settings(), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_tap_label("Huecraft"), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_advance_clock(1), SIM_OK) << sim_last_error();
    bool is_damaged = false;
    for (int steps = 0; !bytes.empty() && steps < 32; ++steps) is_damaged |= step(bytes);
    sim_touch(SIM_TOUCH_CANCELLED, 0, 0);
    if (!is_damaged) expect_whole();
    EXPECT_EQ(sim_layout_report_count(), 0u);  // a log line each
    return 0;
}
