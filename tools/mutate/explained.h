// Mutants that no test can kill, each with the reason why it changes nothing.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "mutants.h"

namespace mutate {

struct Explained {
    std::string file, before, after, reason;
    size_t line;  // where the list says it
};

/// The list: blocks of four lines with an empty one between them,
///     <file>
///     - <the lines before>
///     + <the lines after>
///     <the reason>
/// Lines that begin with "#" are comments. Throws where it is of another form.
std::vector<Explained> read_explained(const std::filesystem::path& list);

bool is_explained(const std::vector<Explained>& list, const std::string& file, const Mutant& mutant);

}  // namespace mutate
