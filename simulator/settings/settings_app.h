// The Settings app: its root list, with the rows that packages add.
#pragma once
#include <string>
#include <vector>

#include "platform/application.h"

namespace sim {

/// Shows the app, which reads the entries again.
void open_settings();

/// The labels of the rows that packages added, in their order.
std::vector<std::string> settings_rows();

}  // namespace sim
