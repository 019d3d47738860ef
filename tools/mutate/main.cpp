// Changes sources in places, one at a time, and says which changes no test notices: huecraft_mutate --root
// <folder>
// --build <folder> [<file or folder>[:<line>]...]
#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <random>
#include <set>
#include <tuple>

#include "explained.h"
#include "process.h"
#include "trial.h"

namespace mutate {
namespace {

struct Request {
    fs::path root, build;
    std::vector<std::string> wanted{"library"};
    size_t sample = 0;  // all of them
    unsigned seed = 1;
    bool list = false;
};

/// "<path>:<line>" names one line.
struct Wanted {
    std::string path;
    size_t line = 0;  // all of them
};

Wanted wanted_of(const std::string& argument) {
    const size_t colon = argument.rfind(':');
    if (colon == argument.npos) return {argument};
    Wanted wanted{argument.substr(0, colon)};
    const char* end = argument.data() + argument.size();
    const auto [stopped, error] = std::from_chars(argument.data() + colon + 1, end, wanted.line);
    if (error != std::errc() || stopped != end || wanted.line == 0)
        throw Failure(argument + ": expected a line from 1 after the colon, found '" +
                      argument.substr(colon + 1) + "'");
    return wanted;
}

bool is_source(const fs::path& path) { return path.extension() == ".cpp" || path.extension() == ".h"; }

/// What the arguments name, from the root, each file once. Of a folder, all that an image holds.
std::set<std::string> files_of(const Request& request, const Wanted& wanted, Trial& trial) {
    const fs::path path = (request.root / wanted.path).lexically_normal();
    const auto from_root = [&](const fs::path& file) {
        return file.lexically_relative(request.root).string();
    };
    if (fs::is_directory(path)) {
        std::set<std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(path))
            if (is_source(entry.path()) && trial.holds(from_root(entry.path())))
                files.insert(from_root(entry.path()));
        if (files.empty()) throw Failure(wanted.path + ": no source in it is a part of what is judged");
        return files;
    }
    if (!fs::exists(path)) throw Failure(wanted.path + ": there is no such file or folder");
    if (!is_source(path)) throw Failure(wanted.path + ": expected a source, .cpp or .h");
    if (!trial.holds(from_root(path))) throw Failure(wanted.path + ": it is no part of what is judged");
    return {from_root(path)};
}

std::vector<Candidate> candidates(const Request& request, Trial& trial) {
    std::vector<Candidate> all;
    for (const std::string& argument : request.wanted) {
        const Wanted wanted = wanted_of(argument);
        for (const std::string& file : files_of(request, wanted, trial))
            for (Mutant& mutant : mutants_of(read_file(request.root / file)))
                if (wanted.line == 0 || wanted.line == mutant.line) all.push_back({file, std::move(mutant)});
    }
    if (all.empty()) throw Failure("nothing there can be changed");
    return all;
}

/// A sample that a seed decides, on every machine alike; in the order of the sources, for what kills one
/// mutant often kills its neighbour.
void take_sample(std::vector<Candidate>& all, size_t count, unsigned seed) {
    if (count == 0 || count >= all.size()) return;
    std::mt19937 random(seed);
    for (size_t i = 0; i < count; ++i) std::swap(all[i], all[i + random() % (all.size() - i)]);
    all.resize(count);
    std::ranges::sort(all, {}, [](const Candidate& one) {
        return std::tuple(one.file, one.mutant.offset, one.mutant.replacement);
    });
}

/// An explanation of what is no longer there explains nothing.
void check_explanations(const fs::path& root, const fs::path& list, const std::vector<Explained>& explained) {
    for (const Explained& one : explained) {
        const auto mutants = mutants_of(read_file(root / one.file));
        if (std::ranges::none_of(mutants, [&](const Mutant& m) { return is_explained({one}, one.file, m); }))
            throw Failure(list.string() + ":" + std::to_string(one.line) + ": " + one.file +
                          " has no such mutant any more: " + one.after);
    }
}

void print_change(const Candidate& one) {
    std::printf("    - %s\n    + %s\n", one.mutant.before.c_str(), one.mutant.after.c_str());
}

int try_mutants(const Request& request) {
    const auto judges = read_judges(request.root / "tests/mutation/judges.txt");
    const fs::path list = request.root / "tests/mutation/explained.txt";
    const auto explained = read_explained(list);
    check_explanations(request.root, list, explained);
    Trial trial(request.root, request.build, judges);
    std::vector<Candidate> all = candidates(request, trial);
    const size_t found = all.size();
    take_sample(all, request.sample, request.seed);
    trial.expect(all);

    size_t killed = 0, survived = 0, known = 0, not_compiled = 0, same_code = 0, tried = 0;
    for (const Candidate& one : all) {
        const std::string place = one.file + ":" + std::to_string(one.mutant.line);
        ++tried;
        if (request.list) {
            std::printf("%s\n", place.c_str());
            print_change(one);
            continue;
        }
        if (is_explained(explained, one.file, one.mutant)) {
            ++known;
            continue;
        }
        Verdict verdict{};
        try {
            verdict = trial.judge(one);
        } catch (const Failure& failure) {
            if (std::string_view(failure.what()) != "interrupted") throw;
            std::printf("interrupted\n");
            --tried;
            break;
        }
        switch (verdict.fate) {
            case Fate::killed:
                ++killed;
                std::printf("[%zu/%zu] killed: %s by %s\n", tried, all.size(), place.c_str(),
                            verdict.by.c_str());
                break;
            case Fate::not_compiled:
                ++not_compiled;
                std::printf("[%zu/%zu] not compiled: %s\n", tried, all.size(), place.c_str());
                break;
            case Fate::same_code:
                ++same_code;
                std::printf("[%zu/%zu] the same code: %s\n", tried, all.size(), place.c_str());
                break;
            case Fate::survived:
                ++survived;
                std::printf("[%zu/%zu] SURVIVED: %s\n", tried, all.size(), place.c_str());
                print_change(one);
                break;
        }
        std::fflush(stdout);
    }
    std::printf("mutants: %zu found, %zu tried", found, tried);
    if (!request.list)
        std::printf(
            ", %zu killed, %zu survived, %zu explained, %zu not compiled, %zu the same code (seed %u)",
            killed, survived, known, not_compiled, same_code, request.seed);
    std::printf("\n");
    return survived || (!request.list && tried < all.size()) ? 1 : 0;
}

int refuse(const char* what) {
    std::fprintf(stderr, "mutate: %s (see ./dev mutate --help)\n", what);
    return 2;
}

}  // namespace
}  // namespace mutate

int main(int argc, char** argv) try {
    mutate::Request request;
    CLI::App app;
    app.set_help_flag();  // ./dev has the help
    app.add_option("--root", request.root)->required();
    app.add_option("--build", request.build)->required();
    app.add_option("--sample", request.sample)->check(CLI::Range(1, 1000000));
    app.add_option("--seed", request.seed);
    app.add_flag("--list", request.list);
    app.add_option("files", request.wanted);
    app.parse(argc, argv);
    std::error_code none;
    request.root = std::filesystem::canonical(request.root, none);
    request.build = std::filesystem::canonical(request.build, none);
    mutate::notice_interruptions();
    return mutate::try_mutants(request);
} catch (const std::exception& error) {
    return mutate::refuse(error.what());
}
