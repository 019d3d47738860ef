// The costs as a page of the documents, with plots.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "measuring/cost.h"

namespace bench {

/// Writes the page, Markdown, and its plots, SVG, into the folder that is named as the file without its
/// extension. gnuplot draws them. A file that cannot be written, and a gnuplot that fails, stop the
/// benchmark.
void write_page(const std::filesystem::path& file, const std::string& processor, const std::vector<Cost>&);

}  // namespace bench
