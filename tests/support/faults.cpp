#include "support/faults.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <set>

namespace test {
namespace {

namespace fs = std::filesystem;

using Entry = decltype(__ptrace_syscall_info::seccomp);

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

/// Calls that concern no file, ever. How many a process makes is a matter of memory and of chance: a new
/// file's random name is drawn again, by getrandom, where the first draw would not be fair.
constexpr unsigned without_files[] = {
    SYS_brk,          SYS_munmap,          SYS_mprotect,  SYS_madvise,       SYS_futex,
    SYS_rt_sigaction, SYS_rt_sigprocmask,  SYS_getrandom, SYS_clock_gettime, SYS_gettid,
    SYS_getpid,       SYS_set_robust_list, SYS_rseq,      SYS_prlimit64,     SYS_sched_yield,
    SYS_sigaltstack,  SYS_arch_prctl,      SYS_exit_group};

/// The kernel stops this process at each of its calls from now on, and what it starts. Calls that concern no
/// file need not be looked at when files count; that makes a trace twice as fast, and nothing else.
void stop_at_calls(bool files_count) {
    std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    const auto spare = [&](unsigned call) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    };
    spare(SYS_exit_group);
    if (files_count) std::ranges::for_each(without_files, spare);
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        _exit(126);
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
            stop_at_calls(!counted_.empty());
            // What is thrown here is not the test's: it ends the process.
            _exit([&]() noexcept { return work(); }());
        }
        int status = 0;
        if (first_ < 0 || waitpid(first_, &status, 0) != first_ || !WIFSTOPPED(status)) {
            ADD_FAILURE() << "the process could not be started to be traced: " << std::strerror(errno);
            return result_;
        }
        constexpr long options = PTRACE_O_TRACESECCOMP | PTRACE_O_EXITKILL | PTRACE_O_TRACEEXEC |
                                 PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK | PTRACE_O_TRACECLONE;
        if (ptrace(PTRACE_SETOPTIONS, first_, 0, options) != 0)
            ADD_FAILURE() << "the process cannot be traced: " << std::strerror(errno);
        alive_.insert(first_);
        resume(first_, 0);
        while (!alive_.empty()) await_one();
        return result_;
    }

  private:
    void resume(pid_t process, int signal) const { ptrace(PTRACE_CONT, process, 0, signal); }

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
        const bool is_new = alive_.insert(process).second;
        const int signal = WSTOPSIG(status), event = status >> 16;
        if (event == PTRACE_EVENT_SECCOMP) {
            at_a_call(process);
            resume(process, 0);
        } else {
            // A new process begins with a stop of its own.
            resume(process, event != 0 || (is_new && signal == SIGSTOP) ? 0 : signal);
        }
    }

    void at_a_call(pid_t process) {
        __ptrace_syscall_info call{};
        ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof call, &call);
        std::string about;
        if (!counted_.empty()) {
            about = subject_of(process, call.seccomp, counted_);
            if (about.empty()) return;
        }
        result_.calls.push_back(std::to_string(call.seccomp.nr) + " " + about);
        if (result_.calls.size() == number_) strike(process, call.seccomp);
    }

    void strike(pid_t process, const Entry& call) {
        result_.struck = true;
        result_.met = result_.calls.back();
        switch (fault_.kind) {
            case Fault::Kind::none: break;
            case Fault::Kind::error:
                // No call has this number: what stands in the register is the answer. One call answers where
                // the memory ends, and no error: less than was asked for.
                set_register(process, offsetof(user_regs_struct, orig_rax), -1);
                set_register(process, offsetof(user_regs_struct, rax),
                             call.nr == SYS_brk ? 0 : -fault_.error);
                break;
            case Fault::Kind::half_a_write: result_.struck = write_half(process, call); break;
            case Fault::Kind::kill:
                for (const pid_t each : alive_) ::kill(each, SIGKILL);
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
    std::set<pid_t> alive_;
    FaultyRun result_;
};

}  // namespace

Counted every_call([[maybe_unused]] const fs::path& folder) {
#if __has_feature(address_sanitizer)
    return {folder.has_filename() ? folder : folder.parent_path()};
#else
    return {};
#endif
}

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

/// The number of a call as it is listed.
static unsigned number_of(const std::string& call) { return static_cast<unsigned>(std::atoi(call.c_str())); }

static bool writes(const std::string& call) {
    const unsigned number = number_of(call);
    return number == SYS_write || number == SYS_pwrite64 || number == SYS_writev;
}

/// How many of these calls may concern a file; mmap is left out, too, as it mostly asks for memory.
static size_t count_about_files(const std::vector<std::string>& calls) {
    return static_cast<size_t>(std::ranges::count_if(calls, [](const std::string& call) {
        const unsigned number = number_of(call);
        return number != SYS_mmap && std::ranges::find(without_files, number) == std::end(without_files);
    }));
}

size_t try_every_fault(const Trial& trial) {
    std::vector<Fault> faults{Fault::half_a_write(), Fault::kill()};
    for (const int error : every_error()) faults.push_back(Fault::failing(error));
    return try_at_every_call(trial, faults);
}

size_t try_sample(const Trial& trial, const std::vector<Fault>& faults, size_t step) {
    trial.prepare();
    const FaultyRun first = run_with_fault(trial.work, trial.counted);
    trial.judge(first, {});
    EXPECT_FALSE(first.calls.empty()) << "no call counts";
    size_t met = 0;
    for (size_t number = 1; number <= first.calls.size(); number += step) {
        const Fault& fault = faults[met % faults.size()];
        trial.prepare();
        const FaultyRun faulty = run_with_fault(trial.work, trial.counted, number, fault);
        met += faulty.struck;
        SCOPED_TRACE(in_words(first, number, fault));
        trial.judge(faulty, fault);
        if (testing::Test::HasFailure()) break;
    }
    return met;
}

size_t try_at_every_call(const Trial& trial, const std::vector<Fault>& faults) {
    const auto run = [&](size_t number, const Fault& fault) {
        trial.prepare();
        return run_with_fault(trial.work, trial.counted, number, fault);
    };
    const FaultyRun first = run(0, {});
    trial.judge(first, {});
    EXPECT_FALSE(first.calls.empty()) << "no call counts";
    const size_t expected = count_about_files(first.calls);
    size_t met = 0;
    for (const Fault& fault : faults) {
        size_t reached = 0;
        FaultyRun faulty;
        for (bool is_met = true; is_met;) {
            // About the same files the calls are the same, so that those that write are known.
            if (fault.kind == Fault::Kind::half_a_write && !trial.counted.empty() &&
                reached < first.calls.size() && !writes(first.calls[reached])) {
                ++reached;
                continue;
            }
            faulty = run(reached + 1, fault);
            is_met = faulty.calls.size() > reached;
            if (faulty.struck) ++met;
            SCOPED_TRACE(in_words(faulty, is_met ? ++reached : 0, fault));
            trial.judge(faulty, fault);
            if (testing::Test::HasFailure()) return met;
        }
        // The last run met no fault: it made every call that the first one made, but for a few. What a
        // register was left with may look like one of the files.
        EXPECT_GE(count_about_files(faulty.calls) + 2 + expected / 20, expected)
            << "with the fault " << in_words(first, 1, fault);
    }
    return met;
}

}  // namespace test
