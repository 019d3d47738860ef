#include "fuzz.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

namespace fuzz {

test::Phone& phone(const test::Phone::Options& options) {
    static std::optional<test::Phone> phone;
    if (!phone) {
        phone.emplace();
        phone->make_folder(test::theme_folder);
        phone->start(options);
    }
    return *phone;
}

void put(const std::string& device_path, std::string_view bytes) {
    const int file = open(phone().host(device_path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (close(file) != 0 || written != static_cast<ssize_t>(bytes.size())) std::abort();
}

void clear_folder(const std::string& device_path) {
    for (const auto& entry : std::filesystem::directory_iterator(phone().host(device_path)))
        std::filesystem::remove_all(entry.path());
}

}  // namespace fuzz
