#include "pane/pane_session.h"

#include <utility>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "scripts/playing.h"
#include "simulator.h"

namespace command {
namespace {

class Session : public Playing {
  public:
    Session(const PaneScript& script, const PaneSetup& setup)
        : Playing(script.file, setup.pictures, setup.scale, seconds),
          script_(script) {}

    PaneRun play();

    // ---- What a script can say

    using Playing::operator();
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
    void operator()(const say::MemoryWarning&) { check(sim_warn_of_memory()); }
    void operator()(const say::Keyboard&) {}  // drawn by another process, when this one has ended

  private:
    void note(PaneEvent::Kind kind, std::string what) {
        run_.events.push_back({kind, line_, std::move(what)});
    }
    void open();
    /// Notes what left Settings since the last instruction.
    void look();
    void stood_still(const std::string& name) override { note(PaneEvent::Kind::stood_still, name + ".png"); }

    static constexpr int seconds = 30;  // whole screens are drawn
    const PaneScript& script_;
    PaneRun run_;
    size_t programs_ = 0, addresses_ = 0, shared_ = 0;
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
        play_each(*this, script_.instructions, [this] { look(); });
    } catch (const Raised& raised) {
        note(PaneEvent::Kind::raised, without_addresses(raised.what));
    }
    stop_if_recording();
    run_.pictures = std::move(pictures_);
    return std::move(run_);
}

}  // namespace

PaneRun play(const PaneScript& script, const PaneSetup& setup) { return Session(script, setup).play(); }

}  // namespace command
