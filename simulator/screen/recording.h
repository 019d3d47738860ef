// Moving pictures of the screen.
#pragma once
#include <string>

#include "platform/coregraphics.h"

namespace sim {

/// Takes the first picture, at `scale` pixels per point (0 is the screen's), and from then on so many in each
/// second of the phone's time. There may be no recording yet. False when there is nothing to draw; `error`
/// then says so in one line, as below.
bool start_recording(CGFloat scale, unsigned frames_per_second, std::string& error);

bool is_recording();

/// Writes what was recorded to a path of the host, as animated PNG. When that fails, the recording goes on.
bool stop_recording(const std::string& path, std::string& error);
void discard_recording();

/// Lets that many seconds pass, and lays the screen out then; while a recording goes on, also whenever a
/// picture of it is due.
bool pass_time(double seconds, std::string& error);

}  // namespace sim
