// A package for the device, opened.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

namespace command {

struct PackagedFile {
    enum class Kind { file, folder, other };

    std::string path;  ///< as on the device, from "/"; "/" is the root
    Kind kind = Kind::other;
    unsigned mode = 0;     ///< the permissions
    bool of_root = false;  ///< user and group
    std::string contents;

    std::string name() const { return path.substr(path.rfind('/') + 1); }
};

struct Package {
    size_t size = 0;                    ///< of the package itself, in bytes
    std::vector<std::string> members;   ///< what it consists of, in order
    size_t trailing = 0;                ///< bytes after the last of them
    std::string format;                 ///< what "debian-binary" says
    std::vector<PackagedFile> control;  ///< what is for the installer
    std::vector<PackagedFile> data;     ///< what it installs

    const PackagedFile* installed(const std::string& path) const;
    /// The one dylib, wherever it lies.
    const PackagedFile& dylib() const;
};

/// Throws Unusable, naming the file, for what is no package, is damaged, or has not exactly one dylib.
Package open_package(const std::string& bytes, const std::string& file);

}  // namespace command
