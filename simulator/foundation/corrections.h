// Where Foundation on Linux differs from the device's, it is corrected; each kind of difference in a file of
// its own.
#pragma once

namespace sim {

/// Has Foundation ask which encodings there are, and answers all. Before Foundation is used otherwise.
void ask_for_encodings();

/// All corrections. Called once, at boot, when the root folder is mounted.
void correct_foundation();

void correct_data_files();
void correct_dates();
void correct_file_manager();
void correct_numbers();
void correct_paths();
void correct_property_lists();
void correct_strings();

}  // namespace sim
