#include "support/cases.h"

#include <fnmatch.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/rehearsal.h"

namespace test {
namespace {

struct Settings {
    std::string prefix;
    size_t jobs = std::max(1u, std::thread::hardware_concurrency());
    unsigned limit = 120, patience = 1200;
    bool here = false, rehearse = false;
};

enum class Verdict { passed, failed, skipped };
// What a case's process says of itself. Every other status is a failure: a case that calls exit(0) has not
// passed.
constexpr int passed_status = 76, skipped_status = 77;

struct Case {
    std::string name;
    std::FILE* output = nullptr;
    Verdict verdict = Verdict::failed;
    double seconds = 0;
};

[[noreturn]] void misuse(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::exit(2);
}

unsigned number(const std::string& argument, std::string_view digits) {
    char* end = nullptr;
    const std::string text(digits);
    const unsigned long value = std::strtoul(text.c_str(), &end, 10);
    if (text.empty() || *end || value < 1 || value > 100000)
        misuse(argument + ": expected a number from 1 to 100000");
    return static_cast<unsigned>(value);
}

Settings settings(int argc, char** argv) {
    Settings read;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::string_view value = std::string_view(argument).substr(
            argument.find('=') == argument.npos ? argument.size() : argument.find('=') + 1);
        if (argument.starts_with("--prefix="))
            read.prefix = value;
        else if (argument.starts_with("--jobs="))
            read.jobs = number(argument, value);
        else if (argument.starts_with("--limit="))
            read.limit = number(argument, value);
        else if (argument.starts_with("--patience="))
            read.patience = number(argument, value);
        else if (argument == "--here")
            read.here = true;
        else if (argument == "--rehearse")
            read.rehearse = true;
        else
            misuse(argument +
                   ": expected --prefix=, --jobs=, --limit=, --patience=, --here, --rehearse or an option of "
                   "gtest's");
    }
    return read;
}

/// Whether one of the patterns, with colons between them, matches.
bool matches(std::string_view patterns, const std::string& name) {
    while (true) {
        const size_t colon = patterns.find(':');
        if (fnmatch(std::string(patterns.substr(0, colon)).c_str(), name.c_str(), 0) == 0) return true;
        if (colon == patterns.npos) return false;
        patterns.remove_prefix(colon + 1);
    }
}

/// As gtest reads its filter: what to run, and after a hyphen what not.
std::vector<Case> selected_cases() {
    const std::string filter = GTEST_FLAG_GET(filter);
    const size_t hyphen = filter.find('-');
    const std::string wanted = hyphen == 0 ? "*" : filter.substr(0, hyphen),
                      unwanted = hyphen == filter.npos ? "" : filter.substr(hyphen + 1);
    std::vector<Case> cases;
    const testing::UnitTest& program = *testing::UnitTest::GetInstance();
    for (int i = 0; i < program.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *program.GetTestSuite(i);
        for (int each = 0; each < suite.total_test_count(); ++each) {
            const std::string name = std::string(suite.name()) + "." + suite.GetTestInfo(each)->name();
            if (matches(wanted, name) && !matches(unwanted, name)) cases.push_back({.name = name});
        }
    }
    return cases;
}

/// The whole life of a case's process.
[[noreturn]] void run_one(const Case& one, const Settings& settings) {
    const int output = fileno(one.output);
    if (dup2(output, STDOUT_FILENO) < 0 || dup2(output, STDERR_FILENO) < 0) _exit(1);
    const itimerval limit{.it_interval = {}, .it_value = {.tv_sec = settings.limit, .tv_usec = 0}};
    setitimer(ITIMER_PROF, &limit, nullptr);
    alarm(settings.patience);
    GTEST_FLAG_SET(filter, one.name);
    GTEST_FLAG_SET(brief, true);
    const int result = RUN_ALL_TESTS();
    const testing::UnitTest& program = *testing::UnitTest::GetInstance();
    if (result == 0 && program.test_to_run_count() != 1) {
        std::printf("%d cases ran as %s\n", program.test_to_run_count(), one.name.c_str());
        std::exit(1);
    }
    // And not _exit: the leak checker and the coverage of what is destroyed have the last word.
    if (result != 0) std::exit(result);
    std::exit(program.skipped_test_count() ? skipped_status : passed_status);
}

pid_t start(Case& one, const Settings& settings) {
    one.output = std::tmpfile();
    if (!one.output) misuse("there is no place for temporary files");
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process < 0) misuse("no process can be made");
    if (process == 0) run_one(one, settings);
    return process;
}

double seconds(const timeval& time) { return static_cast<double>(time.tv_sec) + time.tv_usec / 1e6; }
double processor_seconds(const rusage& usage) { return seconds(usage.ru_utime) + seconds(usage.ru_stime); }

