#include "pane/pane_session.h"

#include <utility>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "platform/controls.h"
#include "scripts/playing.h"
#include "simulator.h"
#include "support/text.h"

namespace command {
namespace {

/// What the simulator says of its last call, without that call's name.
std::string why() {
    const std::string line = sim_last_error();
    const size_t name = line.find(": ");
    return name == line.npos ? line : line.substr(name + 2);
}

struct Raised {
    std::string what;
};

class Session {
  public:
    Session(const PaneScript& script, const PaneSetup& setup) : script_(script), setup_(setup) {}

    PaneRun play();

    // ---- What a script can say

    void operator()(const say::Touch& touch) {
        check(touch.label.empty() ? sim_tap(touch.x, touch.y) : sim_tap_label(touch.label.c_str()));
    }
    void operator()(const say::Swipe& swipe) {
        check(sim_touch(SIM_TOUCH_BEGAN, swipe.from_x, swipe.from_y));
        for (int step = 1; step <= swipe.steps; ++step) {
            const double part = static_cast<double>(step) / swipe.steps;
            check(sim_touch(SIM_TOUCH_MOVED, swipe.from_x + (swipe.to_x - swipe.from_x) * part,
                            swipe.from_y + (swipe.to_y - swipe.from_y) * part));
        }
        check(sim_touch(SIM_TOUCH_ENDED, swipe.to_x, swipe.to_y));
    }
    void operator()(const say::Pinch& pinch) {
        const auto fingers = [&](int phase, double distance) {
            check(sim_touch_two(phase, pinch.x - distance / 2, pinch.y, pinch.x + distance / 2, pinch.y));
        };
        fingers(SIM_TOUCH_BEGAN, pinch.from);
        fingers(SIM_TOUCH_MOVED, (pinch.from + pinch.to) / 2);
        fingers(SIM_TOUCH_MOVED, pinch.to);
        fingers(SIM_TOUCH_ENDED, pinch.to);
    }
    void operator()(const say::Type& type) { check(sim_type_text(type.text.c_str())); }
    void operator()(const say::Delete& deletion) {
        for (int i = 0; i < deletion.times; ++i) check(sim_delete_backward());
    }
    void operator()(const say::Return&) { check(sim_press_return()); }
    void operator()(const say::Pasteboard& pasteboard) {
        NSString* copied = tools::text(pasteboard.text);
        if (!copied) refuse("the text is not UTF-8");
        UIPasteboard::generalPasteboard()->setString(copied);
    }
    void operator()(const say::Wait& wait) {
        pass_time(wait.seconds, [this](double seconds) {
            check(sim_advance_clock(seconds));
            require_time();
        });
        time_ += wait.seconds;
    }
    void operator()(const say::Picture& picture) {
        check(sim_take_picture(place_of(picture.name).c_str(), setup_.scale));
        run_.pictures.push_back(picture.name + ".png");
    }
    void operator()(const say::Record& record) {
        check(sim_start_recording(setup_.scale, record.frames_per_second));
        recording_ = record.name;
        recording_since_ = time_;
    }
    void operator()(const say::Stop&) { stop(); }
    void operator()(const say::MemoryWarning&) { check(sim_warn_of_memory()); }
    void operator()(const say::Keyboard&) {}  // drawn by another process, when this one has ended

  private:
    [[noreturn]] void refuse(const std::string& reason) const {
        throw Unusable(script_.place(line_), reason);
    }
    void check(sim_status status) const {
        if (status == SIM_RAISED) throw Raised{without_addresses(why())};
        if (status != SIM_OK) refuse(why());
    }
    void require_time() const {
        if (limit_.is_over()) refuse(limit_.complaint());
    }
    void note(PaneEvent::Kind kind, std::string what) {
        run_.events.push_back({kind, line_, std::move(what)});
    }
    void open();
    /// Notes what left Settings since the last instruction.
    void look();
    void stop() {
        check(sim_stop_recording(place_of(recording_).c_str()));
        if (time_ == recording_since_) note(PaneEvent::Kind::stood_still, recording_ + ".png");
        run_.pictures.push_back(std::exchange(recording_, "") + ".png");
    }
    std::string place_of(const std::string& name) const { return setup_.pictures / (name + ".png"); }

    const PaneScript& script_;
    const PaneSetup& setup_;
    PaneRun run_;
    size_t line_ = 0, programs_ = 0, addresses_ = 0, shared_ = 0;
    double time_ = 0;
    std::string recording_;
    double recording_since_ = 0;
    TimeLimit limit_{30};  // whole screens are drawn
};

void Session::open() {
    check(sim_open_settings());
    check(sim_tap_label("Huecraft"));
    check(sim_advance_clock(1));
}

void Session::look() {
    for (; programs_ < sim_program_count(); ++programs_) {
        sim_program program{};
        check(sim_program_at(programs_, &program));
        std::string line = program.path;
        for (const char* const* argument = program.arguments; *argument; ++argument)
            if (argument != program.arguments) line += std::string(" ") + *argument;
        note(PaneEvent::Kind::started, program.error ? line + ", which is not on the phone" : line);
    }
    for (; addresses_ < sim_opened_address_count(); ++addresses_)
        note(PaneEvent::Kind::opened, sim_opened_address(addresses_));
    for (; shared_ < sim_shared_item_count(); ++shared_) {
        sim_shared_item item{};
        check(sim_shared_item_at(shared_, &item));
        note(PaneEvent::Kind::shared, std::string(item.kind) + " " + item.content);
    }
}

PaneRun Session::play() {
    objc::AutoreleasePool pool;
    try {
        open();
        for (const auto& instruction : script_.instructions) {
            objc::AutoreleasePool of_instruction;
            line_ = instruction.line;
            std::visit(*this, instruction.what);
            look();
            require_time();
        }
    } catch (const Raised& raised) {
        note(PaneEvent::Kind::raised, raised.what);
    }
    if (!recording_.empty()) stop();
    return std::move(run_);
}

}  // namespace

PaneRun play(const PaneScript& script, const PaneSetup& setup) { return Session(script, setup).play(); }

}  // namespace command
