#include "comparison.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

namespace bench {

namespace {

using Key = std::pair<std::string, std::string>;
using ByName = std::map<Key, const Figure*>;

ByName by_name(const Measurements& run) {
    ByName all;
    for (const Figure& figure : run.figures) all[{figure.name, figure.unit}] = &figure;
    return all;
}

double drift_of(const std::string& unit) {
    if (unit == "ratio" || unit == "seconds") return 0.05;
    if (unit == "instructions" || unit == "bytes") return 0.01;
    return 0;
}

/// How far the second figure is above the first for certain, as a factor; at most 1 where it may not be.
double certain_rise(const Measured& then, const Measured& now) {
    if (now.low <= then.high) return 1;
    return then.high > 0 ? now.low / then.high : HUGE_VAL;
}

std::string amount(const Figure& figure) {
    char text[64];
    const double value = figure.value;
    if (figure.unit == "seconds")
        std::snprintf(text, sizeof text, "%.1f us", value * 1e6);
    else if (figure.unit == "ratio")
        std::snprintf(text, sizeof text, "%.3f", value);
    else
        std::snprintf(text, sizeof text, "%.0f %s", value, figure.unit.c_str());
    return text;
}

std::string line(const char* what, const Change& change) {
    char share[32];
    std::snprintf(
        share, sizeof share, "%+.1f %%",
        100 * (change.now.value / std::fabs(change.then.value) - std::copysign(1, change.then.value.value)));
    return std::string(what) + ": " + change.now.name + ": " + amount(change.then) + ", now " +
           amount(change.now) + (change.then.value == 0 ? "" : std::string(" (") + share + ")") + "\n";
}

}  // namespace

Comparison compare(const Measurements& then, const Measurements& now, bool in_part) {
    Comparison found{.same_processor = then.processor == now.processor};
    const ByName before = by_name(then), after = by_name(now);
    for (const auto& [key, figure] : after) {
        const auto& [name, unit] = key;
        const auto old = before.find(key);
        if (old == before.end()) {
            found.added.push_back(name + ", " + unit);
            continue;
        }
        if (unit == "seconds" && (!found.same_processor || after.contains({name, "ratio"}))) continue;
        const double enough = 1 + drift_of(unit);
        const Change change{*old->second, *figure};
        if (certain_rise(change.then.value, change.now.value) > enough) found.dearer.push_back(change);
        if (certain_rise(change.now.value, change.then.value) > enough) found.cheaper.push_back(change);
    }
    for (const auto& [key, figure] : before)
        if (!in_part && !after.contains(key)) found.gone.push_back(key.first + ", " + key.second);
    std::ranges::sort(found.dearer, std::greater{},
                      [](const Change& change) { return certain_rise(change.then.value, change.now.value); });
    std::ranges::sort(found.cheaper, std::greater{},
                      [](const Change& change) { return certain_rise(change.now.value, change.then.value); });
    return found;
}

std::string in_words(const Comparison& found) {
    std::string text;
    if (!found.same_processor) text += "Another processor: seconds are not compared.\n";
    for (const Change& change : found.dearer) text += line("dearer", change);
    for (const Change& change : found.cheaper) text += line("cheaper", change);
    for (const std::string& name : found.gone) text += "not measured now: " + name + "\n";
    for (const std::string& name : found.added) text += "not measured then: " + name + "\n";
    if (found.dearer.empty()) text += "Nothing became dearer.\n";
    return text;
}

}  // namespace bench
