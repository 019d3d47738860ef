// What a run of the command has for a while, and the next one clears away where the run was killed.
#pragma once
#include <filesystem>
#include <string>

namespace command {

/// A lock on a file, which lasts as long as the descriptor is open in this process or a child of it. Answers
/// whether the file is this run's: another one may have taken it for a leftover before it was locked. Where
/// files cannot be locked, nothing is ever taken for one.
bool keep_from_clearing(int descriptor);

/// Removes the files in the folder that have such a name, of mkstemp's making, and that no run keeps.
void clear_drafts(const std::filesystem::path& folder, const std::string& beginning);

/// The same for folders: each keeps itself by a file in it, of that name.
void clear_folders(const std::filesystem::path& folder, const std::string& beginning,
                   const std::string& keeping);

}  // namespace command
