// What the pane's tests share: themes as files, and a disk that is full.
#pragma once
#include <sys/resource.h>

#include <csignal>
#include <string>
#include <vector>

#include "support/configuration.h"
#include "support/themes.h"

namespace test {

inline std::string in_themes(const std::string& file) { return theme_folder + file; }

/// An array of strings.
std::vector<std::string> texts_in(NSArray* array);
/// The names in a folder of the phone, hidden ones too, sorted.
std::vector<std::string> names_in(const Phone& phone, const std::string& folder);

/// A theme file of that name, whose name inside is `name`.
void put_theme(const Phone& phone, const std::string& file, const std::string& name);

/// While it lives no file grows beyond 64 bytes.
class FullDisk {
  public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit full{64, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

}  // namespace test
