#include "harness/in_process.h"

#include <cstdlib>
#include <deque>

#include "cli/run.h"
#include "cli/worker_pool.h"
#include "objc/send.h"
#include "support/phone.h"
#include "support/theme_choice.h"

namespace fs = std::filesystem;

namespace fuzz {
namespace {

/// Gone when the process ends as it should.
struct Folder {
    fs::path path;
    Folder() {
        std::string pattern = (fs::temp_directory_path() / "huecraft-fuzz-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~Folder() { fs::remove_all(path); }
};

command::Workshop set_up() {
    static const Folder folder;
    const command::Workshop made{folder.path / "device"};
    made.furnish();
    fs::create_directories(made.device / "Library/PreferenceBundles");
    fs::copy(HUECRAFT_RESOURCES "/Huecraft.bundle", made.device / "Library/PreferenceBundles/Huecraft.bundle",
             fs::copy_options::recursive);
    const std::string root = made.device;
    sim_options options{};
    options.size = sizeof options;
    options.root = root.c_str();
    options.executable = tools::notes;
    options.screen_width = 320;
    options.screen_height = 568;
    options.screen_scale = 1;
    tools::require(sim_boot(&options), "switching the phone on");
    // The hooks are installed for good, all of them.
    made.place_theme("hidden caps", "{_VisibleKeycaps=0;}");
    tools::choose_theme("hidden caps");
    sim_library* loaded = nullptr;
    tools::require(sim_load(std::getenv("HUECRAFT_LIBRARY"), &loaded), "loading the library");
    return made;
}

}  // namespace

const command::Workshop& workshop() {
    static const command::Workshop made = set_up();
    return made;
}

}  // namespace fuzz

// ---- In place of the command's own --------------------------------------------------------------------

namespace command {

/// What is hashed as the library that draws.
fs::path library(const std::string&) {
    return HUECRAFT_RESOURCES "/Huecraft.bundle/PreviewKeyboardBackground.png";
}
fs::path data_folder() { return HUECRAFT_RESOURCES; }

void Workshop::place_theme(const std::string& name, const std::string& contents) const {
    std::FILE* file = std::fopen(theme(name).c_str(), "wb");
    if (!file || std::fwrite(contents.data(), 1, contents.size(), file) != contents.size()) std::abort();
    std::fclose(file);
}
fs::path Workshop::theme(const std::string& name) const {
    return device / "var/mobile/Library/Preferences/HuecraftConfiguration" / name;
}
void Workshop::furnish() const {
    fs::create_directories(theme("").parent_path());
    fs::create_directories(device / "tmp");
}
void Workshop::install_settings_pictures() const {}

Status in_workshop(const std::function<Status(const Workshop&)>& work) {
    return complete([&] { return work(fuzz::workshop()); });
}
Status in_child(const std::function<Status()>& work) { return complete(work); }

Status share_out(std::deque<size_t> numbers, const SharedWork& work) {
    work.begin();
    for (size_t number : numbers) work.done(number, work.piece(number));
    return Status::fine;
}

// Whoever starts processes is not fuzzed.
pid_t start_child(const std::function<Status()>&) { std::abort(); }
ChildEnd await_child(pid_t) { std::abort(); }

}  // namespace command

namespace tools {

void require(sim_status status, const std::string& doing) {
    if (status != SIM_OK) throw Failure(doing + ": " + sim_last_error());
}
void in_child_process(const std::string&, const std::function<void()>& body) { body(); }
Screen Screen::for_pictures(double) const { return *this; }
void boot(const std::filesystem::path&, const char*, const Screen&, const Locale&) {}
/// The store reads the preferences as it does when a process starts.
void load(const std::filesystem::path&) {
    id store = objc::send<"sharedInstance", id>(reinterpret_cast<id>(objc_getClass("HCPreferences")));
    objc::send<"init", id>(store);
}

}  // namespace tools
