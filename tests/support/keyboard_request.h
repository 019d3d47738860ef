// The system's keyboard on the screen, as a test asks for it.
#pragma once
#include <gtest/gtest.h>

#include "simulator.h"

namespace test {

/// Which keyboard to show: the members of sim_keyboard, so that a test names just those that it is about.
struct KeyboardRequest {
    const char* plane = nullptr;
    const char* pressed_key = nullptr;
    bool landscape = false;
    const char* return_key = nullptr;
    bool split = false, switcher = false, form_accessory = false;
    const char *background = nullptr, *candidates = nullptr;

    sim_keyboard keyboard() const {
        return {sizeof(sim_keyboard), plane,      pressed_key, landscape, return_key, split, switcher,
                form_accessory,       background, candidates};
    }
};

/// What comes of asking, where a refusal may be meant.
inline sim_status requested(const KeyboardRequest& request) {
    const sim_keyboard keyboard = request.keyboard();
    return sim_show_keyboard(&keyboard);
}

/// Shows it; fails the test when it is refused.
inline void show_keyboard(const KeyboardRequest& request) {
    ASSERT_EQ(requested(request), SIM_OK) << sim_last_error();
}

}  // namespace test
