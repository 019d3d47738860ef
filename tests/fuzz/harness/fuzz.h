// For targets that drive the library: a phone that stays on.
#pragma once
#include <string>
#include <string_view>

#include "harness/bytes.h"
#include "support/phone.h"

namespace fuzz {

/// A small screen with few pixels: what is drawn is drawn often.
inline test::Phone::Options small_phone() {
    test::Phone::Options options;
    options.screen_width = 320;
    options.screen_height = 568;
    options.screen_scale = 1;
    return options;
}

/// The phone of this process, on from the first call to the end.
test::Phone& phone_without_library(const test::Phone::Options& options = small_phone());
/// The same, with the library.
test::Phone& phone(const test::Phone::Options& options = small_phone());

/// Puts a file in place, in a folder that exists.
void put(const std::string& device_path, std::string_view bytes);
/// Leaves an existing folder empty.
void clear_folder(const std::string& device_path);

}  // namespace fuzz
