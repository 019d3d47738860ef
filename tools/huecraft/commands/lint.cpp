// huecraft lint: what is wrong with themes, how well they can be read, and what they weigh.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "themes/findings.h"
#include "themes/fixing.h"

namespace command {
namespace {

struct Report {
    std::string file;
    std::vector<Finding> findings;
    std::optional<Contrast> labels, highlights, pressed;
    std::optional<Advice> advice;
    std::vector<std::string> done;  ///< by --fix
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
    const auto trial = copy_of(theme.config);  // looking behind the keys takes its picture out
    const Behind behind = sampler.behind(trial);
    const Pair pair = pair_of(theme.config);
    const Legibility legibility = legibility_of(pair, behind);
    const bool whole = labels && highlights;
    std::string advice;
    if (!whole || !legibility.passes()) {
        report.advice = advise(sampler, theme.config);
        advice = in_words(*report.advice);
    }
    for (Finding& finding : report.findings)
        if ((!labels && finding.key == name_of(ThemeKey::text_colour)) ||
            (!highlights && finding.key == name_of(ThemeKey::highlight_colour)))
            finding.fix += "; " + advice;
    if (labels) {
        report.labels = legibility.labels;
        report.add(findings_in_contrast(ThemeKey::text_colour, "labels", *labels, *report.labels,
                                        demand_of_labels, advice));
    }
    if (highlights) {
        report.highlights = legibility.highlights;
        report.add(findings_in_contrast(ThemeKey::highlight_colour, "highlights", *highlights,
                                        *report.highlights, demand_of_highlights, advice));
    }
    if (whole) {
        report.pressed = legibility.pressed;
        report.add(findings_in_contrast(ThemeKey::text_colour, "labels of highlighted keys", *labels,
                                        *report.pressed, demand_when_pressed, advice));
    }
    return report;
}

/// Puts the theme right and writes it in the form that it has. Answers what was done.
std::vector<std::string> fix(const std::string& file, const Workshop& workshop,
                             const BackdropSampler& sampler) {
    const std::string contents = read_input(file);
    const Form form = parse_property_list(contents, file).form;
    const LoadedTheme theme = load_theme(workshop, file, contents);
    std::vector<std::string> done = correct_values(theme.config, file);
    const Pair before = pair_of(theme.config);
    const Advice advice = advise(sampler, theme.config);
    const bool recoloured = hex_of(before.labels) != hex_of(advice.pair.labels) ||
                            hex_of(before.highlights) != hex_of(advice.pair.highlights);
    if (recoloured || advice.changes_background()) {
        apply(advice, theme.config);
        done.push_back(in_words(advice));
    }
    if (done.empty()) return done;
    if (form == Form::open_step) done.push_back("written as XML: the old form has no numbers");
    Losses losses;
    write_output(file, written_property_list(static_cast<NSObject*>(theme.config->asPlist()),
                                             form == Form::binary ? form : Form::xml, file, losses));
    return done;
}

std::string with_decimals(double number, int decimals) {
    char text[40];
    const double unit = std::pow(10, decimals);
    std::snprintf(text, sizeof text, "%.*f", decimals, std::floor(number * unit) / unit);
    return text;
}

std::string contrast_words(const char* what, const std::optional<Contrast>& contrast) {
    return std::string(what) + " " + (contrast ? readability::ratio_text(contrast->ratio) : "unknown");
}

void print(const Report& report) {
    const Tone tone = report.errors() ? Tone::bad : report.warnings() ? Tone::warning : Tone::good;
    const std::string image =
        report.weight.has_image
            ? with_decimals(static_cast<double>(report.weight.decoded_bytes()) / 1048576, 1) + " MB of image"
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
    for (const std::string& done : report.done)
        std::printf("  %s %s\n", toned(Tone::good, "fixed").c_str(), done.c_str());
    for (const Finding& finding : report.findings) {
        const bool is_error = finding.severity == Finding::Severity::error;
        std::printf("  %s %s: found %s; expected %s: %s\n",
                    toned(is_error ? Tone::bad : Tone::warning, is_error ? "error" : "warning").c_str(),
                    finding.key.c_str(), finding.found.c_str(), finding.expected.c_str(),
                    finding.fix.c_str());
    }
}

Json in_json(const std::optional<Contrast>& contrast) {
    if (!contrast) return nullptr;
    return {
        {"ratio", contrast->ratio}, {"worstKey", contrast->worst_key}, {"behind", hex_of(contrast->behind)}};
}

Json in_json(const std::optional<Advice>& advice) {
    if (!advice) return nullptr;
    Json colours = Json::array();
    for (const Colour& colour : advice->colours) colours.push_back(hex_of(colour));
    return {{"labels", hex_of(advice->pair.labels)},
            {"highlights", hex_of(advice->pair.highlights)},
            {"colors", colours},
            {"withoutPicture", advice->without_picture},
            {"dim", advice->dim},
            {"blur", advice->blur}};
}

Json in_json(const Report& report) {
    Json findings = Json::array();
    for (const Finding& one : report.findings)
        findings.push_back({{"severity", one.severity == Finding::Severity::error ? "error" : "warning"},
                            {"key", one.key},
                            {"found", one.found},
                            {"expected", one.expected},
                            {"fix", one.fix}});
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
            {"advice", in_json(report.advice)},
            {"fixed", report.done},
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
        if (unusable) line += "; " + counted(unusable, "unusable file");
        std::printf("%s\n", toned(Tone::strong, line).c_str());
    }
};

struct Lint {
    std::vector<std::string> files;
    bool fixing = false, json = false;

    Status operator()() const {
        if (fixing && std::ranges::find(files, "-") != files.end())
            throw Unusable("--fix", "found - among the files, expected files that can be written");
        return in_workshop([this](const Workshop& workshop) {
            const BackdropSampler sampler(workshop);
            Totals totals;
            Json all = Json::array();
            const Status status = for_each_file(files, [&](const std::string& file) {
                std::vector<std::string> done;
                if (fixing) done = fix(file, workshop, sampler);
                Report report = inspect(file, workshop, sampler);
                report.done = std::move(done);
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
    const Subcommand sub =
        add_subcommand(command, request, "lint", "Say what is wrong with themes, and how to fix it", options);
    sub.add_option("THEMES", options->files, "The themes").required().type_name("FILE");
    sub.add_flag("--fix", options->fixing,
                 "Follow the advice, and write the themes in place of what they were");
    add_json(sub, options->json);
    sub.footer(
        "Contrast is WCAG 2's, of the simulated keyboard over a plain light page. Of labels it is an error "
        "below "
        "3 and\n"
        "a warning below 4.5, of highlights an error below 2 and a warning below 3; of labels on highlighted "
        "keys it\n"
        "is a warning below 2.\n\n"
        "Examples:\n"
        "  huecraft lint Midnight.plist\n"
        "  huecraft lint --fix themes/*.plist\n"
        "  huecraft lint --json themes/*.plist | jq .summary");
}

}  // namespace command
