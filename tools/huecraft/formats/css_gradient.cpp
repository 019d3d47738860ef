// linear-gradient(…) of CSS: where it runs, and its colours.
#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "cli/terminal.h"
#include "formats/imported.h"

namespace command {
namespace {

std::string lowered(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r\n"), last = text.find_last_not_of(" \t\r\n");
    return first == text.npos ? "" : text.substr(first, last - first + 1);
}

/// The parts between separators that are in no brackets.
std::vector<std::string> split(const std::string& text, const std::string& separators) {
    std::vector<std::string> parts(1);
    int depth = 0;
    for (char c : text) {
        if (c == '(') ++depth;
        if (c == ')') --depth;
        if (depth == 0 && separators.find(c) != separators.npos)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    for (std::string& part : parts) part = trimmed(part);
    return parts;
}

std::vector<std::string> words(const std::string& text) {
    std::vector<std::string> all = split(text, " \t\r\n");
    std::erase(all, "");
    return all;
}

/// A number with a unit; nothing for what is none.
struct Quantity {
    double number;
    std::string unit;
};
std::optional<Quantity> quantity_of(const std::string& text) {
    if (text.empty() || text.find_first_of("xXnN") == 0) return std::nullopt;
    const char first = text[0];
    if (!std::isdigit(static_cast<unsigned char>(first)) && first != '.' && first != '-' && first != '+')
        return std::nullopt;
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || !std::isfinite(number)) return std::nullopt;
    return Quantity{number, end};
}

std::optional<Colour> hash_colour(const std::string& text) {
    std::string digits = text.substr(1);
    if (digits.size() == 3 || digits.size() == 4) {
        std::string doubled;
        for (char digit : digits) doubled += {digit, digit};
        digits = doubled;
    }
    return colour_of(digits);
}

/// In degrees; a number without a unit is one of degrees.
std::optional<double> degrees_of(const Quantity& quantity) {
    constexpr std::pair<const char*, double> units[] = {
        {"", 1}, {"deg", 1}, {"grad", 0.9}, {"turn", 360}, {"rad", 180 / 3.14159265358979323846}};
    for (const auto& [unit, degrees] : units)
        if (quantity.unit == unit) return quantity.number * degrees;
    return std::nullopt;
}

/// From hue in degrees, and saturation and lightness from 0 to 1.
Colour hsl_colour(double hue, double saturation, double lightness, double alpha) {
    const double amplitude = saturation * std::min(lightness, 1 - lightness);
    const auto component = [&](double offset) {
        const double place = std::fmod(offset + std::fmod(hue, 360) / 30 + 12, 12);
        return lightness - amplitude * std::max(-1.0, std::min({place - 3, 9 - place, 1.0}));
    };
    return {component(0), component(8), component(4), alpha};
}

/// rgb(…), hsl(…) and their kin with an a, with commas or with spaces.
std::optional<Colour> function_colour(const std::string& text) {
    const size_t open = text.find('(');
    const std::string name = text.substr(0, open);
    const bool hsl = name == "hsl" || name == "hsla";
    if ((!hsl && name != "rgb" && name != "rgba") || text.back() != ')') return std::nullopt;
    std::string inside = text.substr(open + 1, text.size() - open - 2);
    std::ranges::replace(inside, ',', ' ');
    std::ranges::replace(inside, '/', ' ');
    const auto parts = words(inside);
    if (parts.size() != 3 && parts.size() != 4) return std::nullopt;
    std::array<double, 4> components{0, 0, 0, 1};
    for (size_t i = 0; i < parts.size(); ++i) {
        const auto quantity = quantity_of(parts[i]);
        if (!quantity) return std::nullopt;
        if (hsl && i == 0) {
            const auto degrees = degrees_of(*quantity);
            if (!degrees) return std::nullopt;
            components[0] = *degrees;
            continue;
        }
        const bool percent = quantity->unit == "%";
        if (!percent && (!quantity->unit.empty() || (hsl && i < 3))) return std::nullopt;
        const double whole = percent ? 100 : i < 3 ? 255 : 1;
        components[i] = std::clamp(quantity->number / whole, 0.0, 1.0);
    }
    if (hsl) return hsl_colour(components[0], components[1], components[2], components[3]);
    return Colour{components[0], components[1], components[2], components[3]};
}

std::optional<Colour> css_colour(const std::string& text) {
    if (text.starts_with('#')) return hash_colour(text);
    if (text.find('(') != text.npos) return function_colour(text);
    return css_colour_named(text);
}

// The library's directions, by where they end.
constexpr unsigned up = 1, down = 2, left = 3, right = 4, up_left = 5, up_right = 6, down_left = 7,
                   down_right = 8;

std::optional<unsigned> direction_of_side(const std::string& text) {
    if (!text.starts_with("to ")) return std::nullopt;
    auto sides = words(text.substr(3));
    std::ranges::sort(sides, std::greater<>());  // top, right, left, bottom
    static const std::pair<std::vector<std::string>, unsigned> known[] = {
        {{"top"}, up},
        {{"bottom"}, down},
        {{"left"}, left},
        {{"right"}, right},
        {{"top", "left"}, up_left},
        {{"top", "right"}, up_right},
        {{"left", "bottom"}, down_left},
        {{"right", "bottom"}, down_right},
    };
    for (const auto& [names, direction] : known)
        if (sides == names) return direction;
    throw NotImportable("there is no direction " + in_quotes(text));
}

/// In degrees, clockwise from upwards; nothing for what is not a angle.
std::optional<double> angle_of(const std::string& text) {
    const auto quantity = quantity_of(text);
    if (!quantity) return std::nullopt;
    if (quantity->unit.empty() && quantity->number != 0) return std::nullopt;
    return degrees_of(*quantity);
}

unsigned direction_of_angle(double degrees, const std::string& text, std::vector<std::string>& losses) {
    constexpr unsigned eighths[] = {up, up_right, right, down_right, down, down_left, left, up_left};
    const double turned = std::fmod(std::fmod(degrees, 360) + 360, 360);
    const double steps = std::round(turned / 45);
    const auto nearest = static_cast<size_t>(steps) % 8;
    if (std::abs(turned - steps * 45) > 1e-6)
        losses.push_back("the angle " + in_quotes(text) + " became " + std::to_string(nearest * 45) +
                         "deg: a theme has eight directions");
    return eighths[nearest];
}

/// What stands between the brackets of the first linear gradient.
std::string inside_of_gradient(const std::string& css) {
    constexpr std::string_view start = "linear-gradient(";
    const size_t found = css.find(start);
    if (found == css.npos) throw NotImportable("there is no linear-gradient(…) in it");
    if (found >= 10 && css.compare(found - 10, 10, "repeating-") == 0)
        throw NotImportable("the gradient repeats itself, and a theme's does not");
    const size_t first = found + start.size();
    int depth = 1;
    for (size_t i = first; i < css.size(); ++i) {
        if (css[i] == '(') ++depth;
        if (css[i] == ')' && --depth == 0) return css.substr(first, i - first);
    }
    throw NotImportable("the brackets of linear-gradient( are not closed");
}

class GradientReader {
  public:
    Imported read(const std::string& css) {
        auto parts = split(inside_of_gradient(css), ",");
        if (const auto direction = direction_of_side(parts[0])) {
            theme_.direction = *direction;
            parts.erase(parts.begin());
        } else if (const auto angle = angle_of(parts[0])) {
            theme_.direction = direction_of_angle(*angle, parts[0], theme_.losses);
            parts.erase(parts.begin());
        }
        for (const std::string& part : parts) stop(part);
        if (theme_.colours.size() < 2) throw NotImportable("a gradient has two colours or more");
        check_positions();
        const size_t first = css.find("linear-gradient("), second = css.find("gradient(", first + 16);
        if (second != css.npos) theme_.losses.push_back("only the first gradient was taken");
        return std::move(theme_);
    }

