// The help of the command and of its subcommands.
#pragma once
#include <CLI/CLI.hpp>
#include <string>

namespace command {

/// What is required stands in the usage, and what excludes what behind the descriptions.
class Formatter : public CLI::Formatter {
  public:
    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
};

}  // namespace command
