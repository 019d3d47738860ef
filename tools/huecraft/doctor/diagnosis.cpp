// Holding the library against the description of a system.
#include "doctor/diagnosis.h"

#include <algorithm>

#include "cli/terminal.h"
#include "doctor/method_types.h"

namespace command {
namespace {

using enum Diagnosis::Verdict;

const char* word_of(Diagnosis::Verdict verdict) {
    switch (verdict) {
        case well: return "well";
        case missing: return "missing";
        case differs: return "differs";
        case unrecorded: return "unrecorded";
    }
    return "";
}

void judge(Diagnosis& found, Diagnosis::Verdict verdict, std::string reason, std::string effect) {
    found.verdict = verdict;
    found.reason = std::move(reason);
    found.effect = std::move(effect);
}

/// Where something is not known to be there.
void judge_absence(Diagnosis& found, Presence presence, const std::string& what,
                   const std::string& missing_reason, const std::string& effect) {
    if (presence == Presence::missing) judge(found, missing, missing_reason, effect);
    if (presence == Presence::unrecorded) judge(found, unrecorded, what + " was not recorded", effect);
}

void judge_method(Diagnosis& found, const Member& method, const std::string& ours, const std::string& effect,
                  const std::string& user) {
    found.types = method.types;
    if (method.presence != Presence::there)
        judge_absence(found, method.presence, "the method", "the class has no such method", effect);
    else if (!method.types.empty() && !pass_alike(method.types, ours))
        judge(found, differs, "its types are " + in_quotes(method.types) + ", and not " + in_quotes(ours),
              user + " mistakes what it is given or what is answered, and applications may stop");
}

Diagnosis diagnosis_of(const HookRow& row, const DeviceDescription& device) {
    using enum HookRow::How;
    Diagnosis found{row.target,
                    row.how == added      ? "added"
                    : row.how == function ? "function replaced"
                                          : "replaced",
                    well, "", ""};
    const std::string& effect = effect_without(row.target);
    if (row.how == function) {
        judge_absence(found, device.function(row.target), "the function", "there is no such function",
                      effect);
    } else if (const std::string owner = class_of_method(row.target);
               device.class_named(owner) != Presence::there) {
        judge_absence(found, device.class_named(owner), "the class " + owner, "there is no class " + owner,
                      effect);
    } else if (row.how == replaced) {
        judge_method(found, device.method(row.target), row.types, effect, "the replacement");
    } else if (const Presence there = device.own_method(row.target).presence; there != Presence::missing) {
        if (there == Presence::there)
            judge(found, missing, "the class has such a method already, which stays", effect);
        else
            judge(found, unrecorded, "the method was not recorded", effect);
    }
    if (found.verdict == well && device.had_no_effect(row.target))
        judge(found, missing, "the hook had no effect there", effect);
    return found;
}

Diagnosis diagnosis_of(const LookUp& wanted, const DeviceDescription& device) {
    using enum LookUp::Kind;
    const bool is_class = wanted.kind == class_name, is_variable = wanted.kind == variable;
    Diagnosis found{is_class      ? wanted.class_name
                    : is_variable ? wanted.class_name + " " + wanted.member
                                  : wanted.member,
                    is_class      ? "class looked up"
                    : is_variable ? "variable read"
                                  : "method called",
                    well, "", ""};
    const Presence owner = device.class_named(wanted.class_name);
    if (owner != Presence::there) {
        // Nothing reads a variable of a class that is not there: its hooks are not either.
        if (!is_variable || owner == Presence::unrecorded)
            judge_absence(found, owner, "the class " + wanted.class_name,
                          "there is no class " + wanted.class_name,
                          is_variable ? wanted.without_member : wanted.without_class);
    } else if (is_variable) {
        const Member variable = device.variable(wanted.class_name, wanted.member);
        found.types = variable.types;
        if (variable.presence != Presence::there)
            judge_absence(found, variable.presence, "the variable", "the class has no such variable",
                          wanted.without_member);
        else if (!variable.types.empty() && variable.types[0] != '@')
            judge(found, differs, "its type is " + in_quotes(variable.types) + ", and no object",
                  wanted.without_member);
    } else if (wanted.kind == class_method) {
        judge_method(found, device.method(wanted.member), wanted.types, wanted.without_member, "the library");
    }
    return found;
}

template <class Wanted>
std::vector<Diagnosis> diagnoses(const std::vector<Wanted>& all, const DeviceDescription& device) {
    std::vector<Diagnosis> found;
    for (const Wanted& one : all) found.push_back(diagnosis_of(one, device));
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
      looked_up(diagnoses(look_ups(), description)) {}

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
