#include "trial.h"

#include <algorithm>

namespace mutate {

bool Trial::holds(const std::string& file) {
    return std::ranges::any_of(judges_of(judges_, file), [&](const Judges* judges) {
        return place_of(*judges).made.holds(root_ / file);
    });
}

Trial::Place& Trial::place_of(const Judges& judges) {
    const std::string outermost = *fs::path(judges.folder).begin();
    return places_.try_emplace({judges.image, outermost}, build_, judges.image, root_ / outermost)
        .first->second;
}

void Trial::expect(const std::vector<Candidate>& candidates) {
    if (candidates.size() < 20) return;
    for (const Candidate& one : candidates) asked_about_.insert(root_ / one.file);
}

/// The files that are judged in that image. It may hold an archive's others as well, but not link with them.
std::set<fs::path> Trial::asked_about_in(const std::string& image, const Place& place) const {
    std::set<fs::path> files;
    for (const fs::path& one : asked_about_)
        if (place.made.holds(one) &&
            std::ranges::any_of(judges_of(judges_, one.lexically_relative(root_).string()),
                                [&](const Judges* judges) { return judges->image == image; }))
            files.insert(one);
    return files;
}

Verdict Trial::judge(const Candidate& candidate) {
    Verdict verdict{Fate::not_compiled, ""};
    for (const Judges* judges : judges_of(judges_, candidate.file)) {
        Place& place = place_of(*judges);
        if (!place.made.holds(root_ / candidate.file)) continue;
        const Verdict one = judge(candidate, *judges, place);
        verdict = std::max(verdict, one, [](const Verdict& a, const Verdict& b) { return a.fate < b.fate; });
        // What does not compile here is no change that another image could notice.
        if (one.fate == Fate::killed || one.fate == Fate::not_compiled) break;
    }
    return verdict;
}

Verdict Trial::judge(const Candidate& candidate, const Judges& judges, Place& place) {
    const fs::path file = root_ / candidate.file;
    place.cases.prepare(judges, asked_about_in(judges.image, place));
    switch (place.made.make(file, with(read_file(file), candidate.mutant))) {
        case Made::not_compiled: return {Fate::not_compiled, ""};
        case Made::same_code: return {Fate::same_code, ""};
        case Made::changed: break;
    }
    const std::string by = place.cases.first_that_fails(judges, file, candidate.mutant.line);
    return {by.empty() ? Fate::survived : Fate::killed, by};
}

}  // namespace mutate
