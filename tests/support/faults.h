// Work in a process of its own, one of whose system calls fails.
#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace test {

/// What happens at one system call of the process.
struct Fault {
    enum class Kind { none, error, half_a_write, kill, meddling };
    Kind kind = Kind::none;
    int error = 0;                 ///< an errno value
    std::function<void()> meddle;  ///< done by the test while the process waits at the call

    /// The call is not made, and answers the error.
    static Fault failing(int error) { return {Kind::error, error, {}}; }
    /// What is to be written is written up to its half; a call that writes nothing, or one byte, is spared.
    static Fault half_a_write() { return {Kind::half_a_write, 0, {}}; }
    /// The process ends before the call, and all that it started, as by SIGKILL.
    static Fault kill() { return {Kind::kill, 0, {}}; }
    /// Something happens to the files meanwhile.
    static Fault meddling(std::function<void()> meddle) { return {Kind::meddling, 0, std::move(meddle)}; }
};

/// How the process ended.
struct FaultyRun {
    int status = 0;  ///< its exit status; 1000 and the signal if one ended it
    /// Each call that counts, in order: its number and what it is about, "257 /folder/file".
    std::vector<std::string> calls;
    bool struck = false;  ///< whether the fault has happened
    std::string met;      ///< the call that it was meant for
};

/// Which calls count, here and in all that the process starts: those about something in these folders, named
/// by its whole path or open; without folders all of them.
using Counted = std::vector<std::filesystem::path>;

/// All calls of a process that works with this folder. Where it is sanitized only those about the folder: the
/// sanitizers call the kernel, too, and do not expect to fail.
Counted every_call(const std::filesystem::path& folder);

/// Does the work in a child process, whose exit status is the answer; the child may become another program
/// instead. The `number`th call that counts, from 1, meets the fault.
FaultyRun run_with_fault(const std::function<int()>& work, const Counted& counted, size_t number = 0,
                         const Fault& fault = {});

/// The errors that every call is made to fail with.
std::vector<int> every_error();

/// What a run was about, for a failing test: "call 3 of 17 (257 /folder/file): No space left on device".
std::string in_words(const FaultyRun& counted, size_t number, const Fault& fault);

/// Has each counted call of the work meet each fault: every error, half a write, and the kill. `prepare`
/// arranges the files before each run, `judge` looks at what it left; the first run is without a fault. Ends
/// at the first failure.
struct Trial {
    Counted counted;
    std::function<void()> prepare;
    std::function<int()> work;
    std::function<void(const FaultyRun&, const Fault&)> judge;
};
/// Answers how many faults were met.
size_t try_every_fault(const Trial& trial);

/// The same with one fault at every call.
size_t try_at_every_call(const Trial& trial, const std::vector<Fault>& faults);

/// A sample: one of the faults at every `step`th call, in turn.
size_t try_sample(const Trial& trial, const std::vector<Fault>& faults, size_t step);

}  // namespace test
