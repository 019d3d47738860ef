// The hook table: every method of the system that the library replaces or adds, in the order of installation.
#pragma once
#include <span>

#include "hooks/decision.h"
#include "objc/hook.h"

namespace hooks {

/// A row and the condition under which it is installed.
struct TableRow {
    Condition condition;
    objc::HookRow hook;
};

std::span<const TableRow> hook_table();

/// Installs the rows that stand under the condition, in order. A class that this system lacks makes its rows
/// do nothing.
void install(Condition);

}  // namespace hooks
