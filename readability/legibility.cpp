#include "readability/legibility.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

#include "readability/oklab.h"

namespace readability {
namespace {

/// A colour that passes by itself, and how far it is from the maker's.
struct Candidate {
    Colour colour;
    double light, change;
};

std::vector<double> luminances_of(const std::vector<BehindKey>& behind) {
    std::vector<double> all;
    for (const BehindKey& key : behind)
        for (const Colour& colour : key.colours) all.push_back(luminance(colour));
    // By a function of our own: the device build has no instance of the library's for numbers.
    std::ranges::sort(all, [](double a, double b) { return a < b; });
    return all;
}

/// Whether the luminance has the contrast with each of these, which are sorted: those nearest to it decide.
bool passes(double light, const std::vector<double>& behind, double wanted) {
    const auto above = std::ranges::lower_bound(behind, light);
    if (above != behind.end() && contrast_of_luminances(light, *above) < wanted) return false;
    return above == behind.begin() || contrast_of_luminances(light, *(above - 1)) >= wanted;
}

/// Opaque colours of the maker's hue, in steps of lightness and of colourfulness, that have the contrast with
/// what is behind; the nearest first.
std::vector<Candidate> candidates(const Colour& wanted, const std::vector<BehindKey>& behind, double demand) {
    const std::vector<double> lights = luminances_of(behind);
    const Oklab target = oklab_of(wanted);
    std::vector<Candidate> all;
    auto consider = [&](const Oklab& lab) {
        const Colour colour = rounded(colour_of(lab));
        const double light = luminance(colour);
        if (passes(light, lights, demand)) all.push_back({colour, light, distance(oklab_of(colour), target)});
    };
    constexpr int steps = 400;
    for (const double colourfulness : {1.0, 0.85, 0.7, 0.5, 0.25, 0.0})
        for (int step = 0; step <= steps; ++step)
            consider({static_cast<double>(step) / steps, target.a * colourfulness, target.b * colourfulness});
    if (wanted.alpha == 1 && passes(luminance(wanted), lights, demand))
        all.push_back({wanted, luminance(wanted), 0});
    std::ranges::sort(all, {}, &Candidate::change);
    return all;
}

}  // namespace

Contrast smallest_contrast(const Colour& colour, const std::vector<BehindKey>& behind) {
    Contrast smallest{22, "", {}};
    const Colour* last = nullptr;  // backgrounds are even, or their rows are
    for (const BehindKey& key : behind)
        for (const Colour& opaque : key.colours) {
            if (last && *last == opaque) continue;
            last = &opaque;
            const double ratio = contrast(over(colour, opaque), opaque);
            if (ratio < smallest.ratio) smallest = {ratio, key.key, opaque};
        }
    return smallest;
}

std::string ratio_text(double ratio) {
    const auto hundredths = static_cast<int>(ratio * 100);
    std::string text;
    for (int rest = hundredths / 100; rest > 0 || text.empty(); rest /= 10)
        text.insert(text.begin(), static_cast<char>('0' + rest % 10));
    text += '.';
    text += static_cast<char>('0' + hundredths / 10 % 10);
    text += static_cast<char>('0' + hundredths % 10);
    return text;
}

std::vector<BehindKey> covered(const std::vector<BehindKey>& behind, const Colour& colour) {
    std::vector<BehindKey> all = behind;
    for (BehindKey& key : all)
        for (Colour& one : key.colours) one = over(colour, one);
    return all;
}

Legibility legibility_of(const Pair& pair, const Behind& behind) {
    return {smallest_contrast(pair.labels, behind.labels), smallest_contrast(pair.highlights, behind.keys),
            smallest_contrast(pair.labels, covered(behind.keys, pair.highlights))};
}

std::optional<Pair> nearest_pair(const Pair& wanted, const Behind& behind) {
    if (legibility_of(wanted, behind).passes()) return wanted;
    std::optional<Pair> nearest;
    double change = 1e9;
    auto consider = [&](const Pair& pair, double cost) {
        if (cost >= change) return;
        nearest = pair;
        change = cost;
    };
    const auto labels = candidates(wanted.labels, behind.labels, demand_of_labels.warning_below),
               highlights = candidates(wanted.highlights, behind.keys, demand_of_highlights.warning_below);
    // One of the two may stay as it is, also where it is translucent.
    if (smallest_contrast(wanted.highlights, behind.keys).ratio >= demand_of_highlights.warning_below) {
        const auto lights = luminances_of(covered(behind.keys, wanted.highlights));
        for (const Candidate& label : labels)
            if (passes(label.light, lights, demand_when_pressed.warning_below)) {
                consider({label.colour, wanted.highlights}, label.change * label.change);
                break;
            }
    }
    if (smallest_contrast(wanted.labels, behind.labels).ratio >= demand_of_labels.warning_below)
        for (const Candidate& highlight : highlights) {
            if (highlight.change * highlight.change >= change) break;
            if (contrast(over(wanted.labels, highlight.colour), highlight.colour) >=
                demand_when_pressed.warning_below)
                consider({wanted.labels, highlight.colour}, highlight.change * highlight.change);
        }
    for (const Candidate& label : labels) {
        const double of_label = label.change * label.change;
        if (of_label >= change) break;
        for (const Candidate& highlight : highlights) {
            const double cost = of_label + highlight.change * highlight.change;
            if (cost >= change) break;
            if (contrast_of_luminances(label.light, highlight.light) >= demand_when_pressed.warning_below) {
                consider({label.colour, highlight.colour}, cost);
                break;
            }
        }
    }
    return nearest;
}

}  // namespace readability
