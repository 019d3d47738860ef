// What becomes of mutants: each is built and judged by the tests that reach it.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "files.h"
#include "judges.h"
#include "mutants.h"
#include "scratch_build.h"

namespace mutate {

struct Candidate {
    std::string file;  // from the root
    Mutant mutant;
};

enum class Fate { killed, survived, not_compiled };

struct Verdict {
    Fate fate;
    std::string by;  // the program that killed it, and the case if it names one
};

class Trial {
  public:
    Trial(fs::path root, fs::path build, const std::vector<Judges>& judges)
        : root_(std::move(root)),
          build_(std::move(build)),
          judges_(judges) {}

    /// Whether an image that is judged holds the file.
    bool holds(const std::string& file);

    /// Throws when the tests fail without any change, of which they are asked once for each folder.
    Verdict judge(const Candidate& candidate);

  private:
    struct Place {
        explicit Place(const fs::path& build, const std::string& image)
            : made(build, image, scratch.path()) {}
        ScratchFolder scratch;
        ScratchBuild made;
    };
    Place& place_of(const Judges& judges);
    void see_pass_unchanged(const Judges& judges, const std::string& file);
    /// The program that fails, or "".
    std::string first_that_fails(const Judges& judges, Place& place);

    fs::path root_, build_;
    const std::vector<Judges>& judges_;
    std::map<std::string, Place> places_;         // by image
    std::map<std::string, bool> pass_unchanged_;  // by folder
};

}  // namespace mutate
