#include "cases.h"

#include <algorithm>
#include <iterator>

#include "process.h"

namespace mutate {
namespace {

constexpr int program_patience = 900;  // seconds, of a machine that is busy
// A case that takes more processor time hangs, and so do one that fills the memory and one that waits for
// minutes: none takes a tenth of this.
constexpr const char* case_limit = " --limit=5 --patience=300";
constexpr const char* memory_limit = "ulimit -v 8000000; ";
constexpr std::string_view failed_case = "FAILED: ";
constexpr size_t remembered = 6;  // that many failed lately

/// The name in the line that a test program prints of a case that failed; "" until the line is whole.
std::string failed_case_of(std::string_view output) {
    const size_t found = output.starts_with(failed_case) ? 0 : output.find("\n" + std::string(failed_case));
    if (found == output.npos) return "";
    const size_t begin = output.find(failed_case, found) + failed_case.size(), end = output.find('\n', begin);
    return end == output.npos ? "" : std::string(output.substr(begin, end - begin));
}

/// The option that asks for these cases, or for all, but for those that do not judge.
std::string filter_of(const Judges& judges, std::string filter) {
    for (const std::string& left_out : judges.left_out)
        filter += (filter.find('-') == filter.npos ? "-" : ":") + left_out;
    return filter.empty() ? "" : " --gtest_filter=" + mutate::quoted(filter);
}

}  // namespace

Cases::Cases(fs::path build, ScratchBuild& made, const fs::path& scratch)
    : build_(std::move(build)),
      temporary_(scratch / "temporary"),
      profiles_(scratch / "profiles"),
      made_(made) {}

std::string Cases::settings(const Judges& judges) const {
    const fs::path image = made_.image();
    std::string settings = "TMPDIR=" + quoted(temporary_);
    for (const auto& [name, value] : judges.variables) {
        const bool is_image = value == judges.image;
        const bool is_folder = fs::path(value) == fs::path(judges.image).parent_path();
        settings += " " + name + "=" +
                    quoted(is_image    ? image
                           : is_folder ? image.parent_path()
                                       : build_ / value);
    }
    return settings;
}

/// A program may be the image itself.
std::string Cases::path_of(const Judges& judges, const std::string& program) const {
    const std::string built = "bin/" + program;
    return built == judges.image ? quoted(made_.image()) : built;
}

/// A suite's name stands at the beginning of a line, and ends in a point.
std::vector<Cases::Suite> Cases::suites_of(const Judges& judges, const std::string& program) const {
    const Ended listed = run(settings(judges) + " " + path_of(judges, program) + " --gtest_list_tests",
                             build_, program_patience);
    if (!listed.well) throw Failure(program + " does not say what its cases are: " + listed.output);
    std::vector<Suite> suites;
    std::istringstream lines(listed.output);
    for (std::string line; std::getline(lines, line);)
        if (const size_t point = line.find('.'); !line.starts_with(' ') && point != line.npos)
            suites.push_back({.name = line.substr(0, point), .reached = {}});
    return suites;
}

std::string Cases::first_that_fails(const Judges& judges, const Asked& asked, const std::string& also_set) {
    fs::remove_all(temporary_);
    fs::create_directories(temporary_);
    const std::string command = memory_limit + settings(judges) + " " + also_set + " exec " +
                                path_of(judges, asked.program) + case_limit + filter_of(judges, asked.filter);
    // The first case that fails is enough.
    const Ended ended = run(command, build_, program_patience,
                            [](std::string_view output) { return !failed_case_of(output).empty(); });
    return ended.well ? "" : asked.program + " " + failed_case_of(ended.output);
}

void Cases::learn_reach(const Judges& judges, const std::string& program) {
    for (Suite& suite : suites_of(judges, program)) {
        fs::create_directories(profiles_);
        // Each process adds to what is there, at once.
        const std::string failing = first_that_fails(judges, {program, suite.name + ".*"},
                                                     "LLVM_PROFILE_FILE=" + quoted(profiles_ / "%c%m"));
        if (!failing.empty()) throw Failure("without any change the tests fail: " + failing);
        if (!fs::is_empty(profiles_))
            for (const auto& [file, counts] : made_.counts_in(profiles_))
                for (const auto& [line, count] : counts)
                    if (count > 0) suite.reached[file].insert(line);
        fs::remove_all(profiles_);
        suites_[program].push_back(std::move(suite));
    }
}

void Cases::prepare(const Judges& judges, const std::set<fs::path>& files) {
    bool made = false;
    for (const std::string& program : judges.programs) {
        if (!suites_.try_emplace(program).second) continue;
        if (!made && !(files.empty() ? made_.make_unchanged() : made_.make_counting(files)))
            throw Failure(judges.image + " cannot be made again without any change");
        made = true;
        if (!files.empty())
            learn_reach(judges, program);
        else if (const std::string failing = first_that_fails(judges, {program, ""}); !failing.empty())
            throw Failure("without any change the tests fail: " + failing);
    }
}

std::string Cases::first_that_fails(const Judges& judges, const fs::path& file, size_t line) {
    std::vector<Asked> reaching, others;
    // What judges another folder does not judge this one, and could not run: its variables are not set.
    std::ranges::copy_if(failed_lately_, std::back_inserter(reaching), [&](const Asked& one) {
        return std::ranges::find(judges.programs, one.program) != judges.programs.end();
    });
    for (const std::string& program : judges.programs) {
        const std::vector<Suite>& suites = suites_[program];
        std::string asked;
        size_t count = 0;
        for (const Suite& suite : suites)
            if (const auto found = suite.reached.find(file);
                found != suite.reached.end() && found->second.contains(line)) {
                reaching.push_back({program, suite.name + ".*"});
                asked += (count++ == 0 ? "-" : ":") + suite.name + ".*";
            }
        if (count == 0 || count < suites.size()) others.push_back({program, asked});
    }
    const std::string failing = first_that_fails(judges, reaching);
    return failing.empty() ? first_that_fails(judges, others) : failing;
}

std::string Cases::first_that_fails(const Judges& judges, const std::vector<Asked>& all) {
    for (auto next = all.begin(); next != all.end();) {
        // One start of a program is enough for what follows one another.
        Asked asked = *next;
        for (++next; next != all.end() && next->program == asked.program; ++next) {
            if (asked.filter.empty() || next->filter.empty()) break;
            asked.filter += ":" + next->filter;
        }
        const std::string failing = first_that_fails(judges, asked);
        if (failing.empty()) continue;
        // "<program> <case>", and why, if a signal ended it
        const size_t begin = asked.program.size() + 1;
        const Asked killer{asked.program, failing.substr(begin, failing.find(':', begin) - begin)};
        if (killer.filter.empty()) return failing;
        std::erase_if(failed_lately_, [&](const Asked& one) {
            return one.program == killer.program && one.filter == killer.filter;
        });
        failed_lately_.push_front(killer);
        if (failed_lately_.size() > remembered) failed_lately_.pop_back();
        return failing;
    }
    return "";
}

}  // namespace mutate
