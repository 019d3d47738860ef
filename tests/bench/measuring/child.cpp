// Measurements in processes of their own.
#include "child.h"

#include <sys/wait.h>
#include <unistd.h>

#include "check.h"

namespace bench {

std::vector<double> in_child(size_t figures, const std::function<std::vector<double>()>& measure) {
    int ends[2];
    check(pipe(ends) == 0, "there is a pipe");
    const pid_t child = fork();
    check(child >= 0, "there is a process");
    const auto bytes = static_cast<ssize_t>(figures * sizeof(double));
    if (child == 0) {
        const std::vector<double> measured = measure();
        check(measured.size() == figures, "the process has the figures that were asked for");
        _exit(write(ends[1], measured.data(), static_cast<size_t>(bytes)) == bytes ? 0 : 1);
    }
    close(ends[1]);
    std::vector<double> measured(figures);
    check(read(ends[0], measured.data(), static_cast<size_t>(bytes)) == bytes, "the process answers");
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return measured;
}

}  // namespace bench
