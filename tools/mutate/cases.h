// The cases that judge an image, and which of them reach what.
#pragma once
#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "judges.h"
#include "scratch_build.h"

namespace mutate {

class Cases {
  public:
    Cases(fs::path build, ScratchBuild& made, const fs::path& scratch);

    /// Sees that every case passes without any change, each once, and throws when one fails: then there is
    /// nothing to judge by. Of these files, if there are any, it learns what each suite reaches, with an
    /// image that counts.
    void prepare(const Judges& judges, const std::set<fs::path>& files);

    /// The program and the case that fails with the image as it was made last, or "". It asks the cases that
    /// failed lately, then the suites that reach the line, and at last the others: what the compiler computes
    /// or lays out is not counted.
    std::string first_that_fails(const Judges& judges, const fs::path& file, size_t line);

  private:
    struct Suite {
        std::string name;
        std::map<fs::path, std::set<size_t>> reached;
    };
    struct Asked {
        std::string program, filter;  // as gtest reads it; "" for all cases
    };
    std::vector<Suite> suites_of(const Judges& judges, const std::string& program) const;
    void learn_reach(const Judges& judges, const std::string& program);
    std::string first_that_fails(const Judges& judges, const Asked& asked, const std::string& also_set = "");
    std::string first_that_fails(const Judges& judges, const std::vector<Asked>& all);
    std::string settings(const Judges& judges) const;
    std::string path_of(const Judges& judges, const std::string& program) const;

    fs::path build_, temporary_, profiles_;
    ScratchBuild& made_;
    std::map<std::string, std::vector<Suite>> suites_;  // by program; none of one whose reach was not asked
    std::deque<Asked> failed_lately_;
};

}  // namespace mutate
