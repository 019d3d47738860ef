// The device's file system: paths are walked here, component by component, because the host would take an
// absolute link to its own root.
#include "phone/file_system.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <vector>

#include "phone/host_failures.h"

namespace sim {
namespace {

std::string& root() {
    static std::string folder;
    return folder;
}

int root_descriptor = -1;

std::vector<std::string>& denied_folders() {
    static std::vector<std::string> folders;
    return folders;
}

/// Of a path without links.
bool is_denied(const std::string& device_path) {
    return std::ranges::any_of(denied_folders(), [&](const std::string& folder) {
        return device_path.starts_with(folder) &&
               (device_path.size() == folder.size() || device_path[folder.size()] == '/');
    });
}

constexpr int most_links = 32;  // as many as the device's kernel follows in one path

enum class Found { nothing, link, folder, other };

Found look(const std::string& device_path) {
    struct stat status;
    if (lstat((root() + device_path).c_str(), &status) != 0) {
        note_host_failure(device_path, errno);
        return Found::nothing;
    }
    if (S_ISLNK(status.st_mode)) return Found::link;
    return S_ISDIR(status.st_mode) ? Found::folder : Found::other;
}

/// Components still to be walked, the next one last.
using Pending = std::vector<std::string>;

void push_components(Pending& pending, std::string_view path) {
    const size_t first = pending.size();
    for (size_t start = 0; start < path.size();) {
        size_t end = path.find('/', start);
        if (end == path.npos) end = path.size();
        if (end > start)
            pending.insert(pending.begin() + static_cast<ptrdiff_t>(first),
                           std::string(path.substr(start, end - start)));
        start = end + 1;
    }
}

std::optional<std::string> target_of(const std::string& device_path) {
    char target[PATH_MAX];
    const ssize_t length = readlink((root() + device_path).c_str(), target, sizeof target);
    if (length < 0) note_host_failure(device_path, errno);
    if (length <= 0) return std::nullopt;
    return std::string(target, static_cast<size_t>(length));
}

}  // namespace

void mount_root(const std::string& host_folder) {
    root() = host_folder;
    root_descriptor = open(host_folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

void deny_folders(std::vector<std::string> device_folders) { denied_folders() = std::move(device_folders); }

std::optional<std::string> resolved_device_path(std::string_view device_path, LastLink last) {
    if (root().empty() || device_path.empty() || device_path.find('\0') != device_path.npos)
        return std::nullopt;
    const bool names_a_folder = device_path.ends_with('/');  // and then a link at the end is on the way to it
    Pending pending;
    push_components(pending, device_path);

    std::string walked;  // "/var/mobile", or nothing for the root
    Found here = Found::folder;
    int links = 0;
    while (!pending.empty()) {
        const std::string component = std::move(pending.back());
        pending.pop_back();
        if (component == ".") continue;
        if (component == "..") {
            if (here != Found::folder) return std::nullopt;
            walked.resize(walked.empty() ? 0 : walked.rfind('/'));
            continue;
        }
        const std::string next = walked + "/" + component;
        here = here == Found::folder ? look(next) : Found::nothing;
        const bool kept = last == LastLink::keep && pending.empty() && !names_a_folder;
        if (here != Found::link || kept) {
            walked = next;
            continue;
        }
        auto target = target_of(next);
        if (!target || ++links > most_links) return std::nullopt;
        if (target->starts_with('/')) walked.clear();
        here = Found::folder;
        push_components(pending, *target);
    }
    if (walked.empty()) return "/";
    return names_a_folder ? walked + "/" : walked;
}

std::optional<std::string> host_path(std::string_view device_path, LastLink last) {
    auto resolved = resolved_device_path(device_path, last);
    errno = resolved ? EPERM : ENOENT;
    if (!resolved || is_denied(*resolved)) return std::nullopt;
    return root() + *resolved;
}

int open_file(std::string_view device_path, int flags) {
    // Without links, "." and ".." in it, a path is the same on the device and below the root folder. Whether
    // links are in it the host's kernel decides as it opens the file.
    const std::string below_root(
        device_path.substr(std::min(device_path.find_first_not_of('/'), device_path.size())));
    const bool is_plain = !below_root.empty() && below_root.size() == std::strlen(below_root.c_str()) &&
                          !below_root.starts_with('.') && below_root.find("/.") == below_root.npos;
    if (is_plain && denied_folders().empty()) {
        open_how how{};
        how.flags = static_cast<uint64_t>(flags);
        how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
        const long opened = syscall(SYS_openat2, root_descriptor, below_root.c_str(), &how, sizeof how);
        if (opened >= 0 || errno == ENOENT || errno == ENOTDIR) return static_cast<int>(opened);
    }
    const auto host = host_path(device_path);
    const int opened = host ? open(host->c_str(), flags) : -1;
    if (opened < 0) note_host_failure(device_path, errno);
    return opened;
}

}  // namespace sim
