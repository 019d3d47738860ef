#include "support/phone.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "objc/strong.h"

namespace tools {

void require(sim_status status, const std::string& doing) {
    if (status != SIM_OK) throw Failure(doing + ": " + sim_last_error());
}

void in_child_process(const std::string& doing, const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw Failure(doing + ": no process: " + std::strerror(errno));
    if (child == 0) {
        try {
            body();
        } catch (const std::exception& failure) {
            std::fflush(stdout);
            std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, failure.what());
            std::exit(EXIT_FAILURE);
        }
        std::exit(EXIT_SUCCESS);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) throw Failure(doing + ": " + std::strerror(errno));
    if (WIFSIGNALED(status)) throw Failure(doing + ": stopped by signal " + strsignal(WTERMSIG(status)));
    if (WEXITSTATUS(status) != EXIT_SUCCESS) throw Failure(doing + " failed");
}

Screen Screen::for_pictures(double pixels_per_point) const {
    for (int screens : {1, 2, 3})
        if (pixels_per_point == screens) return {width, height, screens};
    return *this;
}

void boot(const std::filesystem::path& device, const char* executable, const Screen& screen,
          const Locale& locale) {
    const std::string root = device.string();
    sim_options options{};
    options.size = sizeof options;
    options.root = root.c_str();
    options.executable = executable;
    options.screen_width = screen.width;
    options.screen_height = screen.height;
    options.screen_scale = screen.scale;
    options.language = locale.language;
    options.right_to_left = locale.right_to_left;
    require(sim_boot(&options), "switching the phone on");
}

void load(const std::filesystem::path& library) {
    sim_library* loaded = nullptr;
    // A name without a folder would be looked for among the system's libraries. What is said names the file.
    if (sim_load(std::filesystem::absolute(library).c_str(), &loaded) != SIM_OK)
        throw Failure(sim_last_error());
    if (!objc_getClass("HuecraftConfig"))
        throw Failure("cannot load " + library.string() +
                      ": it is no build of this library: found no class HuecraftConfig");
}

}  // namespace tools
