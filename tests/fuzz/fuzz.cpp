#include "fuzz.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

#include "objc/string.h"

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

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    objc::adopt_strings();
    // What a target expects, and does not hold, is a finding.
    testing::FLAGS_gtest_break_on_failure = true;
    setenv("HUECRAFT_LIBRARY", FUZZED_LIBRARY, 0);
    return 0;
}
