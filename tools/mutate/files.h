// Files, whole.
#pragma once
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "failure.h"

namespace mutate {

namespace fs = std::filesystem;

inline std::string read_file(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    if (!file.is_open() || file.bad() || fs::is_directory(path))
        throw Failure(path.string() + ": it cannot be read");
    return text.str();
}

inline void write_file(const fs::path& path, const std::string& contents) {
    std::ofstream file(path, std::ios::binary);
    if (!(file << contents << std::flush)) throw Failure(path.string() + ": it cannot be written");
}

/// A folder that is gone with the object.
class ScratchFolder {
  public:
    ScratchFolder() {
        std::string pattern = (fs::temp_directory_path() / "huecraft-mutants-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw Failure("no folder can be made as " + pattern);
        path_ = pattern;
        // For cases that give up their rights.
        fs::permissions(path_, fs::perms::group_exec | fs::perms::others_exec, fs::perm_options::add);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

}  // namespace mutate
