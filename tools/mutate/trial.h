// What becomes of mutants: each is built and judged by the tests that reach it.
#pragma once
#include <map>
#include <set>
#include <string>
#include <vector>

#include "cases.h"
#include "files.h"
#include "judges.h"
#include "mutants.h"
#include "scratch_build.h"

namespace mutate {

struct Candidate {
    std::string file;  // from the root
    Mutant mutant;
};

/// In this order: of what becomes of a mutant in several images the last counts.
enum class Fate { not_compiled, same_code, survived, killed };

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

    /// These will be judged. It is worth asking first which cases reach what, unless they are few.
    void expect(const std::vector<Candidate>& candidates);

    /// In one image after the other, until a test kills it. Throws when the tests fail without any change, of
    /// which each program is asked once.
    Verdict judge(const Candidate& candidate);

  private:
    struct Place {
        Place(const fs::path& build, const std::string& image, const fs::path& changing)
            : made(build, image, changing, scratch.path()),
              cases(build, made, scratch.path()) {}
        ScratchFolder scratch;
        ScratchBuild made;
        Cases cases;
    };
    Place& place_of(const Judges& judges);
    std::set<fs::path> asked_about_in(const std::string& image, const Place& place) const;
    Verdict judge(const Candidate& candidate, const Judges& judges, Place& place);

    fs::path root_, build_;
    const std::vector<Judges>& judges_;
    std::map<std::pair<std::string, std::string>, Place> places_;  // by image and outermost folder
    std::set<fs::path> asked_about_;                               // the files of many
};

}  // namespace mutate
