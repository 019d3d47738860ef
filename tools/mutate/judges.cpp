#include "judges.h"

#include <utility>

#include "files.h"

namespace mutate {

std::vector<Judges> read_judges(const fs::path& list) {
    std::vector<Judges> all;
    std::istringstream lines(read_file(list));
    std::string line, word;
    for (size_t number = 1; std::getline(lines, line); ++number) {
        if (line.empty() || line.front() == '#') continue;
        Judges judges;
        std::istringstream words(line);
        words >> judges.folder >> judges.image;
        while (words >> word) {
            const size_t equals = word.find('=');
            if (word.starts_with('-'))
                judges.left_out.push_back(word.substr(1));
            else if (equals == word.npos)
                judges.programs.push_back(word);
            else
                judges.variables.emplace_back(word.substr(0, equals), word.substr(equals + 1));
        }
        if (judges.programs.empty())
            throw Failure(list.string() + ":" + std::to_string(number) +
                          ": expected <folder> <image> [<variable>=<path>]... [-<case>]... <program>..., "
                          "found '" +
                          line + "'");
        all.push_back(std::move(judges));
    }
    return all;
}

std::vector<const Judges*> judges_of(const std::vector<Judges>& list, const std::string& file) {
    std::vector<const Judges*> nearest;
    for (const Judges& judges : list) {
        if (file != judges.folder && !file.starts_with(judges.folder + "/")) continue;
        const size_t known = nearest.empty() ? 0 : nearest.front()->folder.size();
        if (judges.folder.size() > known) nearest.clear();
        if (judges.folder.size() >= known) nearest.push_back(&judges);
    }
    if (!nearest.empty()) return nearest;
    std::string folders, last;
    for (const Judges& judges : list)
        if (std::exchange(last, judges.folder) != judges.folder)
            folders += (folders.empty() ? "" : ", ") + judges.folder;
    throw Failure(file + ": no tests judge it; expected a source in one of " + folders);
}

}  // namespace mutate
