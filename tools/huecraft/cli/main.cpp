// huecraft: the command for those who make themes.
#include <algorithm>
#include <cstdio>
#include <exception>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

/// The subcommand that was named, or the command itself.
const CLI::App& chosen(const CLI::App& command) {
    const auto named = command.get_subcommands();
    return named.empty() ? command : *named.front();
}

bool has_subcommand(const CLI::App& command, const std::string& name) {
    const auto all = command.get_subcommands([](const CLI::App*) { return true; });
    return std::ranges::any_of(all, [&](const CLI::App* one) { return one->get_name() == name; });
}

int misuse(const CLI::App& command, const std::string& what) {
    const CLI::App& subcommand = chosen(command);
    const std::string whole = &subcommand == &command ? "huecraft" : "huecraft " + subcommand.get_name();
    std::fprintf(stderr, "huecraft: %s (see %s --help)\n", one_line(what, 300).c_str(), whole.c_str());
    return static_cast<int>(Status::unusable);
}

int run(std::vector<std::string> arguments) {
    Request request;
    const auto command = make_command_line(request);
    // Before everything else, which would say that a subcommand is missing.
    if (!arguments.empty() && !arguments[0].starts_with('-') && !has_subcommand(*command, arguments[0]))
        return misuse(*command, "there is no subcommand " + in_quotes(arguments[0]));
    std::ranges::reverse(arguments);  // as the parser wants them
    try {
        command->parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        std::fputs(command->help().c_str(), stdout);
        return output_is_whole() ? 0 : static_cast<int>(Status::unusable);
    } catch (const CLI::CallForVersion& version) {
        std::printf("%s\n", version.what());
        return output_is_whole() ? 0 : static_cast<int>(Status::unusable);
    } catch (const CLI::ParseError& error) {
        return misuse(*command, error.what());
    }
    return static_cast<int>(request.run());
}

}  // namespace
}  // namespace command

int main(int argc, char** argv) {
    try {
        return command::run({argv + 1, argv + argc});
    } catch (const command::Unusable& unusable) {
        command::complain(unusable.file(), unusable.what());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "huecraft: %s\n", failure.what());
    }
    return static_cast<int>(command::Status::unusable);
}
