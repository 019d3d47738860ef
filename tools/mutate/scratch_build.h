// An image of the build, linked again with sources changed, beside the build.
#pragma once
#include <map>
#include <set>
#include <string>
#include <vector>

#include "files.h"

namespace mutate {

enum class Made { not_compiled, same_code, changed };

class ScratchBuild {
  public:
    /// Asks ninja how the image is made, of which units that are or include something in `changing`, a
    /// folder; archives that are a part of it count as their members. Headers that do not include anything in
    /// `changing`, those of the standard library at least, are read once for all that is made. Throws when
    /// the build knows nothing of the image.
    ScratchBuild(const fs::path& build, const std::string& image, const fs::path& changing,
                 const fs::path& scratch);

    /// Whether a unit of the image is the file, or includes it.
    bool holds(const fs::path& file) const { return !units_of(file).empty(); }

    /// Makes the image as if these were the file's contents, unless that is the code as it was: what changed
    /// is left out on this processor.
    Made make(const fs::path& file, const std::string& contents);

    /// Makes the image as it is; a false answer says that this way of making it does not work.
    bool make_unchanged() { return link(compile({&units_.front()}, "")); }

    /// Makes the image as it is, but so that it counts in a profile how often each line of these files is
    /// reached.
    bool make_counting(const std::set<fs::path>& files);

    /// What the profiles in a folder say, by file: how often each line was reached, of those that can be.
    std::map<fs::path, std::map<size_t, unsigned long>> counts_in(const fs::path& profiles) const;

    fs::path image() const { return scratch_ / "image" / fs::path(image_).filename(); }

  private:
    struct Unit {
        std::string object, command;
        fs::path source;
        std::string kind = {};  // the command of all that are compiled alike
    };
    void take_unit(std::string command, const std::string& members);
    void take_dependencies();
    std::string command_for(const Unit& unit, const fs::path& source, const fs::path& object) const;
    std::vector<const Unit*> units_of(const fs::path& file) const;
    const std::string& headers_read_once(const std::string& kind);
    std::string read_once(const Unit& unit, const std::string& includes);
    /// Units and their objects; one that does not compile has none.
    using Objects = std::map<const Unit*, fs::path>;
    Objects compile(const std::vector<const Unit*>& units, const std::string& options);
    bool link(const Objects& objects, const std::string& options = "") const;
    /// The compiler sees the contents under the file's own name, which keeps what lies beside it in its
    /// place.
    Objects compile_with(const fs::path& file, const std::string& contents);
    std::string tool(const std::string& name) const;

    fs::path build_, changing_, scratch_;
    std::string image_, link_;
    std::vector<Unit> units_;
    std::map<fs::path, std::vector<const Unit*>> includers_;
    std::map<std::string, std::string> headers_read_once_;  // by kind
    size_t times_read_ = 0;
    std::map<const Unit*, std::string> unchanged_;  // objects that were needed
};

}  // namespace mutate
