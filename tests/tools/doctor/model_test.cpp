// huecraft doctor --model: what the simulator's classes have otherwise than the real system's is all on a
// list, with reasons.
#include <fstream>
#include <map>
#include <sstream>

#include "command_run.h"

namespace test {
namespace {

class ModelAgainstSystem : public Command {
  protected:
    std::vector<std::string> differences() const {
        const Outcome run = this->run({"doctor", "--model"});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        std::vector<std::string> all;
        std::istringstream lines(run.out);
        for (std::string line; std::getline(lines, line);) all.push_back(line);
        EXPECT_GT(all.size(), 20u);
        return all;
    }
    /// The kept differences with their reasons: in each paragraph a remark, and then what it explains.
    static std::map<std::string, std::string> kept() {
        std::map<std::string, std::string> all;
        std::string reason;
        std::ifstream lines(SOURCE_FOLDER "/resources/devices/model-differences.txt");
        for (std::string line; std::getline(lines, line);)
            if (line.empty())
                reason.clear();
            else if (line[0] == '#')
                reason += line;
            else
                all[line] = reason;
        return all;
    }
};

TEST_F(ModelAgainstSystem, EveryDifferenceIsOnTheListWithAReason) {
    const auto list = kept();
    for (const std::string& difference : differences()) {
        const auto found = list.find(difference);
        if (found == list.end())
            ADD_FAILURE() << difference
                          << "\n  follow the system, or put it with a reason into model-differences.txt";
        else
            EXPECT_GT(found->second.size(), 20u) << difference << " stands there without a reason";
    }
}

TEST_F(ModelAgainstSystem, NothingOnTheListIsStale) {
    const auto all = differences();
    for (const auto& [difference, reason] : kept())
        EXPECT_NE(std::find(all.begin(), all.end(), difference), all.end())
            << difference << " is not a difference any longer";
}

TEST_F(ModelAgainstSystem, TheKnownDifferencesAreSeen) {
    const auto all = differences();
    for (const char* known : {"unrecorded -[SpringBoard launched]",
                              "unrecorded -[CABackdropLayer blurRadius]", "unrecorded class _UIAppearance"})
        EXPECT_NE(std::find(all.begin(), all.end(), known), all.end()) << known;
}

}  // namespace
}  // namespace test
