#include "cli/run.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>

#include "cli/command_line.h"
#include "cli/describe.h"
#include "cli/files.h"
#include "cli/misuse.h"
#include "cli/terminal.h"
#include "formats/value.h"

namespace command {
namespace {

int misuse(const CLI::App& command, const std::string& what) {
    const CLI::App& subcommand = chosen(command);
    const std::string whole = &subcommand == &command ? "huecraft" : "huecraft " + subcommand.get_name();
    std::fprintf(stderr, "huecraft: %s (see %s --help)\n", one_line(what, 400).c_str(), whole.c_str());
    return static_cast<int>(Status::unusable);
}

/// An empty text where a value should be, as of a variable that is not set; empty where there is none. Lists
/// of files are looked through one by one later.
std::string empty_value_in_words(const CLI::App& subcommand) {
    for (const CLI::Option* option : subcommand.get_options())
        if (option->count() == 1 && option->results()[0].empty())
            return option->get_name() + ": found \"\", expected " + expected_of(*option);
    return "";
}

int run_what_is_asked(std::vector<std::string> arguments) {
    Request request;
    const auto command = make_command_line(request, arguments.empty() ? "" : arguments[0]);
    // Before everything else, which would say that a subcommand is missing.
    const bool names_one = !arguments.empty() && (!arguments[0].starts_with('-') || arguments[0] == "-");
    if (names_one && !subcommand_named(*command, arguments[0]))
        return misuse(*command, "there is no subcommand " + in_quotes(arguments[0]));
    std::ranges::reverse(arguments);  // as the parser wants them
    try {
        command->parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        std::fputs(command->help().c_str(), stdout);
        return static_cast<int>(end_of_output(Status::fine));
    } catch (const CLI::CallForVersion& version) {
        std::printf("%s\n", version.what());
        return static_cast<int>(end_of_output(Status::fine));
    } catch (const CLI::ParseError& error) {
        return misuse(*command, misuse_in_words(*command, error));
    }
    if (const std::string empty = empty_value_in_words(chosen(*command)); !empty.empty())
        return misuse(*command, empty);
    return static_cast<int>(request.run());
}

}  // namespace

int run(std::vector<std::string> arguments) {
    try {
        return run_what_is_asked(std::move(arguments));
    } catch (const Unusable& unusable) {
        complain(unusable.file(), unusable.what());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "huecraft: %s\n", failure.what());
    }
    return static_cast<int>(Status::unusable);
}

Status complete(const std::function<Status()>& work) {
    Status status = Status::unusable;
    try {
        status = work();
    } catch (const Unusable& unusable) {
        complain(unusable.file(), unusable.what());
    } catch (const std::filesystem::filesystem_error& failure) {
        complain(failure.path1(), error_in_words(failure.code().value()));
    } catch (const std::bad_alloc&) {
        complain("an input", out_of_memory);
    } catch (const std::exception& failure) {
        std::fflush(stdout);
        std::fprintf(stderr, "huecraft: %s\n", failure.what());
    } catch (...) {
        // Its object may be gone with the pool that held it.
        complain("the simulated phone", "an exception was raised");
    }
    if (answers_in_json() && !complaints().empty() && !json_was_printed())
        std::fputs(printed(Json::object()).c_str(), stdout);
    return end_of_output(status);
}

}  // namespace command
