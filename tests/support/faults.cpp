#include "support/faults.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>

namespace test {
namespace {

namespace fs = std::filesystem;

using Entry = decltype(__ptrace_syscall_info::entry);

void set_register(pid_t process, size_t offset, long long value) {
    ptrace(PTRACE_POKEUSER, process, offset, value);
}

/// The text at an address of the process; empty when there is none.
std::string text_at(pid_t process, uint64_t address) {
    std::string text;
    if (address < 4096) return text;
    while (text.size() < 4096) {
        errno = 0;
        const long word = ptrace(PTRACE_PEEKDATA, process, address + text.size(), nullptr);
        if (errno != 0) return "";
        char bytes[sizeof word];
        std::memcpy(bytes, &word, sizeof word);
        const size_t length = strnlen(bytes, sizeof bytes);
        text.append(bytes, length);
        if (length < sizeof bytes || text.front() != '/') break;
    }
    return text;
}

std::string open_file(pid_t process, uint64_t descriptor) {
    if (descriptor >= 4096) return "";
    std::error_code ignored;
    return fs::read_symlink("/proc/" + std::to_string(process) + "/fd/" + std::to_string(descriptor),
                            ignored);
}

bool lies_in(const std::string& path, const Counted& folders) {
    for (const fs::path& folder : folders) {
        const std::string& begin = folder.native();
        if (path.starts_with(begin) && (path.size() == begin.size() || path[begin.size()] == '/'))
            return true;
    }
    return false;
}

/// What of these folders the call is about; empty for nothing. Whatever an argument may be, it is looked at
/// as a path and as a descriptor: no list of calls could be complete.
std::string subject_of(pid_t process, const Entry& call, const Counted& folders) {
    for (const size_t argument : {0, 4})
        if (std::string file = open_file(process, call.args[argument]); lies_in(file, folders)) return file;
    for (const size_t argument : {0, 1, 2, 3})
        if (std::string path = text_at(process, call.args[argument]); lies_in(path, folders)) return path;
    return "";
}

class Tracer {
  public:
    Tracer(const Counted& counted, size_t number, const Fault& fault)
        : counted_(counted),
          number_(number),
          fault_(fault) {}

    FaultyRun run(const std::function<int()>& work) {
        first_ = fork();
        if (first_ == 0) {
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            raise(SIGSTOP);
            // What is thrown here is not the test's: it ends the process.
            _exit([&]() noexcept { return work(); }());
        }
        int status = 0;
        if (first_ < 0 || waitpid(first_, &status, 0) != first_ || !WIFSTOPPED(status)) {
            ADD_FAILURE() << "the process could not be started to be traced: " << std::strerror(errno);
            return result_;
        }
        constexpr long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL | PTRACE_O_TRACEEXEC |
                                 PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK | PTRACE_O_TRACECLONE;
        if (ptrace(PTRACE_SETOPTIONS, first_, 0, options) != 0)
            ADD_FAILURE() << "the process cannot be traced: " << std::strerror(errno);
        alive_[first_];
        resume(first_, 0);
        while (!alive_.empty()) await_one();
        return result_;
    }

  private:
    struct Process {
        /// What the call that it is in is to answer instead.
        std::optional<int> error;
        uint64_t call = 0;
    };

    void resume(pid_t process, int signal) const { ptrace(PTRACE_SYSCALL, process, 0, signal); }

    void await_one() {
        int status = 0;
        const pid_t process = waitpid(-1, &status, __WALL);
        if (process < 0 && errno == EINTR) return;
        if (process < 0) {
            alive_.clear();
        } else if (WIFEXITED(status) || WIFSIGNALED(status)) {
            alive_.erase(process);
            if (process == first_)
                result_.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
        } else {
            stopped(process, status);
        }
    }

    void stopped(pid_t process, int status) {
        const bool is_new = !alive_.contains(process);
        Process& state = alive_[process];
        const int signal = WSTOPSIG(status);
        if (signal == (SIGTRAP | 0x80)) {
            in_a_call(process, state);
            resume(process, 0);
        } else {
            // A new process begins with a stop of its own; an event is a trap that nobody sent.
            const bool is_ours = status >> 16 != 0 || (is_new && signal == SIGSTOP);
            resume(process, is_ours ? 0 : signal);
        }
    }

