// Commands as processes, and what they cost.
#include "process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "check.h"

extern char** environ;

namespace bench {

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// By the name of its own: other programs may be called "convert".
constexpr const char* image_magick = "convert-im6.q16";

}  // namespace

const Command quick_png{"-define", "png:compression-level=3", "-define", "png:compression-filter=0"};

Spent run(const Command& command, int worst) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    const bool started =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    check(started, (command[0] + " can be started: ./dev bench installs what is needed").c_str());
    int status = 0;
    rusage usage{};
    check(wait4(child, &status, 0, &usage) == child && WIFEXITED(status) && WEXITSTATUS(status) <= worst,
          (command[0] + " ends well").c_str());
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    return {wall.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss};
}

Command compose(const std::filesystem::path& background, const std::vector<Layer>& layers,
                const Command& options, const std::filesystem::path& picture) {
    Command command{image_magick, background.string()};
    for (const Layer& layer : layers)
        command.insert(command.end(),
                       {layer.file.string(), "-geometry",
                        "+" + std::to_string(layer.left) + "+" + std::to_string(layer.top), "-composite"});
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(picture.string());
    return command;
}

}  // namespace bench
