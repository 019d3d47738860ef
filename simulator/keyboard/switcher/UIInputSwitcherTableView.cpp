// The list of keyboards that the globe key opens: a table, laid out as every table.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct SwitcherTable : objc::Implements<SwitcherTable, UIInputSwitcherTableView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIInputSwitcherTableView, UITableView, SwitcherTable, objc::Row)
