// A subcommand that plays scripts.
#pragma once
#include <algorithm>
#include <nlohmann/json.hpp>

#include "animation.h"
#include "command_run.h"

namespace test {

class ScriptCommand : public Command {
  protected:
    using Json = nlohmann::json;

    explicit ScriptCommand(const char* subcommand) : subcommand_(subcommand) {}

    Outcome play(std::string_view script, std::vector<std::string> options = {}) const {
        write("s", script);
        options.insert(options.begin(), {subcommand_, "--script", "s"});
        return run(options);
    }
    /// What the script's run says in JSON.
    Json played(std::string_view script, std::vector<std::string> options = {}) const {
        options.push_back("--json");
        const Outcome outcome = play(script, options);
        EXPECT_LE(outcome.status, 1) << outcome.err;
        return Json::parse(outcome.out, nullptr, false);
    }
    /// The one line that is said of a script that cannot be played.
    std::string complaint(std::string_view script, std::vector<std::string> options = {}) const {
        const Outcome outcome = play(script, options);
        EXPECT_EQ(outcome.status, 2) << script;
        EXPECT_EQ(outcome.out, "") << script;
        EXPECT_EQ(lines(outcome.err), 1u) << outcome.err;
        EXPECT_TRUE(outcome.err.starts_with("huecraft: ")) << outcome.err;
        return outcome.err.substr(std::min(size_t{10}, outcome.err.size()));
    }
    /// That a recording is the one in the documents.
    void expect_documented(const std::string& recording, const std::string& documented) const {
        const Animation made = read_animation(path(recording)),
                        shown = read_animation(SOURCE_FOLDER "/docs/pictures/" + documented);
        ASSERT_EQ(made.frames.size(), shown.frames.size());
        for (size_t i = 0; i < made.frames.size(); ++i) {
            EXPECT_EQ(made.frames[i].seconds, shown.frames[i].seconds) << i;
            ASSERT_EQ(made.frames[i].pixels.size(), shown.frames[i].pixels.size()) << i;
            EXPECT_LT(strays(made.frames[i].pixels, shown.frames[i].pixels), 20) << i;
        }
    }

  private:
    const char* subcommand_;
};

}  // namespace test
