#include "cli/leftovers.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

namespace command {
namespace {

namespace fs = std::filesystem;

/// What mkstemp puts at the end.
constexpr size_t made_letters = 6;

void for_each_of_ours(const fs::path& folder, const std::string& beginning,
                      const std::function<void(const fs::path&)>& work) {
    std::error_code failure;
    fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, failure);
    for (; !failure && entries != fs::directory_iterator(); entries.increment(failure)) {
        const std::string name = entries->path().filename();
        struct stat status;
        if (name.size() == beginning.size() + made_letters && name.starts_with(beginning) &&
            lstat(entries->path().c_str(), &status) == 0 && status.st_uid == geteuid())
            work(entries->path());
    }
}

/// Does the work if nobody keeps the file.
void if_left(const fs::path& file, const std::function<void()>& work) {
    const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (opened < 0) return;
    if (flock(opened, LOCK_EX | LOCK_NB) == 0) work();
    close(opened);
}

}  // namespace

bool keep_from_clearing(int descriptor) {
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
    struct stat status;
    return fstat(descriptor, &status) != 0 || status.st_nlink > 0;
}

void clear_drafts(const fs::path& folder, const std::string& beginning) {
    for_each_of_ours(folder, beginning,
                     [](const fs::path& file) { if_left(file, [&] { unlink(file.c_str()); }); });
}

void clear_folders(const fs::path& folder, const std::string& beginning, const std::string& keeping) {
    for_each_of_ours(folder, beginning, [&](const fs::path& left) {
        if_left(left / keeping, [&] {
            std::error_code ignored;
            fs::remove_all(left, ignored);
        });
        // One that was killed before it kept itself is empty; another is not removed by this.
        rmdir(left.c_str());
    });
}

}  // namespace command
