#include "themes/parcel.h"

#include <algorithm>
#include <filesystem>

#include "cli/files.h"
#include "cli/terminal.h"
#include "support/text.h"
#include "themes/findings.h"
#include "themes/theme.h"

namespace command {
namespace {

/// The last part of the path, where it can be a file's name on the phone. Throws Unusable.
std::string name_on_the_phone(const std::string& file) {
    const std::string name = std::filesystem::path(file).filename();
    constexpr size_t longest = 255;
    if (!name.ends_with(".plist") || name == ".plist")
        throw Unusable(file, "its name is " + in_quotes(name) + ", expected one that ends in .plist");
    if (name.size() > longest) throw Unusable(file, "its name is too long");
    objc::AutoreleasePool pool;
    // What is escaped when it is printed would break the lists that installers keep.
    if (!tools::text(name) || one_line(name, longest) != name)
        throw Unusable(file, "its name has characters that cannot be printed");
    return name;
}

ParcelledTheme read_theme(const Workshop& workshop, const std::string& file) {
    ParcelledTheme parcelled{file, name_on_the_phone(file), {}, read_input(file)};
    on_the_phone(file, [&] {
        const LoadedTheme theme = load_theme(workshop, file, parcelled.contents);
        for (const Finding& finding : findings_in_values(theme))
            if (finding.severity == Finding::Severity::error)
                throw Unusable(file, finding.key + ": found " + finding.found + ", expected " +
                                         finding.expected + " (see huecraft lint)");
        NSString* title = theme.config->getConfigName();
        parcelled.title = title && title->length() ? tools::utf8(title) : parcelled.stem();
    });
    return parcelled;
}

}  // namespace

std::optional<std::vector<ParcelledTheme>> parcel(const Workshop& workshop,
                                                  const std::vector<std::string>& files) {
    std::vector<ParcelledTheme> themes;
    for (const std::string& file : files) {
        try {
            ParcelledTheme theme = read_theme(workshop, file);
            const auto same = std::ranges::find(themes, theme.name, &ParcelledTheme::name);
            if (same != themes.end())
                throw Unusable(file,
                               "it would replace " + one_line(same->file) + ", which has the same name");
            themes.push_back(std::move(theme));
        } catch (const Unusable& unusable) {
            complain(unusable.file(), unusable.what());
        }
    }
    if (themes.size() != files.size()) return std::nullopt;
    return themes;
}

}  // namespace command
