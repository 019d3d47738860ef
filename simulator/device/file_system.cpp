// The device's file system: paths are walked here, component by component, because the host would take an
// absolute link to its own root.
#include "device/file_system.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <vector>

namespace sim {
namespace {

std::string& root() {
    static std::string folder;
    return folder;
}

int root_descriptor = -1;

constexpr int most_links = 32;  // as many as the device's kernel follows in one path

enum class Found { nothing, link, folder, other };

Found look(const std::string& host_path) {
    struct stat status;
    if (lstat(host_path.c_str(), &status) != 0) return Found::nothing;
    if (S_ISLNK(status.st_mode)) return Found::link;
    return S_ISDIR(status.st_mode) ? Found::folder : Found::other;
}

/// Whether the path has components only, and neither ".", ".." nor an empty one.
bool is_plain(std::string_view path) {
    for (size_t start = 0; start <= path.size();) {
        const size_t end = std::min(path.find('/', start), path.size());
        const std::string_view component = path.substr(start, end - start);
        if (component.empty() || component == "." || component == "..") return false;
        start = end + 1;
    }
    return true;
}

/// Whether the path is the way to where it leads: no component that exists is a link. The host's kernel tells in one
/// step; where it cannot, the answer is no.
bool leads_straight(std::string_view path) {
    if (!is_plain(path)) return false;
    const size_t slash = path.rfind('/');
    if (slash != path.npos) {
        const std::string folders(path.substr(0, slash));
        open_how how{};
        how.flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
        how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
        const long opened = syscall(SYS_openat2, root_descriptor, folders.c_str(), &how, sizeof how);
        if (opened < 0) return errno == ENOENT || errno == ENOTDIR;  // before any link
        close(static_cast<int>(opened));
    }
    return look(root() + "/" + std::string(path)) != Found::link;
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

std::optional<std::string> target_of(const std::string& link) {
    char target[PATH_MAX];
    const ssize_t length = readlink(link.c_str(), target, sizeof target);
    if (length <= 0) return std::nullopt;
    return std::string(target, static_cast<size_t>(length));
}

}  // namespace

void mount_root(const std::string& host_folder) {
    root() = host_folder;
    root_descriptor = open(host_folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

std::optional<std::string> resolved_device_path(std::string_view device_path, LastLink last) {
    if (root().empty() || device_path.empty() || device_path.find('\0') != device_path.npos)
        return std::nullopt;
    if (device_path.starts_with('/') && leads_straight(device_path.substr(1))) return std::string(device_path);
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
        here = here == Found::folder ? look(root() + next) : Found::nothing;
        const bool kept = last == LastLink::keep && pending.empty() && !names_a_folder;
        if (here != Found::link || kept) {
            walked = next;
            continue;
        }
        auto target = target_of(root() + next);
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
    if (!resolved) return std::nullopt;
    return root() + *resolved;
}

}  // namespace sim
