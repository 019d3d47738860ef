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
    /// Whether it says that it is the package of huecraft-describe; else it is to be the library's.
    bool is_of_describe() const;
    /// The same of the settings pane.
    bool is_of_settings() const;
    /// Whether it says that it is the library's package for the A12, whose dylib has two slices.
    bool is_for_a12() const;
    /// Whether it installs into the folder of packaged themes.
    bool is_of_themes() const;
    /// The one dylib, wherever it lies; of the package of huecraft-describe that executable, of the settings
    /// pane's its binary. A package of themes has none.
    const PackagedFile& image() const;

  private:
    bool says_it_is(const std::string& name) const;
};

inline constexpr const char* describe_path = "/usr/bin/huecraft-describe";
inline constexpr const char* settings_path =
    "/Library/PreferenceBundles/HuecraftSettings.bundle/HuecraftSettings";

/// Throws Unusable, naming the file, for what is not a package, is damaged, or does not have exactly one
/// dylib, the executable, the binary or themes, whichever it should have.
Package open_package(const std::string& bytes, const std::string& file);

}  // namespace command
