#include "cli/files.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <new>
#include <set>
#include <utility>

#include "cli/leftovers.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "objc/exception.h"
#include "simulator.h"

namespace command {
namespace {

namespace fs = std::filesystem;

struct Descriptor {
    int number = -1;
    explicit Descriptor(int opened) : number(opened) {}
    Descriptor(const Descriptor&) = delete;
    ~Descriptor() {
        if (number > STDERR_FILENO) ::close(number);
    }
};

std::string too_large(size_t bytes, const std::string& kind, size_t most) {
    return (bytes ? "it has " + std::to_string((bytes + (1 << 20) - 1) >> 20) + " MB"
                  : std::string("it has no end")) +
           "; a " + kind + " has at most " + std::to_string(most >> 20) + " MB";
}

[[noreturn]] void cannot_write(const std::string& file, int error) {
    throw Unusable(file, "cannot be written: " +
                             (error == ENOENT ? "the folder does not exist" : error_in_words(error)));
}

void write_whole(int descriptor, const std::string& contents, const std::string& file) {
    for (size_t written = 0; written < contents.size();) {
        const ssize_t count = ::write(descriptor, contents.data() + written, contents.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) cannot_write(file, errno);
        written += static_cast<size_t>(count);
    }
}

void await_bytes(int descriptor, const std::string& file) {
    constexpr int seconds = 5;
    pollfd input{descriptor, POLLIN, 0};
    if (poll(&input, 1, seconds * 1000) == 0)
        throw Unusable(file, "nothing came from it for " + std::to_string(seconds) + " seconds");
}

}  // namespace

std::string error_in_words(int error) {
    switch (error) {
        case ENOENT: return "there is no such file";
        case ENOTDIR: return "a part of the path is a file and not a folder";
        case EACCES:
        case EPERM: return "access is denied";
        case ELOOP: return "its symbolic links never end";
        case ENAMETOOLONG: return "the name is too long";
        case EISDIR: return "it is a folder and not a file";
        case EROFS: return "the file system is read-only";
        case ENOSPC: return "the disk is full";
        case EBADF: return "it is closed";
        default: return std::strerror(error);
    }
}

std::string read_input(const std::string& file, const std::string& kind, size_t most) {
    // Without waiting: a pipe that nobody writes to would hold up the other files of the run.
    const Descriptor input(file == "-" ? STDIN_FILENO
                                       : ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status;
    if (input.number < 0 || fstat(input.number, &status) != 0) throw Unusable(file, error_in_words(errno));
    if (S_ISDIR(status.st_mode)) throw Unusable(file, error_in_words(EISDIR));
    if (S_ISREG(status.st_mode) && static_cast<size_t>(status.st_size) > most)
        throw Unusable(file, too_large(static_cast<size_t>(status.st_size), kind, most));
    // A pipe or a device has no size that could be believed.
    std::string contents;
    for (;;) {
        if (file != "-" && !S_ISREG(status.st_mode)) await_bytes(input.number, file);
        char bytes[65536];
        const ssize_t count = ::read(input.number, bytes, sizeof bytes);
        if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
        if (count < 0) throw Unusable(file, "cannot be read: " + error_in_words(errno));
        if (count == 0) return contents;
        contents.append(bytes, static_cast<size_t>(count));
        if (contents.size() > most) throw Unusable(file, too_large(0, kind, most));
    }
}

/// A file beside its later place, gone again unless it is put there.
struct Output::Draft {
    explicit Draft(const std::string& place)
        : place_(place),
          // A name of its own: with an end added, the longest names would be too long.
          name_((fs::path(place).parent_path() / (draft_name + "XXXXXX")).string()),
          file_(make(name_)) {
        if (file_.number < 0) {
            name_.clear();
            cannot_write(place, errno);
        }
        const mode_t mask = umask(0);
        umask(mask);
        fchmod(file_.number, 0666 & ~mask);
    }
    Draft(const Draft&) = delete;
    ~Draft() {
        if (!name_.empty()) unlink(name_.c_str());
    }

    void write(const std::string& contents) { write_whole(file_.number, contents, place_); }
    void put_in_place() {
        // Some file systems say only now what could not be written. The file itself stays open, and kept.
        const int copy = fcntl(file_.number, F_DUPFD_CLOEXEC, 0);
        if (copy < 0 || (::close(copy) != 0 && errno != EINTR)) cannot_write(place_, errno);
        if (rename(name_.c_str(), place_.c_str()) != 0) cannot_write(place_, errno);
        name_.clear();
    }

  private:
    static inline const std::string draft_name = ".huecraft-draft-";

    static int make(std::string& name) {
        static std::set<fs::path> cleared;
        const fs::path folder = fs::path(name).parent_path();
        if (cleared.insert(folder).second) clear_drafts(folder, draft_name);
        for (const std::string pattern = name;;) {
            name = pattern;
            const int made = mkostemp(name.data(), O_CLOEXEC);
            if (made < 0 || keep_from_clearing(made)) return made;
            ::close(made);
        }
    }

    std::string place_, name_;
    Descriptor file_;
};

Output::Output(const std::string& file) : file_(file) {
    require_sound_phone();
    if (file == "-") {
        std::fflush(stdout);
        direct_ = STDOUT_FILENO;
        return;
    }
    struct stat status;
    const bool exists = stat(file.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) cannot_write(file, errno);
    if (!exists && lstat(file.c_str(), &status) == 0)
        throw Unusable(file, "cannot be written: it is a link to a file that does not exist");
    if (exists && S_ISDIR(status.st_mode)) cannot_write(file, EISDIR);
    if (exists && access(file.c_str(), W_OK) != 0) cannot_write(file, errno);
    if (exists && !S_ISREG(status.st_mode)) {
        direct_ = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
        if (direct_ < 0) cannot_write(file, errno);
        return;
    }
    // A link stays one: what it points to is replaced.
    draft_ = std::make_unique<Draft>(exists ? fs::canonical(file).string() : file);
}

Output::~Output() {
    if (direct_ > STDERR_FILENO) ::close(direct_);
}

void Output::write(const std::string& part) {
    if (draft_)
        draft_->write(part);
    else
        write_whole(direct_, part, file_ == "-" ? "standard output" : file_);
}

void Output::finish() {
    if (draft_) draft_->put_in_place();
}

void write_output(const std::string& file, const std::string& contents) {
    Output output(file);
    output.write(contents);
    output.finish();
}

void put(const fs::path& place, const std::string& contents) {
    fs::create_directories(place.parent_path());
    fs::remove_all(place);
    std::ofstream file(place, std::ios::binary);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    file.close();
    if (!file) throw Unusable(place, std::string("cannot be written: ") + std::strerror(errno));
}

void take_back(const fs::path& from, const fs::path& to) {
    require_sound_phone();
    if (!fs::exists(from)) {
        fs::remove(to);
        return;
    }
    const std::string now = read_input(from);
    if (fs::exists(to) && read_input(to) == now) return;
    fs::create_directories(fs::absolute(to).parent_path());
    write_output(to, now);
}

fs::path beside_the_command(const std::string& name, const std::string& what) {
    const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path().parent_path();
    fs::path installed = folder / "lib" / "huecraft" / name;
    if (fs::exists(installed)) return installed;
    if (fs::path built = folder / "lib" / name; fs::exists(built)) return built;
    throw Unusable(installed, what + " is missing; install the command again");
}

void make_folder(const std::string& folder) {
    require_sound_phone();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw Unusable(folder, "the folder cannot be made: " + error_in_words(error.value()));
}

void require_folder(const std::string& folder) {
    struct stat there;
    if (stat(folder.c_str(), &there) != 0)
        throw Unusable(folder, errno == ENOENT ? "there is no such folder" : error_in_words(errno));
    if (!S_ISDIR(there.st_mode)) throw Unusable(folder, "it is a file and not a folder");
}

void require_folder_or_nothing(const std::string& folder) {
    struct stat there;
    if (!folder.empty() && lstat(folder.c_str(), &there) == 0) require_folder(folder);
}

Status end_of_output(Status status) {
    if (output_is_whole()) return status;
    complain("standard output", "cannot be written: " + error_in_words(errno));
    return Status::unusable;
}

void require_absent(const std::string& file) {
    struct stat status;
    if (file != "-" && lstat(file.c_str(), &status) == 0)
        throw Unusable(file, "exists already; --force replaces it");
}

namespace {

struct KnownKind {
    OutputKind kind;
    const char* name;
    /// What such files begin with, behind blanks; some of it is enough.
    std::vector<std::string_view> beginnings;
};

const KnownKind known_kinds[] = {
    {OutputKind::picture, "PNG picture", {"\x89PNG\r\n\x1a\n"}},
    {OutputKind::page, "page of HTML", {"<!DOCTYPE html", "<!doctype html", "<html"}},
    {OutputKind::script, "state of a watched picture", {"watched("}},
    {OutputKind::package, "package", {"!<arch>\n"}},
    {OutputKind::property_list,
     "property list",
     {"bplist", "<?xml", "<!DOCTYPE plist", "<plist", "{", "(", "\"", "//", "/*", "\xef\xbb\xbf"}},
};

bool begins_as(const std::string& file, const KnownKind& kind) {
    const Descriptor input(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    char bytes[256];
    const ssize_t count = input.number < 0 ? -1 : ::read(input.number, bytes, sizeof bytes);
    if (count < 0) cannot_write(file, errno);
    std::string_view beginning(bytes, static_cast<size_t>(count));
    if (beginning.empty()) return true;  // there is nothing to lose
    beginning.remove_prefix(std::min(beginning.find_first_not_of(" \t\r\n"), beginning.size()));
    return std::ranges::any_of(kind.beginnings, [&](auto one) { return beginning.starts_with(one); });
}

}  // namespace

void require_replaceable(const std::string& output, OutputKind kind, const std::vector<std::string>& inputs) {
    struct stat there;
    if (output == "-" || stat(output.c_str(), &there) != 0 || !S_ISREG(there.st_mode)) return;
    for (const std::string& input : inputs) {
        struct stat read;
        if (input != "-" && stat(input.c_str(), &read) == 0 && read.st_dev == there.st_dev &&
            read.st_ino == there.st_ino)
            throw Unusable(output, "it is read as well, and would be replaced; --force replaces it");
    }
    const auto* known = std::ranges::find(known_kinds, kind, &KnownKind::kind);
    if (!begins_as(output, *known))
        throw Unusable(output,
                       std::string("it exists and is not a ") + known->name + "; --force replaces it");
}

void require_sound_phone() {
    const std::string failure = sim_host_failure();
    if (!failure.empty()) throw Unusable("the phone", "could not use " + failure);
}

void on_the_phone(const std::string& file, const std::function<void()>& work) {
    objc::AutoreleasePool pool;
    try {
        if (id raised = objc::caught(work)) throw Unusable(file, exception_in_words(raised));
    } catch (const std::bad_alloc&) {
        throw Unusable(file, out_of_memory);
    }
    require_sound_phone();
}

Status for_each_file(const std::vector<std::string>& files,
                     const std::function<Status(const std::string&)>& work) {
    Status all = Status::fine;
    for (const std::string& file : files) {
        try {
            on_the_phone(file, [&] { note(all, work(file)); });
        } catch (const Unusable& unusable) {
            complain(unusable.file(), unusable.what());
            note(all, Status::unusable);
        }
    }
    return all;
}

}  // namespace command
