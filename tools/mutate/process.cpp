#include "process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>

#include "failure.h"

namespace mutate {
namespace {

volatile std::sig_atomic_t interrupted = 0;
void note_interruption(int) { interrupted = 1; }

[[noreturn]] void become(const std::string& command, const std::string& folder, int output) {
    setpgid(0, 0);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    if (chdir(folder.c_str()) == 0) execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
}

}  // namespace

void notice_interruptions() {
    struct sigaction action = {};
    action.sa_handler = note_interruption;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

Ended run(const std::string& command, const std::string& folder, int seconds,
          const std::function<bool(std::string_view output)>& enough) {
    using Clock = std::chrono::steady_clock;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw Failure("no pipe can be made");
    const pid_t child = fork();
    if (child < 0) throw Failure("no process can be made");
    if (child == 0) become(command, folder, ends[1]);
    setpgid(child, child);  // whichever of the two is first
    close(ends[1]);

    Ended ended{.well = false, .output = ""};
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    bool stop = false;
    while (!stop) {
        pollfd read_end{.fd = ends[0], .events = POLLIN, .revents = 0};
        const int ready = poll(&read_end, 1, 200);
        stop = interrupted || Clock::now() > end;
        if (ready <= 0) continue;
        char bytes[4096];
        const ssize_t count = read(ends[0], bytes, sizeof bytes);
        if (count == 0) break;
        if (count > 0) ended.output.append(bytes, static_cast<size_t>(count));
        stop = stop || (enough && enough(ended.output));
    }
    if (stop) kill(-child, SIGKILL);
    close(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (interrupted) throw Failure("interrupted");
    ended.well = !stop && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return ended;
}

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word) text += c == '\'' ? "'\\''" : std::string(1, c);
    return text + "'";
}

}  // namespace mutate
