#include "pane/screens/compatibility/examination.h"

#include <algorithm>

#include "compatibility/effects.h"
#include "compatibility/running_system.h"
#include "compatibility/subjects.h"
#include "pane/texts.h"

namespace pane {
namespace {

using compatibility::How;
using compatibility::Judgement;
using compatibility::LookUp;
using compatibility::Reason;
using compatibility::Verdict;

NSString* string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

NSString* state_of(Verdict verdict, NSString* well) {
    switch (verdict) {
        case Verdict::well: return well;
        case Verdict::missing: return text<"Missing">();
        case Verdict::differs: return text<"Differs">();
        case Verdict::unrecorded: return text<"Unknown">();
    }
    return nullptr;
}

NSString* reason_for(const Judgement& judgement, const std::string& owner, const char* expected) {
    if (judgement.verdict == Verdict::unrecorded) return text<"This cannot be seen from Settings.">();
    switch (judgement.reason) {
        case Reason::none: return nullptr;
        case Reason::class_absent: return text<"There is no class %1.">(string(owner));
        case Reason::method_absent: return text<"The class has no such method.">();
        case Reason::function_absent: return text<"There is no such function.">();
        case Reason::variable_absent: return text<"The class has no such variable.">();
        case Reason::other_types:
            return text<"Its types are %1, and not %2.">(string(judgement.types), string(expected));
        case Reason::no_object: return text<"Its type is %1, and no object.">(string(judgement.types));
        case Reason::own_method: return text<"The class has such a method already.">();
        case Reason::no_effect: return text<"The hook had no effect here.">();
    }
    return nullptr;
}

ExaminedRow row_of(const std::string& target, const Judgement& judgement, NSString* well,
                   const std::string& owner, const char* expected, const char* effect) {
    NSString* note = state_of(judgement.verdict, well);
    if (NSString* reason = reason_for(judgement, owner, expected)) note = with("%1: %2"_ns, note, reason);
    NSString* whole = note;
    if (judgement.reason == Reason::other_types)
        whole = with("%1 %2"_ns, note, text<"Applications may stop.">());
    else if (judgement.verdict != Verdict::well && judgement.verdict != Verdict::unrecorded && *effect)
        whole = with("%1 %2"_ns, note, text<"Then %1.">(translated(effect)));
    return {string(target), judgement.verdict, note, whole};
}

ExaminedRow examine_hook(const char* target, How how, const char* types,
                         const compatibility::RunningSystem& system) {
    const std::string owner = how == How::function ? "" : compatibility::class_of_method(target);
    return row_of(target, compatibility::judge_hook(target, how, types, system), text<"Installs">(), owner,
                  types, compatibility::effect_without(target));
}

ExaminedRow examine_look_up(const LookUp& wanted, const compatibility::RunningSystem& system) {
    using enum LookUp::Kind;
    const Judgement judgement = compatibility::judge_look_up(wanted, system);
    std::string target = wanted.kind == class_method ? wanted.member : wanted.class_name;
    if (wanted.kind == variable) target += std::string(" ") + wanted.member;
    const bool has_no_class = judgement.reason == Reason::class_absent && wanted.kind != variable;
    return row_of(target, judgement, text<"Found">(), wanted.class_name, wanted.types,
                  has_no_class ? wanted.without_class : wanted.without_member);
}

}  // namespace

Examination::Examination() {
    const compatibility::RunningSystem system;
    for (const auto& row : compatibility::hooked_methods())
        hooks.push_back(examine_hook(row.name, row.is_added ? How::added : How::replaced, row.types, system));
    for (const char* function : compatibility::described_functions())
        hooks.push_back(examine_hook(function, How::function, "", system));
    for (const LookUp& wanted : compatibility::look_ups())
        looked_up.push_back(examine_look_up(wanted, system));
}

NSString* share_of(const std::vector<ExaminedRow>& rows) {
    const auto found =
        std::count_if(rows.begin(), rows.end(), [](const auto& row) { return row.is_found(); });
    return text<"%1 of %2">(number_text(found), number_text(NSInteger(rows.size())));
}

}  // namespace pane
