// How a run of the command ended.
#pragma once

namespace command {

/// The numbers are the exit status. The greater is the worse.
enum class Status { fine = 0, finding = 1, unusable = 2 };

inline void note(Status& all, Status one) {
    if (one > all) all = one;
}

}  // namespace command
