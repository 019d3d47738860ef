#include "phone/host_failures.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace sim {
namespace {

std::string& first() {
    static std::string line;
    return line;
}

constexpr int on_a_sound_device[] = {0,      ENOENT, ENOTDIR, EISDIR,       EEXIST, ENOTEMPTY,
                                     EINVAL, ELOOP,  EPERM,   ENAMETOOLONG, ENXIO,  EBUSY};

}  // namespace

void note_host_failure(std::string_view device_path, int error) {
    if (!first().empty() || std::ranges::find(on_a_sound_device, error) != std::end(on_a_sound_device))
        return;
    const int kept = errno;
    first() = std::string(device_path) + ": " + std::strerror(error);
    errno = kept;
}

std::string take_host_failure() { return std::exchange(first(), {}); }

}  // namespace sim
