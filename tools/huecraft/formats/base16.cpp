// base16 schemes: sixteen colours, each with a meaning.
#include <yaml-cpp/yaml.h>

#include <algorithm>

#include "cli/terminal.h"
#include "formats/imported.h"

namespace command {
namespace {

std::string text_of(const YAML::Node& node, const std::string& key) {
    const YAML::Node value = node[key];
    return value && value.IsScalar() ? value.Scalar() : "";
}

Colour colour_named(const YAML::Node& palette, const std::string& name) {
    const YAML::Node value = palette[name];
    if (!value) throw NotImportable("the scheme has no colour " + name);
    const auto colour = value.IsScalar() ? colour_of(value.Scalar()) : std::nullopt;
    if (!colour)
        throw NotImportable(name + ": found " + (value.IsScalar() ? in_quotes(value.Scalar()) : "no text") +
                            ", expected a hex colour, RRGGBB");
    return *colour;
}

Imported import_scheme(const YAML::Node& scheme) {
    if (!scheme.IsMap()) throw NotImportable("it is neither a base16 scheme nor a CSS gradient");
    const YAML::Node palette = scheme["palette"] && scheme["palette"].IsMap() ? scheme["palette"] : scheme;
    Imported theme;
    theme.name = text_of(scheme, "scheme");
    if (theme.name.empty()) theme.name = text_of(scheme, "name");
    theme.colours = {colour_named(palette, "base00")};
    theme.text = colour_named(palette, "base05");
    theme.highlight = colour_named(palette, "base0D");
    std::string unused;
    for (const char digit : std::string("0123456789ABCDEF")) {
        const std::string name = std::string("base0") + digit;
        const bool used = name == "base00" || name == "base05" || name == "base0D";
        if (!used && palette[name]) unused += (unused.empty() ? "" : ", ") + name;
    }
    if (!unused.empty()) theme.left_out.push_back("a theme has no place for " + unused);
    for (const auto& entry : scheme) {
        const std::string key = entry.first.IsScalar() ? entry.first.Scalar() : "";
        const bool known = key == "scheme" || key == "name" || key == "palette" || key.starts_with("base0");
        const bool usual =
            key == "author" || key == "slug" || key == "system" || key == "variant" || key == "description";
        if (!known)
            (usual ? theme.left_out : theme.losses).push_back("a theme has no place for " + in_quotes(key));
    }
    return theme;
}

}  // namespace

Imported import_base16(const std::string& yaml) {
    try {
        return import_scheme(YAML::Load(yaml));
    } catch (const YAML::Exception& error) {
        throw NotImportable("it is neither a CSS gradient nor YAML: line " +
                            std::to_string(error.mark.line + 1) + ", column " +
                            std::to_string(error.mark.column + 1) + ": " + one_line(error.msg, 200));
    }
}

}  // namespace command