    void in_a_call(pid_t process, Process& state) {
        __ptrace_syscall_info call{};
        ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof call, &call);
        if (call.op == PTRACE_SYSCALL_INFO_EXIT && state.error) {
            // This one call answers where the memory ends, and no error: less than was asked for.
            set_register(process, offsetof(user_regs_struct, rax), state.call == SYS_brk ? 0 : -*state.error);
            state.error.reset();
        }
        if (call.op != PTRACE_SYSCALL_INFO_ENTRY || call.entry.nr == SYS_exit_group) return;
        std::string about;
        if (!counted_.empty()) {
            about = subject_of(process, call.entry, counted_);
            if (about.empty()) return;
        }
        result_.calls.push_back(std::to_string(call.entry.nr) + " " + about);
        if (result_.calls.size() == number_) strike(process, state, call.entry);
    }

    void strike(pid_t process, Process& state, const Entry& call) {
        result_.struck = true;
        switch (fault_.kind) {
            case Fault::Kind::none: break;
            case Fault::Kind::error:
                state.error = fault_.error;
                state.call = call.nr;
                set_register(process, offsetof(user_regs_struct, orig_rax), -1);
                break;
            case Fault::Kind::half_a_write: result_.struck = write_half(process, call); break;
            case Fault::Kind::kill:
                for (const auto& [each, state] : alive_) ::kill(each, SIGKILL);
                break;
            case Fault::Kind::meddling: fault_.meddle(); break;
        }
    }

    static bool write_half(pid_t process, const Entry& call) {
        const bool writes = call.nr == SYS_write || call.nr == SYS_pwrite64, gathers = call.nr == SYS_writev;
        // Of several pieces the first, of one piece the first half.
        if ((!writes && !gathers) || call.args[2] < 2) return false;
        set_register(process, offsetof(user_regs_struct, rdx),
                     gathers ? 1 : static_cast<long long>(call.args[2] / 2));
        return true;
    }

    Counted counted_;
    size_t number_;
    const Fault& fault_;
    pid_t first_ = -1;
    std::map<pid_t, Process> alive_;
    FaultyRun result_;
};

}  // namespace

FaultyRun run_with_fault(const std::function<int()>& work, const Counted& counted, size_t number,
                         const Fault& fault) {
    return Tracer(counted, number, fault).run(work);
}

std::vector<int> every_error() { return {ENOSPC, EACCES, EIO, EINTR}; }

std::string in_words(const FaultyRun& counted, size_t number, const Fault& fault) {
    if (number == 0) return "without a fault";
    std::string words = "call " + std::to_string(number) + " of " + std::to_string(counted.calls.size()) +
                        " (" + counted.calls.at(number - 1) + "): ";
    switch (fault.kind) {
        case Fault::Kind::none: break;
        case Fault::Kind::error: words += std::strerror(fault.error); break;
        case Fault::Kind::half_a_write: words += "half a write"; break;
        case Fault::Kind::kill: words += "killed"; break;
        case Fault::Kind::meddling: words += "meddled with"; break;
    }
    return words;
}

size_t try_every_fault(const Trial& trial) {
    std::vector<Fault> faults{Fault::half_a_write(), Fault::kill()};
    for (const int error : every_error()) faults.push_back(Fault::failing(error));
    return try_at_every_call(trial, faults);
}

size_t try_at_every_call(const Trial& trial, const std::vector<Fault>& faults) {
    const auto run = [&](size_t number, const Fault& fault) {
        trial.prepare();
        return run_with_fault(trial.work, trial.counted, number, fault);
    };
    const FaultyRun first = run(0, {});
    trial.judge(first, {});
    EXPECT_FALSE(first.calls.empty()) << "no call counts";
    size_t met = 0;
    for (const Fault& fault : faults) {
        size_t reached = 0;
        for (bool is_met = true; is_met;) {
            const FaultyRun faulty = run(reached + 1, fault);
            is_met = faulty.calls.size() > reached;
            if (faulty.struck) ++met;
            SCOPED_TRACE(in_words(faulty, is_met ? ++reached : 0, fault));
            trial.judge(faulty, fault);
            if (testing::Test::HasFailure()) return met;
        }
        // Memory is asked for as it is needed: from run to run a call or two differ.
        EXPECT_GE(reached + 2, first.calls.size()) << "with the fault " << in_words(first, 1, fault);
    }
    return met;
}

}  // namespace test
