#include "harness/fuzz.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

namespace fuzz {

test::Phone& phone_without_library(const test::Phone::Options& options) {
    static std::optional<test::Phone> phone;
    if (!phone) {
        phone.emplace();
        phone->make_folder(test::theme_folder);
        phone->boot(options);
    }
    return *phone;
}

test::Phone& phone(const test::Phone::Options& options) {
    test::Phone& phone = phone_without_library(options);
    static const bool is_loaded = (phone.load(), true);
    (void)is_loaded;
    return phone;
}

void put(const std::string& device_path, std::string_view bytes) {
    const int file = open(phone_without_library().host(device_path).c_str(),
                          O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (close(file) != 0 || written != static_cast<ssize_t>(bytes.size())) std::abort();
}

void clear_folder(const std::string& device_path) {
    for (const auto& entry : std::filesystem::directory_iterator(phone_without_library().host(device_path)))
        std::filesystem::remove_all(entry.path());
}

}  // namespace fuzz
