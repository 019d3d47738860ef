// All mends of Foundation.
#include "foundation/mends.h"

namespace sim {

void mend_foundation() {
    mend_paths();
    mend_file_manager();
    mend_data_files();
    mend_dates();
    mend_strings();
    mend_numbers();
    mend_property_lists();
}

}  // namespace sim
