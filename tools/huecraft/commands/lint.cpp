// huecraft lint: what is wrong with themes, how well they can be read, and what they weigh.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "themes/findings.h"

namespace command {
namespace {

struct Report {
    std::string file;
    std::vector<Finding> findings;
    std::optional<Contrast> labels, highlights, pressed;
    Weight weight;
    double load_milliseconds = 0;

    size_t count(Finding::Severity severity) const {
        return static_cast<size_t>(
            std::ranges::count_if(findings, [&](const Finding& one) { return one.severity == severity; }));
    }
    size_t errors() const { return count(Finding::Severity::error); }
    size_t warnings() const { return count(Finding::Severity::warning); }

    void add(std::vector<Finding> more) {
        findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                        std::make_move_iterator(more.end()));
    }
};

/// A colour that the library reads from what stands there, and that somebody meant.
std::optional<Colour> readable_colour(UIColor* color, id stored) {
    auto* hex = as<NSString>(stored);
    if (!color || !hex || !colour_of(std::string(hex->UTF8String()))) return std::nullopt;
    return colour_of(color);
}

Report inspect(const std::string& file, const Workshop& workshop, const BackdropSampler& sampler) {
    objc::AutoreleasePool pool;
    const LoadedTheme theme = load_theme(workshop, file);
    Report report;
    report.file = file;
    report.load_milliseconds = theme.milliseconds;
    report.add(findings_in_values(theme));
    report.weight = weight_of(theme);
    report.add(findings_in_weight(theme, report.weight));

    const auto labels =
        readable_colour(theme.config->getTextColor(), theme.stored(name_of(ThemeKey::text_colour)));
    const auto highlights =
        readable_colour(theme.config->getHighlightColor(), theme.stored(name_of(ThemeKey::highlight_colour)));
    if (!labels && !highlights) return report;
    const Behind behind = sampler.behind(theme.config);
    if (labels) {
        report.labels = smallest_contrast(*labels, behind.labels);
        report.add(findings_in_contrast(ThemeKey::text_colour, "labels", *labels, *report.labels,
                                        behind.labels, demand_at_rest));
    }
    if (highlights) {
        report.highlights = smallest_contrast(*highlights, behind.keys);
        report.add(findings_in_contrast(ThemeKey::highlight_colour, "highlights", *highlights,
                                        *report.highlights, behind.keys, demand_at_rest));
    }
    if (labels && highlights) {
        const auto highlighted = covered(behind.keys, *highlights);
        report.pressed = smallest_contrast(*labels, highlighted);
        report.add(findings_in_contrast(ThemeKey::text_colour, "labels of highlighted keys", *labels,
                                        *report.pressed, highlighted, demand_when_pressed));
    }
    return report;
}

std::string with_decimals(double number, int decimals) {
    char text[40];
    const double unit = std::pow(10, decimals);
    std::snprintf(text, sizeof text, "%.*f", decimals, std::floor(number * unit) / unit);
    return text;
}

std::string contrast_words(const char* what, const std::optional<Contrast>& contrast) {
    return std::string(what) + " " + (contrast ? with_decimals(contrast->ratio, 1) : "unknown");
}

void print(const Report& report) {
    const Tone tone = report.errors() ? Tone::bad : report.warnings() ? Tone::warning : Tone::good;
    const std::string image =
        report.weight.has_image ? with_decimals(report.weight.decoded_bytes() / 1048576.0, 1) + " MB of image"
                                : "no image";
    std::printf("%s: %s: contrast of %s, %s, %s; %s; loads in %s ms\n",
                toned(Tone::strong, one_line(report.file, 4096)).c_str(),
                toned(tone, report.errors()     ? "faulty"
                            : report.warnings() ? "weak"
                                                : "fine")
                    .c_str(),
                contrast_words("labels", report.labels).c_str(),
                contrast_words("highlights", report.highlights).c_str(),
                contrast_words("one on the other", report.pressed).c_str(), image.c_str(),
                with_decimals(report.load_milliseconds, 2).c_str());
    for (const Finding& finding : report.findings) {
        const bool is_error = finding.severity == Finding::Severity::error;
        std::printf("  %s %s: found %s; expected %s: %s\n",
                    toned(is_error ? Tone::bad : Tone::warning, is_error ? "error" : "warning").c_str(),
                    finding.key.c_str(), finding.found.c_str(), finding.expected.c_str(),
                    finding.mend.c_str());
    }
}

Json in_json(const std::optional<Contrast>& contrast) {
    if (!contrast) return nullptr;
    return {
        {"ratio", contrast->ratio}, {"worstKey", contrast->worst_key}, {"behind", hex_of(contrast->behind)}};
}

Json in_json(const Report& report) {
    Json findings = Json::array();
    for (const Finding& one : report.findings)
        findings.push_back({{"severity", one.severity == Finding::Severity::error ? "error" : "warning"},
                            {"key", one.key},
                            {"found", one.found},
                            {"expected", one.expected},
                            {"mend", one.mend}});
    Json image = nullptr;
    if (report.weight.has_image)
        image = {{"width", report.weight.width},
                 {"height", report.weight.height},
                 {"decodedBytes", report.weight.decoded_bytes()}};
    return {{"file", report.file},
            {"findings", findings},
            {"contrast",
             {{"labels", in_json(report.labels)},
              {"highlights", in_json(report.highlights)},
              {"labelsOnHighlights", in_json(report.pressed)}}},
            {"image", image},
            {"loadMilliseconds", report.load_milliseconds}};
}

struct Totals {
    size_t themes = 0, faulty = 0, weak = 0, errors = 0, warnings = 0;

