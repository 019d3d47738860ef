#include "explained.h"

#include <algorithm>

#include "files.h"

namespace mutate {

std::vector<Explained> read_explained(const fs::path& list) {
    std::vector<Explained> all;
    std::vector<std::string> block;
    std::istringstream lines(read_file(list));
    std::string line;
    for (size_t number = 1; std::getline(lines, line) || !block.empty(); ++number) {
        if (!lines) line.clear();
        if (line.starts_with('#')) continue;
        if (!line.empty()) {
            block.push_back(line);
            continue;
        }
        if (block.empty()) continue;
        const size_t first = number - block.size();
        if (block.size() != 4 || !block[1].starts_with("- ") || !block[2].starts_with("+ "))
            throw Failure(
                list.string() + ":" + std::to_string(first) +
                ": expected a file, \"- <before>\", \"+ <after>\" and a reason, a line each, found " +
                std::to_string(block.size()) + " lines from '" + block[0] + "'");
        all.push_back({.file = block[0],
                       .before = block[1].substr(2),
                       .after = block[2].substr(2),
                       .reason = block[3],
                       .line = first});
        block.clear();
    }
    return all;
}

bool is_explained(const std::vector<Explained>& list, const std::string& file, const Mutant& mutant) {
    return std::ranges::any_of(list, [&](const Explained& one) {
        return one.file == file && one.before == mutant.before && one.after == mutant.after;
    });
}

}  // namespace mutate
