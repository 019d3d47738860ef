// Which tests judge the mutants of which folder.
#pragma once
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace mutate {

/// A line of the list of judges.
struct Judges {
    std::string folder;  // or a file, from the root
    std::string image;   // what is linked again, from the build's folder
    std::vector<std::pair<std::string, std::string>> variables;  // where a program finds the images
    std::vector<std::string> left_out;  // cases that do not judge: they take too long, or need more
    std::vector<std::string> programs;  // the nearest first; the image may be one
};

/// "<folder> <image> [<variable>=<path>]... [-<case>]... <program>..." a line; empty lines and those that
/// begin with "#" are none.
std::vector<Judges> read_judges(const std::filesystem::path& list);

/// Those of the longest folder that holds the file, in their order: several images may have it. Throws when
/// there are none.
std::vector<const Judges*> judges_of(const std::vector<Judges>& list, const std::string& file);

}  // namespace mutate
