// Running the command and catching what it writes.
#include "describe/report.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace test {
namespace {

/// While it lives, what goes to a descriptor goes to a file instead.
class Caught {
  public:
    Caught(int descriptor, const std::string& file) : descriptor_(descriptor), before_(dup(descriptor)) {
        const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(opened, descriptor);
        close(opened);
    }
    Caught(const Caught&) = delete;
    ~Caught() {
        dup2(before_, descriptor_);
        close(before_);
    }

  private:
    int descriptor_, before_;
};

Lines those(const Lines& lines, const std::string& part, bool holding) {
    Lines found;
    for (const std::string& line : lines)
        if ((line.find(part) != line.npos) == holding) found.push_back(line);
    return found;
}

}  // namespace

Lines with(const Lines& lines, const std::string& part) { return those(lines, part, true); }
Lines without(const Lines& lines, const std::string& part) { return those(lines, part, false); }

DescribedPhone::DescribedPhone() { phone.write(executable, contents_of(DESCRIBE)); }

void DescribedPhone::install_library() const {
    phone.write(installed_library, contents_of(std::getenv("HUECRAFT_LIBRARY")));
}

DescribedPhone::Outcome DescribedPhone::run(const std::vector<const char*>& arguments,
                                            Phone::Options options) {
    options.executable = executable;
    phone.boot(options);
    std::vector<const char*> vector{executable};
    vector.insert(vector.end(), arguments.begin(), arguments.end());
    vector.push_back(nullptr);
    const std::string out = phone.host("/out"), err = phone.host("/err");
    Outcome outcome;
    std::fflush(nullptr);
    {
        const Caught standard_output(STDOUT_FILENO, out), standard_error(STDERR_FILENO, err);
        outcome.status = sim_run(executable, vector.data(), &outcome.exit_status);
    }
    outcome.out = contents_of(out);
    outcome.err = contents_of(err);
    // The emulator has a line of its own for a child that a signal ended.
    if (outcome.err.starts_with("qemu: uncaught target signal "))
        outcome.err.erase(0, outcome.err.find('\n') + 1);
    return outcome;
}

std::string DescribedPhone::report(const std::vector<const char*>& arguments, const Phone::Options& options) {
    const Outcome outcome = run(arguments, options);
    EXPECT_EQ(outcome.status, SIM_OK) << sim_last_error();
    EXPECT_EQ(outcome.exit_status, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
}

}  // namespace test
