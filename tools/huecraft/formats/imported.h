// A theme as another format describes it.
#pragma once
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "themes/colour.h"

namespace command {

struct Imported {
    std::string name;
    std::optional<Colour> text, highlight;
    /// One is a flat colour, more are a gradient.
    std::vector<Colour> colours;
    unsigned direction = 2;
    /// What could not be carried over, a line each.
    std::vector<std::string> losses;
    /// What every source of the kind has and no theme has a place for.
    std::vector<std::string> left_out;
};

/// What keeps a text from being imported, in one line.
struct NotImportable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A base16 scheme, in YAML. Throws NotImportable.
Imported import_base16(const std::string& yaml);

/// The text without what stands between /* and */.
std::string without_css_comments(const std::string& css);

/// The first linear-gradient(…) in a text of CSS. Throws NotImportable.
Imported import_css_gradient(const std::string& css);

/// A colour as a theme's file or CSS has it: hex digits, rgb(…), hsl(…), a name. In any case.
std::optional<Colour> colour_in_words(const std::string& text);
/// The parts between the commas that are in no brackets.
std::vector<std::string> comma_separated(const std::string& text);

/// A colour by its name in CSS, in lower case.
std::optional<Colour> css_colour_named(const std::string& name);

}  // namespace command
