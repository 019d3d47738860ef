// Instructions, counted by callgrind: the same on a busy machine as on an idle one.
#pragma once
#include <string>
#include <vector>

#include "support/phone.h"

namespace bench {

enum class Work { loading, showing_a_keyboard };

/// Those of the work in a process that boots over the phone's files as the executable, and does it with the
/// library. Loading is without the digests of the signed pages: the processor that callgrind plays lacks the
/// instructions for SHA-256 that processors have, and takes twenty times as many.
size_t instructions_of(Work work, const std::string& library, const test::Phone& phone,
                       const char* executable = test::notes);

/// Those of a program among the counted ones, in each of the functions and all that they call; but while a
/// function calls one that is named after it, none.
size_t instructions_in(const std::vector<std::string>& functions, const std::string& program,
                       const std::vector<std::string>& arguments);

}  // namespace bench