    void add(const Report& report) {
        ++themes;
        faulty += report.errors() > 0;
        weak += report.errors() == 0 && report.warnings() > 0;
        errors += report.errors();
        warnings += report.warnings();
    }

    Json in_json(size_t unusable) const {
        return {
            {"themes", themes}, {"fine", themes - faulty - weak}, {"weak", weak},        {"faulty", faulty},
            {"errors", errors}, {"warnings", warnings},           {"unusable", unusable}};
    }

    void print(size_t unusable) const {
        std::string line = counted(themes, "theme") + ": " + std::to_string(themes - faulty - weak) +
                           " fine, " + std::to_string(weak) + " weak, " + std::to_string(faulty) +
                           " faulty; " + counted(errors, "error") + ", " + counted(warnings, "warning");
        if (unusable) line += "; " + counted(unusable, "file") + " of no use";
        std::printf("%s\n", toned(Tone::strong, line).c_str());
    }
};

struct Lint {
    std::vector<std::string> files;
    bool json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            const BackdropSampler sampler(workshop);
            Totals totals;
            Json all = Json::array();
            const Status status = for_each_file(files, [&](const std::string& file) {
                const Report report = inspect(file, workshop, sampler);
                totals.add(report);
                json ? all.push_back(command::in_json(report)) : print(report);
                return report.findings.empty() ? Status::fine : Status::finding;
            });
            const size_t unusable = files.size() - totals.themes;
            if (json)
                std::fputs(printed({{"files", all}, {"summary", totals.in_json(unusable)}}).c_str(), stdout);
            else
                totals.print(unusable);
            return status;
        });
    }
};

}  // namespace

void add_lint(CLI::App& command, Request& request) {
    auto options = std::make_shared<Lint>();
    CLI::App* sub = add_subcommand(command, request, "lint",
                                   "Say what is wrong with themes, and how to mend it", options);
    sub->add_option("files", options->files, "Themes")->required()->type_name("FILE");
    add_json(sub, options->json);
    sub->footer(
        "Contrast is WCAG 2's, of the simulated keyboard over a plain light page. Below 3 it is an error, "
        "below\n"
        "4.5 a warning; of labels on highlighted keys it is a warning below 3.\n\n"
        "Examples:\n"
        "  huecraft lint Midnight.plist\n"
        "  huecraft lint themes/*.plist\n"
        "  huecraft lint --json themes/*.plist | jq .summary");
}

}  // namespace command
