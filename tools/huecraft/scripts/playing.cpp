#include "scripts/playing.h"

#include <algorithm>
#include <utility>

#include "cli/files.h"
#include "cli/terminal.h"
#include "platform/controls.h"
#include "support/text.h"

namespace command {
namespace {

/// What the simulator says of its last call, without that call's name.
std::string why() {
    const std::string line = sim_last_error();
    const size_t name = line.find(": ");
    return name == line.npos ? line : line.substr(name + 2);
}

}  // namespace

void Playing::refuse(const std::string& reason) const {
    throw Unusable(file_ + ":" + std::to_string(line_), reason);
}

void Playing::check(sim_status status) const {
    if (status == SIM_RAISED) throw Raised{why()};
    if (status != SIM_OK) refuse(why());
}

void Playing::require_time() const {
    if (static_cast<double>(std::clock() - began_) / CLOCKS_PER_SEC <= seconds_) return;
    refuse(counted(static_cast<size_t>(seconds_), "second") +
           " of processor time were not enough for the script up to here; expected a shorter one, or fewer "
           "pictures");
}

void Playing::operator()(const say::Pasteboard& pasteboard) {
    NSString* copied = tools::text(pasteboard.text);
    if (!copied) refuse("the text is not UTF-8");
    UIPasteboard::generalPasteboard()->setString(copied);
}

void Playing::operator()(const say::Wait& wait) {
    // In parts, since what is recorded takes its time.
    constexpr double part = 1;
    for (double left = wait.seconds; left > 0; left -= part) {
        check(sim_advance_clock(std::min(left, part)));
        require_time();
    }
    time_ += wait.seconds;
}

void Playing::operator()(const say::Picture& picture) {
    check(sim_take_picture(place_of(picture.name).c_str(), scale_));
    pictures_.push_back(picture.name + ".png");
}

void Playing::operator()(const say::Record& record) {
    check(sim_start_recording(scale_, record.frames_per_second));
    recording_ = record.name;
    recording_since_ = time_;
}

void Playing::stop() {
    check(sim_stop_recording(place_of(recording_).c_str()));
    if (time_ == recording_since_) stood_still(recording_);
    pictures_.push_back(std::exchange(recording_, "") + ".png");
}

}  // namespace command
