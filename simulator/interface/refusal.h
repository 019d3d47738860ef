// What the simulator throws when it cannot do as asked; the C interface makes a status and a line of it.
#pragma once
#include <stdexcept>
#include <string>

#include "simulator.h"

namespace sim {

/// The message is one clear line: it names the file, class or value, what was found and what was expected.
class Refusal : public std::runtime_error {
  public:
    Refusal(sim_status status, const std::string& message) : std::runtime_error(message), status_(status) {}
    sim_status status() const { return status_; }

  private:
    sim_status status_;
};

}  // namespace sim
