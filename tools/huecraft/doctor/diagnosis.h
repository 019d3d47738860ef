// What the library would find on a system.
#pragma once
#include <string>
#include <vector>

#include "doctor/device_description.h"
#include "doctor/hook_effects.h"
#include "doctor/hook_rows.h"
#include "formats/value.h"

namespace command {

/// A row of the hook table, or something that is looked up, on a system.
struct Diagnosis {
    using Verdict = compatibility::Verdict;

    std::string target, how;
    Verdict verdict = Verdict::well;
    /// What is not well, and what users see then; empty where all is well.
    std::string reason, effect;
    /// What the description records of the types; "" where it records nothing.
    std::string types = {};

    /// The library would install it, or find it.
    bool is_found() const { return verdict == Verdict::well || verdict == Verdict::differs; }
    bool is_wrong() const { return verdict == Verdict::missing || verdict == Verdict::differs; }
    Json in_json() const;
};

/// The rows and the things looked up, on one system.
struct Examination {
    std::string device;
    std::vector<Diagnosis> rows, looked_up;

    Examination(std::string name, const DeviceDescription& description, const std::vector<HookRow>& table);

    size_t count(Diagnosis::Verdict verdict) const;
    bool is_well() const {
        return count(Diagnosis::Verdict::missing) + count(Diagnosis::Verdict::differs) == 0;
    }
    Json in_json() const;
};

size_t count_found(const std::vector<Diagnosis>& all);

}  // namespace command
