// The editor's rows that show a value: colours, contrasts, the name, and what is touched to do something.
#pragma once
#include "pane/model/editing.h"
#include "platform/tables.h"
#include "readability/legibility.h"

namespace pane {

/// The rows below each other, section by section, as the theme needs them.
std::vector<std::vector<Place>> rows_of(const Editing& editing, const readability::Legibility& legibility);

/// The row's cell, one that is used again where the table has one; nil for a row with a control.
UITableViewCell* value_cell(UITableView* table, const Place& place, const Editing& editing,
                            const readability::Legibility& legibility);

/// As high as text of the user's size needs.
CGFloat text_row_height();

}  // namespace pane
