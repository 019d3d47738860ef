// The one error that the loader throws.
#pragma once
#include <stdexcept>

namespace macho {

/// A file that cannot be loaded, or whose classes cannot be imported. The message names the file, what was
/// found and what was expected.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace macho
