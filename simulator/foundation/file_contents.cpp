#include "foundation/file_contents.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "foundation/text.h"
#include "phone/host_failures.h"

namespace sim {
namespace {

/// An open file. Its functions answer errno values.
class File {
  public:
    explicit File(int descriptor) : descriptor_(descriptor) {}
    File(const File&) = delete;
    ~File() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    bool is_open() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }

    template <class Bytes>
    int read_all(Bytes& contents) {
        struct stat status;
        if (fstat(descriptor_, &status) != 0) return errno;
        if (S_ISDIR(status.st_mode)) return EISDIR;
        if (!S_ISREG(status.st_mode)) return EINVAL;
        contents.resize(static_cast<size_t>(status.st_size));
        for (size_t done = 0; done < contents.size();) {
            const ssize_t count = read(descriptor_, contents.data() + done, contents.size() - done);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return errno;
            if (count == 0) contents.resize(done);
            done += static_cast<size_t>(count);
        }
        return 0;
    }

    int write_all(std::string_view contents) {
        while (!contents.empty()) {
            const ssize_t count = write(descriptor_, contents.data(), contents.size());
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) return errno;
            contents.remove_prefix(static_cast<size_t>(count));
        }
        return 0;
    }

  private:
    int descriptor_;
};

constexpr mode_t new_file_mode = 0644;

int write_to(const std::string& path, std::string_view contents, int flags) {
    File file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | flags, new_file_mode));
    return file.is_open() ? file.write_all(contents) : errno;
}

int write_atomically(const std::string& path, std::string_view contents) {
    std::string temporary = path.substr(0, path.rfind('/') + 1) + ".dat.nosync.XXXXXX";
    File file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.is_open()) return errno;
    int error = file.write_all(contents);
    if (!error && fchmod(file.descriptor(), new_file_mode) != 0) error = errno;
    if (!error && std::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
    if (error) unlink(temporary.c_str());
    return error;
}

int write_to_host(const std::string& path, std::string_view contents, Writing writing) {
    switch (writing) {
        case Writing::in_place: return write_to(path, contents, O_TRUNC);
        case Writing::new_only: return write_to(path, contents, O_EXCL);
        case Writing::atomic: return write_atomically(path, contents);
    }
    __builtin_unreachable();
}

}  // namespace

NSString* path_of(NSURL* url) {
    if (!url || !url->send<"isFileURL", bool>()) return nullptr;
    return url->send<"path", NSString*>();
}

std::optional<std::string> host_path_of(NSString* device_path, LastLink last) {
    const auto path = utf8_of(device_path);
    errno = ENOENT;
    return path ? host_path(*path, last) : std::nullopt;
}

template <class Bytes>
static int read_whole(const std::string& device_path, Bytes& contents) {
    // A pipe must not make the phone wait.
    File file(open_file(device_path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.is_open()) return errno;
    const int error = file.read_all(contents);
    note_host_failure(device_path, error);
    return error;
}
template <class Bytes>
static int read_whole(NSString* device_path, Bytes& contents) {
    const auto path = utf8_of(device_path);
    return path ? read_whole(*path, contents) : ENOENT;
}

int read_file(NSString* device_path, std::string& contents) { return read_whole(device_path, contents); }
int read_file(NSString* device_path, RawBytes& contents) { return read_whole(device_path, contents); }
int read_file(const std::string& device_path, std::vector<uint8_t>& contents) {
    return read_whole(device_path, contents);
}

int write_file(NSString* device_path, std::string_view contents, Writing writing) {
    const auto path = host_path_of(device_path);
    if (!path) return errno;
    const int error = write_to_host(*path, contents, writing);
    note_host_failure(*utf8_of(device_path), error);
    return error;
}

}  // namespace sim
