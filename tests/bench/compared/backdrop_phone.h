// A phone on which backdrop views are themed.
#pragma once
#include <string_view>

#include "backdrop_views.h"
#include "support/phone.h"

namespace bench {

constexpr std::string_view name_of(Background background) {
    return background == Background::flat ? "flat" : "gradient";
}

/// Booted, with the build loaded that HUECRAFT_LIBRARY names. One in a process.
class BackdropPhone {
  public:
    explicit BackdropPhone(Background);

  private:
    test::Phone phone_;
};

}  // namespace bench
