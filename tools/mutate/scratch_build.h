// An image of the build, linked again with one source changed, beside the build.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "files.h"

namespace mutate {

class ScratchBuild {
  public:
    /// Asks ninja how the image is made. Throws when the build knows nothing of it.
    ScratchBuild(const fs::path& build, const std::string& image, const fs::path& scratch);

    /// Whether a unit of the image is the file, or includes it.
    bool holds(const fs::path& file) const { return !units_of(file).empty(); }

    /// Makes the image as if these were the file's contents. False when a unit does not compile.
    bool make(const fs::path& file, const std::string& contents) const;

    fs::path image() const { return scratch_ / "image" / fs::path(image_).filename(); }

  private:
    struct Unit {
        std::string object, command;
        fs::path source;
    };
    void take_unit(std::string command);
    std::vector<const Unit*> units_of(const fs::path& file) const;

    fs::path build_, scratch_;
    std::string image_, link_;
    std::vector<Unit> units_;
    std::map<fs::path, std::vector<const Unit*>> includers_;
};

}  // namespace mutate