  private:
    void stop(const std::string& part) {
        const auto pieces = words(part);
        if (pieces.empty()) throw NotImportable("a colour is missing between two commas");
        if (pieces.size() == 1 && quantity_of(pieces[0])) {
            theme_.losses.push_back("the midpoint " + in_quotes(part) + " was left out");
            return;
        }
        const auto colour = css_colour(pieces[0]);
        if (!colour)
            throw NotImportable(
                in_quotes(pieces[0]) +
                " is not a colour that can be read; expected a hex colour, rgb(…), rgba(…) or a name");
        theme_.colours.push_back(*colour);
        positions_.push_back({pieces.begin() + 1, pieces.end()});
    }

    /// A theme's colours are evenly spread.
    void check_positions() {
        for (size_t i = 0; i < positions_.size(); ++i) {
            if (positions_[i].empty()) continue;
            const double even = 100.0 * static_cast<double>(i) / static_cast<double>(positions_.size() - 1);
            const auto position = quantity_of(positions_[i][0]);
            const bool in_place = positions_[i].size() == 1 && position &&
                                  (position->unit == "%" || position->number == 0) &&
                                  std::abs(position->number - even) < 0.5;
            if (in_place) continue;
            std::string found;
            for (const std::string& one : positions_[i]) found += (found.empty() ? "" : " ") + one;
            theme_.losses.push_back("the position " + in_quotes(found) + " of colour " +
                                    std::to_string(i + 1) + " became " + std::to_string(std::lround(even)) +
                                    "%: a theme's colours are evenly spread");
        }
    }

    Imported theme_;
    std::vector<std::vector<std::string>> positions_;
};

}  // namespace

std::vector<std::string> comma_separated(const std::string& text) { return split(text, ","); }

std::optional<Colour> colour_in_words(const std::string& text) {
    if (const auto hex = colour_of(text)) return hex;
    const std::string css = lowered(trimmed(text));
    return css.empty() ? std::nullopt : css_colour(css);
}

std::string without_css_comments(const std::string& css) {
    std::string kept;
    for (size_t at = 0; at < css.size();) {
        const size_t begin = css.find("/*", at);
        kept += css.substr(at, begin - at);
        if (begin == css.npos) break;
        kept += ' ';  // a comment parts words
        const size_t end = css.find("*/", begin + 2);
        if (end == css.npos) break;  // one that is not closed reaches to the end
        at = end + 2;
    }
    return kept;
}

Imported import_css_gradient(const std::string& css) {
    return GradientReader().read(lowered(without_css_comments(css)));
}

}  // namespace command
