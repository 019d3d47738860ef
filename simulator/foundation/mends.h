// Where Foundation on Linux differs from the device's, it is mended; each kind of difference in a file of its
// own.
#pragma once

namespace sim {

/// All of them. Called once, at boot, when the root folder is mounted.
void mend_foundation();

void mend_data_files();
void mend_dates();
void mend_file_manager();
void mend_numbers();
void mend_paths();
void mend_property_lists();
void mend_strings();

}  // namespace sim
