#include "screen/recording.h"

#include <memory>

#include "coregraphics/CGContext.h"
#include "coregraphics/pictures/animated_png.h"
#include "quartzcore/animation/clock.h"
#include "screen/picture.h"
#include "uikit/controllers/screen.h"
#include "uikit/events/touches.h"

namespace sim {
namespace {

struct Recording {
    Recording(CGFloat scale, unsigned rate) : scale(scale), rate(rate), begin(clock_now()), pictures(rate) {}

    /// When the next picture is due. Not a sum, which would drift.
    double due() const { return begin + static_cast<double>(taken) / rate; }

    bool take(std::string& error) {
        const auto context = drawn_view(screen_window(), PictureGround::black, scale, error);
        if (!context) return false;
        ++taken;
        return pictures.add(Surface(cairo_surface_reference(canvas_of(context).bitmap().surface())), error);
    }

    CGFloat scale;
    unsigned rate;
    double begin;
    size_t taken = 0;
    AnimatedPng pictures;
};

std::unique_ptr<Recording>& current() {
    static auto* recording = new std::unique_ptr<Recording>;
    return *recording;
}

bool pass_time_until(double moment, std::string& error) {
    if (advance_clock_to(moment)) {
        let_finger_wait();
        return true;
    }
    error = "animations end and begin again without time passing";
    return false;
}

}  // namespace

bool is_recording() { return current() != nullptr; }

bool start_recording(CGFloat scale, unsigned frames_per_second, std::string& error) {
    if (!screen_window()) {
        error = "nothing is on the screen";
        return false;
    }
    auto recording = std::make_unique<Recording>(scale, frames_per_second);
    if (!recording->take(error)) return false;
    current() = std::move(recording);
    return true;
}

bool stop_recording(const std::string& path, std::string& error) {
    if (!current()->pictures.write(path, error)) return false;
    discard_recording();
    return true;
}

void discard_recording() { current() = nullptr; }

bool pass_time(double seconds, std::string& error) {
    const double end = clock_now() + seconds;
    if (Recording* recording = current().get())
        while (recording->due() <= end)
            if (!pass_time_until(recording->due(), error) || !recording->take(error)) return false;
    if (!pass_time_until(end, error)) return false;
    lay_out_screen();
    return true;
}

}  // namespace sim
