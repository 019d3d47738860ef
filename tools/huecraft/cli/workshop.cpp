#include "cli/workshop.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "cli/files.h"
#include "cli/leftovers.h"
#include "cli/run.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "support/phone.h"

namespace command {
namespace {

namespace fs = std::filesystem;

constexpr const char* theme_folder = "var/mobile/Library/Preferences/HuecraftConfiguration";

[[noreturn]] void no_room_in(const fs::path& parent, int error) {
    throw Unusable(parent, std::string("temporary files cannot be written there: ") + std::strerror(error) +
                               "; TMPDIR names another folder");
}

/// Throws Unusable where a theme and its pictures would not fit: said once, and not of whichever of them is
/// written first.
void require_room(const fs::path& folder) {
    constexpr off_t room = 1 << 20;
    const fs::path probe = folder / "probe";
    const int file = open(probe.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const int error = file < 0 ? errno : posix_fallocate(file, 0, room);
    if (file >= 0) close(file);
    unlink(probe.c_str());
    if (error != 0) no_room_in(folder.parent_path(), error);
}

/// A folder that goes when the command ends.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        const char* named = std::getenv("TMPDIR");
        const fs::path parent = named && *named ? named : "/tmp";
        clear_folders(parent, beginning, keeping);
        do {
            std::string pattern = (fs::absolute(parent) / (beginning + "XXXXXX")).string();
            if (!mkdtemp(pattern.data()))
                throw Unusable(parent, std::string("no temporary files can be made there: ") +
                                           std::strerror(errno) + "; TMPDIR names another folder");
            path_ = pattern;
        } while (!kept());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
        if (kept_ >= 0) close(kept_);
    }
    const fs::path& path() const { return path_; }

  private:
    static inline const std::string beginning = "huecraft-run-", keeping = "in-use";

    /// Whether the folder is this run's. One that cannot be kept is used all the same.
    bool kept() {
        if (kept_ >= 0) close(kept_);
        kept_ = open((path_ / keeping).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        return kept_ < 0 ? errno != ENOENT : keep_from_clearing(kept_);
    }

    fs::path path_;
    int kept_ = -1;
};

volatile pid_t working_child = 0;

void pass_on(int signal) {
    if (working_child > 0) kill(working_child, signal);
}

/// The signals that end the command from outside. They are passed on to its child, which hears those of a
/// terminal too; its folder is to be cleared away afterwards.
class StayingToTidyUp {
  public:
    StayingToTidyUp() {
        for (size_t i = 0; i < count; ++i) before_[i] = std::signal(signals[i], pass_on);
    }
    StayingToTidyUp(const StayingToTidyUp&) = delete;
    ~StayingToTidyUp() { leave(); }
    void leave() {
        for (size_t i = 0; i < count; ++i) std::signal(signals[i], before_[i]);
    }

  private:
    static constexpr int signals[] = {SIGINT, SIGQUIT, SIGHUP, SIGTERM};
    static constexpr size_t count = std::size(signals);
    using Handler = void (*)(int);
    Handler before_[count];
};

}  // namespace

fs::path library(const std::string& named) {
    if (named == "-") throw Unusable("--library", "found -, expected a file");
    return named.empty() ? beside_the_command("HuecraftiOS12.so", "the library") : fs::path(named);
}

fs::path data_folder() {
    const fs::path folder =
        fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "share" / "huecraft";
    if (!fs::exists(folder / "Huecraft.bundle"))
        throw Unusable(folder / "Huecraft.bundle",
                       "the pictures of the preview are missing; install the command again");
    return folder;
}

void Workshop::place_theme(const std::string& name, const std::string& contents) const {
    const fs::path place = theme(name);
    std::ofstream file(place, std::ios::binary);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    file.close();
    if (!file) no_room_in(device.parent_path().parent_path(), errno);
}

fs::path Workshop::theme(const std::string& name) const { return device / theme_folder / name; }

void Workshop::furnish() const {
    fs::create_directories(device / theme_folder);
    fs::create_directories(device / "tmp");
}

void Workshop::install_settings_pictures() const {
    const fs::path bundle = data_folder() / "Huecraft.bundle",
                   place = device / "Library" / "PreferenceBundles";
    fs::create_directories(place);
    fs::copy(bundle, place / "Huecraft.bundle", fs::copy_options::recursive);
}

/// Inputs are bounded by what is in them. This is for what was overlooked: the memory that is written to,
/// with the stacks of the decoders' threads, of which little is.
static void bound_memory() {
#if !__has_feature(address_sanitizer)
    constexpr rlim_t bytes = 640 << 20;
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_DATA, &limit);
#endif
}

pid_t start_child(const std::function<Status()>& work) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw Unusable("a process", std::string("cannot be started: ") + std::strerror(errno));
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        bound_memory();
        std::exit(static_cast<int>(complete([&] {
            const Status status = work();
            require_sound_phone();
            return status;
        })));
    }
    return child;
}

ChildEnd await_child(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) <= static_cast<int>(Status::unusable))
        return {static_cast<Status>(WEXITSTATUS(status)), {}};
    const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    const bool was_asked_to =
        signal == SIGINT || signal == SIGTERM || signal == SIGHUP || signal == SIGQUIT || signal == SIGPIPE;
    if (was_asked_to) return {Status::unusable, {}};
    const std::string stopped = "the simulated phone stopped";
    return {Status::unusable, signal ? stopped + ": " + strsignal(signal) : stopped};
}

Status in_child(const std::function<Status()>& work) {
    StayingToTidyUp staying;
    working_child = start_child([&] {
        staying.leave();
        return work();
    });
    const auto [status, stopped] = await_child(working_child);
    if (!stopped.empty()) std::fprintf(stderr, "huecraft: %s\n", stopped.c_str());
    return status;
}

Status in_workshop(const std::function<Status(const Workshop&)>& work) {
    try {
        const TemporaryFolder folder;
        require_room(folder.path());
        const Workshop workshop{folder.path() / "device"};
        workshop.furnish();
        return in_child([&] { return work(workshop); });
    } catch (const Unusable& unusable) {
        complain(unusable.file(), unusable.what());
    } catch (const fs::filesystem_error& failure) {
        complain(failure.path1(), error_in_words(failure.code().value()));
    }
    return Status::unusable;
}

}  // namespace command
