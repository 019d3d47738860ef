// The hook table's rows as the phone records their installation, from the table itself. What stands in it,
// and in which order, is held by docs/contract.md.
#pragma once
#include <string>
#include <vector>

#include "hooks/row_list.h"
#include "support/phone.h"

namespace test {

using Rows = std::vector<std::string>;

inline const std::string named_colour_row = "function UIKBGetNamedColor";

/// With theming off: in an arm64e process the function is hooked only when it is on.
inline Rows and_named_colours_unless_arm64e(Rows rows) {
    if (process_under_test() != SIM_PROCESS_ARM64E) rows.push_back(named_colour_row);
    return rows;
}

/// "-[Class selector]" or "-[Class selector] added as v@:@".
inline std::string recorded(const hooks::ListedRow& row) {
    return row.target() + (row.adds ? std::string(" added as ") + row.types : "");
}

inline Rows rows_under(hooks::Condition condition) {
    Rows rows;
    for (const hooks::ListedRow& row : hooks::row_list)
        if (row.condition == condition) rows.push_back(recorded(row));
    return rows;
}

inline const Rows cache_rows = rows_under(hooks::Condition::accepted_process);
inline const Rows caps_rows = rows_under(hooks::Condition::caps_hidden);
inline const Rows themed_rows = rows_under(hooks::Condition::themed);

inline Rows joined(std::initializer_list<Rows> parts) {
    Rows all;
    for (const Rows& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// All of them, as a themed SpringBoard with hidden key caps gets them.
inline Rows whole_table() { return joined({cache_rows, caps_rows, themed_rows}); }

/// What an application gets for the row of SpringBoard's class, which it does not have.
inline const std::string cache_row_without_class = "-[nil applicationDidFinishLaunching:]";

/// Of a row: the class, and whether it is added where nothing stood.
inline std::string owner_of(const std::string& row) { return row.substr(2, row.find(' ') - 2); }
inline bool is_added(const std::string& row) { return row.find(" added as ") != std::string::npos; }

}  // namespace test
