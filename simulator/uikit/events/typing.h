// The keyboard's keys, pressed: what they do to the text field that is the first responder.
#pragma once
#include <string>

#include "platform/controls.h"

namespace sim {

/// Each of these is false when nothing takes text, or not there; `error` then says so in one line. The screen
/// is laid out afterwards.
/// Types character by character; the end of a line is the return key.
bool type_text(NSString* text, std::string& error);
bool delete_backward(std::string& error);
bool press_return(std::string& error);
/// In UTF-16 units.
bool select_text(NSRange range, std::string& error);

}  // namespace sim
