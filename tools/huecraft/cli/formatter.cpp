#include "cli/formatter.h"

#include "cli/describe.h"

namespace command {

std::string Formatter::make_usage(const CLI::App* app, std::string name) const {
    if (!app->get_parent()) return CLI::Formatter::make_usage(app, std::move(name));
    const std::string words = synopsis(*app);
    return "Usage: " + name + " [OPTIONS]" + (words.empty() ? "" : " " + words) + "\n";
}

std::string Formatter::make_option_opts(const CLI::Option* option) const {
    if (option->get_items_expected_max() == 0) return "";
    const std::string type = option->get_type_name();
    if (option->get_positional()) return option->get_items_expected_max() > 1 ? "..." : "";
    return type.empty() ? "" : " " + type;
}

std::string Formatter::make_option_desc(const CLI::Option* option) const {
    return whole_description(*option);
}

}  // namespace command