/// How a process ended that did not pass, where the case itself cannot have said so.
std::string ending(int status, const Settings& settings) {
    if (!WIFSIGNALED(status)) return "";
    if (WTERMSIG(status) == SIGPROF)
        return ": it took more than " + std::to_string(settings.limit) + " s of processor time";
    if (WTERMSIG(status) == SIGALRM)
        return ": it was not done after " + std::to_string(settings.patience) + " s";
    return std::string(": ") + strsignal(WTERMSIG(status));
}

void print_output(const Case& one) {
    std::fseek(one.output, 0, SEEK_SET);
    char bytes[4096];
    while (const size_t count = std::fread(bytes, 1, sizeof bytes, one.output))
        std::fwrite(bytes, 1, count, stdout);
}

void finish(Case& one, int status, const rusage& usage, const Settings& settings) {
    one.seconds = processor_seconds(usage);
    if (WIFEXITED(status) && WEXITSTATUS(status) == passed_status) one.verdict = Verdict::passed;
    if (WIFEXITED(status) && WEXITSTATUS(status) == skipped_status) one.verdict = Verdict::skipped;
    if (one.verdict != Verdict::passed) {
        std::printf("%s: %s%s%s\n", one.verdict == Verdict::failed ? "FAILED" : "SKIPPED",
                    settings.prefix.c_str(), one.name.c_str(), ending(status, settings).c_str());
        print_output(one);
    }
    std::fclose(one.output);
}

std::string suite_of(const std::string& name) { return name.substr(0, name.find('.')); }

/// In this process, for an emulator to learn what it runs. One that takes long is not worth that.
void rehearse_one(const Case& one) {
    constexpr double long_time = 2;
    if (one.verdict != Verdict::passed || one.seconds > long_time) return;
    const auto act = [](void* name) {
        GTEST_FLAG_SET(filter, *static_cast<const std::string*>(name));
        GTEST_FLAG_SET(brief, true);
        std::exit(RUN_ALL_TESTS());  // as a case's process ends
    };
    std::string name = one.name;
    if (!rehearse(act, &name)) misuse(name + " cannot be undone when it is rehearsed");
}

/// Whether those of its suite that are still to run would take so much less that it is worth running it once
/// more; `least` is what the cheapest case took. The first one of all is: it teaches what each case needs.
bool teaches(const Case& one, double least, const std::vector<Case>& cases,
             std::vector<Case>::const_iterator next) {
    if (std::isinf(least)) return next != cases.end();
    const auto rest = std::ranges::count_if(
        next, cases.end(), [&](const Case& other) { return suite_of(other.name) == suite_of(one.name); });
    return static_cast<double>(rest) * (one.seconds - least) > one.seconds;
}

void run(std::vector<Case>& cases, const Settings& settings) {
    std::set<std::string> rehearsed;
    double least = std::numeric_limits<double>::infinity();
    std::map<pid_t, Case*> running;
    // With the first thread an emulator forgets what it has learnt: better now than in each case.
    if (settings.rehearse) std::thread([] {}).join();
    for (auto next = cases.begin(); next != cases.end() || !running.empty();) {
        if (next != cases.end() && running.size() < settings.jobs) {
            Case& one = *next++;
            running[start(one, settings)] = &one;
            continue;
        }
        int status = 0;
        rusage usage{};
        const pid_t ended = wait4(-1, &status, 0, &usage);
        if (ended < 0) continue;
        const Case& one = *running.at(ended);
        finish(*running.at(ended), status, usage, settings);
        running.erase(ended);
        if (settings.rehearse && teaches(one, least, cases, next) &&
            rehearsed.insert(suite_of(one.name)).second)
            rehearse_one(one);
        if (one.verdict == Verdict::passed) least = std::min(least, one.seconds);
    }
}

/// The last lines are read by ./dev, too.
int summarise(std::vector<Case>& cases, const std::string& prefix) {
    std::ranges::sort(cases, std::ranges::greater{}, &Case::seconds);
    double slow = 1;
    for (size_t i = 0; i < std::min<size_t>(cases.size(), 5) && cases[i].seconds >= slow; ++i)
        std::printf("slow: %.1f s %s%s\n", cases[i].seconds, prefix.c_str(), cases[i].name.c_str());
    rusage own{}, children{};
    getrusage(RUSAGE_SELF, &own);
    getrusage(RUSAGE_CHILDREN, &children);
    const auto count = [&](Verdict verdict) { return std::ranges::count(cases, verdict, &Case::verdict); };
    std::printf("cases run: %zu, failed: %td, skipped: %td, processor seconds: %.1f\n",
                cases.size() - static_cast<size_t>(count(Verdict::skipped)), count(Verdict::failed),
                count(Verdict::skipped), processor_seconds(own) + processor_seconds(children));
    return count(Verdict::failed) ? 1 : 0;
}

}  // namespace

int run_cases(int argc, char** argv) {
    const Settings wished = settings(argc, argv);
    if (wished.here || GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    std::vector<Case> cases = selected_cases();
    if (cases.empty()) misuse("no case matches " + GTEST_FLAG_GET(filter));
    run(cases, wished);
    return summarise(cases, wished.prefix);
}

}  // namespace test
