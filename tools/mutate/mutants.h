// Where a C++ source can be changed so that a test ought to notice.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace mutate {

/// One change: so many characters are replaced.
struct Mutant {
    size_t offset, length;
    std::string replacement;
    size_t line;  // from 1
    /// The lines that it touches, before and after, without the blanks that indent them.
    std::string before, after;
};

/// By the blanks that the formatter sets, a comparison differs from a template's bracket. Where the tokens
/// alone do not say enough, a mutant may not compile.
std::vector<Mutant> mutants_of(std::string_view source);

/// The source with the change made.
std::string with(std::string_view source, const Mutant& mutant);

}  // namespace mutate
