// The contact sheet as a page for browsers.
#pragma once
#include <filesystem>
#include <vector>

#include "contact_sheet_plan.h"

namespace demo {

/// Its links are relative to the page: the pictures are in "sheet" beside it.
void write_page(const std::vector<Row>& rows, const std::filesystem::path& page);

}  // namespace demo
