#include "trial.h"

#include "process.h"

namespace mutate {
namespace {

constexpr int program_patience = 900;  // seconds, of a machine that is busy
// A case that takes more processor time hangs: the longest of them takes a tenth of this.
constexpr const char* case_limit = " --limit=20";
constexpr std::string_view failed_case = "FAILED: ";

/// The name in the line that a test program prints of a case that failed; "" until the line is whole.
std::string failed_case_of(std::string_view output) {
    const size_t found = output.starts_with(failed_case) ? 0 : output.find("\n" + std::string(failed_case));
    if (found == output.npos) return "";
    const size_t begin = output.find(failed_case, found) + failed_case.size(), end = output.find('\n', begin);
    return end == output.npos ? "" : std::string(output.substr(begin, end - begin));
}

}  // namespace

bool Trial::holds(const std::string& file) {
    return place_of(judges_of(judges_, file)).made.holds(root_ / file);
}

Trial::Place& Trial::place_of(const Judges& judges) {
    return places_.try_emplace(judges.image, build_, judges.image).first->second;
}

std::string Trial::first_that_fails(const Judges& judges, Place& place) {
    const fs::path temporary = place.scratch.path() / "temporary", image = place.made.image();
    std::string settings = "TMPDIR=" + quoted(temporary);
    for (const auto& [name, value] : judges.variables) {
        const bool is_image = value == judges.image;
        const bool is_folder = fs::path(value) == fs::path(judges.image).parent_path();
        settings += " " + name + "=" +
                    quoted(is_image    ? image
                           : is_folder ? image.parent_path()
                                       : build_ / value);
    }
    for (const std::string& program : judges.programs) {
        fs::remove_all(temporary);
        fs::create_directories(temporary);
        // The first case that fails is enough.
        const Ended ended = run(settings + " exec bin/" + program + case_limit, build_, program_patience,
                                [](std::string_view output) { return !failed_case_of(output).empty(); });
        if (!ended.well) return program + " " + failed_case_of(ended.output);
    }
    return "";
}

void Trial::see_pass_unchanged(const Judges& judges, const std::string& file) {
    if (pass_unchanged_[judges.folder]) return;
    Place& place = place_of(judges);
    if (!place.made.make(root_ / file, read_file(root_ / file)))
        throw Failure(judges.image + " cannot be made again without any change");
    const std::string failing = first_that_fails(judges, place);
    if (!failing.empty()) throw Failure("without any change the tests fail: " + failing);
    pass_unchanged_[judges.folder] = true;
}

Verdict Trial::judge(const Candidate& candidate) {
    const Judges& judges = judges_of(judges_, candidate.file);
    see_pass_unchanged(judges, candidate.file);
    Place& place = place_of(judges);
    const fs::path file = root_ / candidate.file;
    if (!place.made.make(file, with(read_file(file), candidate.mutant))) return {Fate::not_compiled, ""};
    const std::string by = first_that_fails(judges, place);
    return {by.empty() ? Fate::survived : Fate::killed, by};
}

}  // namespace mutate
