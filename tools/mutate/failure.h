// What is said to the user when there is nothing to go on with.
#pragma once
#include <stdexcept>

namespace mutate {

struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace mutate
