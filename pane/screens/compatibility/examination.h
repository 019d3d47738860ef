// The hooks, and what is looked up besides, on this system: huecraft doctor's judgement, in the user's words.
#pragma once
#include <string>
#include <vector>

#include "compatibility/judgement.h"
#include "platform/foundation.h"

namespace pane {

struct ExaminedRow {
    objc::strong<NSString> target;
    compatibility::Verdict verdict;
    /// "Installs", or "Missing: …" with the reason; and the same with what users see then.
    objc::strong<NSString> note, whole_note;

    bool is_found() const {
        return verdict == compatibility::Verdict::well || verdict == compatibility::Verdict::differs;
    }
};

struct Examination {
    Examination();
    std::vector<ExaminedRow> hooks, looked_up;
};

/// "44 of 45": those that are found.
NSString* share_of(const std::vector<ExaminedRow>& rows);

}  // namespace pane
