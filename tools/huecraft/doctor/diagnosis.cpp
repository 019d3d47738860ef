// Holding the library against the description of a system.
#include "doctor/diagnosis.h"

#include <algorithm>

#include "cli/terminal.h"

namespace command {
namespace {

using compatibility::Judgement;
using compatibility::LookUp;
using compatibility::Reason;
using enum compatibility::Verdict;

const char* word_of(Diagnosis::Verdict verdict) {
    switch (verdict) {
        case well: return "well";
        case missing: return "missing";
        case differs: return "differs";
        case unrecorded: return "unrecorded";
    }
    return "";
}

/// Why something is not well, in words. Of what is not recorded: that it is not.
std::string reason_for(const Judgement& judgement, const std::string& owner, const std::string& expected) {
    const bool untold = judgement.verdict == unrecorded;
    switch (judgement.reason) {
        case Reason::none: return "";
        case Reason::class_absent:
            return untold ? "the class " + owner + " was not recorded" : "there is no class " + owner;
        case Reason::method_absent:
            return untold ? "the method was not recorded" : "the class has no such method";
        case Reason::function_absent:
            return untold ? "the function was not recorded" : "there is no such function";
        case Reason::variable_absent:
            return untold ? "the variable was not recorded" : "the class has no such variable";
        case Reason::other_types:
            return "its types are " + in_quotes(judgement.types) + ", and not " + in_quotes(expected);
        case Reason::no_object: return "its type is " + in_quotes(judgement.types) + ", and no object";
        case Reason::own_method: return "the class has such a method already, which stays";
        case Reason::no_effect: return "the hook had no effect there";
    }
    return "";
}

constexpr const char* mistaken = " mistakes what it is given or what is answered, and applications may stop";

Diagnosis diagnosis_of(const HookRow& row, const DeviceDescription& device) {
    using enum HookRow::How;
    const Judgement judgement = compatibility::judge_hook(row.target, row.how, row.types, device);
    Diagnosis found{row.target,
                    row.how == added      ? "added"
                    : row.how == function ? "function replaced"
                                          : "replaced",
                    judgement.verdict,
                    "",
                    "",
                    judgement.types};
    if (judgement.verdict == well) return found;
    found.reason = reason_for(judgement, row.how == function ? "" : class_of_method(row.target), row.types);
    found.effect = judgement.reason == Reason::other_types ? std::string("the replacement") + mistaken
                                                           : effect_without(row.target);
    return found;
}

Diagnosis diagnosis_of(const LookUp& wanted, const DeviceDescription& device) {
    using enum LookUp::Kind;
    const bool is_class = wanted.kind == class_name, is_variable = wanted.kind == variable;
    const Judgement judgement = compatibility::judge_look_up(wanted, device);
    Diagnosis found{is_class      ? wanted.class_name
                    : is_variable ? std::string(wanted.class_name) + " " + wanted.member
                                  : wanted.member,
                    is_class      ? "class looked up"
                    : is_variable ? "variable read"
                                  : "method called",
                    judgement.verdict,
                    "",
                    "",
                    judgement.types};
    if (judgement.verdict == well) return found;
    found.reason = reason_for(judgement, wanted.class_name, wanted.types);
    if (judgement.reason == Reason::other_types)
        found.effect = std::string("the library") + mistaken;
    else
        found.effect = judgement.reason == Reason::class_absent && !is_variable ? wanted.without_class
                                                                                : wanted.without_member;
    return found;
}

template <class Wanted>
std::vector<Diagnosis> diagnoses(const Wanted& all, const DeviceDescription& device) {
    std::vector<Diagnosis> found;
    for (const auto& one : all) found.push_back(diagnosis_of(one, device));
    return found;
}

Json in_json(const std::vector<Diagnosis>& all) {
    Json list = Json::array();
    for (const Diagnosis& one : all) list.push_back(one.in_json());
    return list;
}

}  // namespace

Json Diagnosis::in_json() const {
    Json json{{"target", target}, {"how", how}, {"wouldInstall", is_found()}, {"verdict", word_of(verdict)}};
    if (verdict == unrecorded) json["wouldInstall"] = nullptr;
    if (!types.empty()) json["types"] = types;
    if (verdict != well) {
        json["reason"] = reason;
        json["effect"] = effect;
    }
    return json;
}

Examination::Examination(std::string name, const DeviceDescription& description,
                         const std::vector<HookRow>& table)
    : device(std::move(name)),
      rows(diagnoses(table, description)),
      looked_up(diagnoses(compatibility::look_ups(), description)) {}

size_t Examination::count(Diagnosis::Verdict verdict) const {
    const auto counted_in = [&](const std::vector<Diagnosis>& all) {
        return static_cast<size_t>(std::ranges::count(all, verdict, &Diagnosis::verdict));
    };
    return counted_in(rows) + counted_in(looked_up);
}

Json Examination::in_json() const {
    return {{"device", device},
            {"hooks", command::in_json(rows)},
            {"lookUps", command::in_json(looked_up)},
            {"summary",
             {{"hooks", rows.size()},
              {"wouldInstall", count_found(rows)},
              {"lookUps", looked_up.size()},
              {"wouldBeFound", count_found(looked_up)},
              {"missing", count(missing)},
              {"different", count(differs)},
              {"unrecorded", count(unrecorded)}}}};
}

size_t count_found(const std::vector<Diagnosis>& all) {
    return static_cast<size_t>(std::ranges::count_if(all, &Diagnosis::is_found));
}

}  // namespace command
