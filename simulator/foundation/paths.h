// How Foundation's own operations take a symbolic link at the end of a path.
#pragma once
#include <utility>

#include "phone/file_system.h"

namespace sim {

/// In its scope Foundation means the link itself and not what it points to.
class KeepLinks {
  public:
    KeepLinks();
    KeepLinks(const KeepLinks&) = delete;
    ~KeepLinks();

  private:
    LastLink before_;
};

}  // namespace sim
