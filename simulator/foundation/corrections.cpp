// All corrections of Foundation.
#include "foundation/corrections.h"

namespace sim {

void correct_foundation() {
    correct_paths();
    correct_file_manager();
    correct_data_files();
    correct_dates();
    correct_strings();
    correct_numbers();
    correct_property_lists();
}

}  // namespace sim
