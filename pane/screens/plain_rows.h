// The rows of the first screen that are no themes.
#pragma once
#include "platform/controls.h"
#include "platform/tables.h"

namespace pane {

/// A spare cell of the table, or a new one.
UITableViewCell* cell_of(UITableView* table, NSString* identifier, UITableViewCellStyle style);

UITableViewCell* switch_row(UITableView* table, UISwitch* control);
UITableViewCell* rescue_row(UITableView* table, NSString* title);

}  // namespace pane
