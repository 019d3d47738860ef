// Whether Eclipse, another extension, darkens the Settings app.
#pragma once

namespace settings {

/// NO where it is not installed, switched off, or its preferences cannot be read.
bool is_eclipse_enabled();

}  // namespace settings
