// Rows of the pane's screens that are no themes.
#pragma once
#include "platform/controls.h"
#include "platform/tables.h"

namespace pane {

/// A spare cell of the table, or a new one.
UITableViewCell* cell_of(UITableView* table, NSString* identifier, UITableViewCellStyle style);

UITableViewCell* switch_row(UITableView* table, UISwitch* control);
UITableViewCell* rescue_row(UITableView* table, NSString* title);
/// Leads to another page.
UITableViewCell* link_row(UITableView* table, NSString* title);
/// Does something on this one.
UITableViewCell* action_row(UITableView* table, NSString* title);
/// Says something.
UITableViewCell* value_row(UITableView* table, NSString* title, NSString* value);

}  // namespace pane
