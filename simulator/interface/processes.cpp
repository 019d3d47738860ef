// Processes of the phone: each is a process of the host.
#include "interface/processes.h"

#include <dlfcn.h>
#include <spawn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "interface/boot.h"
#include "interface/executable.h"
#include "interface/refusal.h"
#include "loader/format/format.h"
#include "phone/file_system.h"
#include "phone/notes.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

/// A process that ends at once, so that whoever started it can wait for it.
int start_nothing(int* process, const char* device_path, char* const arguments[]) {
    StartedProgram program;
    program.path = device_path;
    for (auto* argument = arguments; argument && *argument; ++argument)
        program.arguments.emplace_back(*argument);
    const auto host = host_path(device_path);
    if (!host || access(host->c_str(), F_OK) != 0) program.error = ENOENT;
    started_programs().push_back(program);
    if (program.error) return program.error;
    const pid_t child = fork();
    if (child < 0) return errno;
    if (child == 0) _exit(exit_status_of_programs());
    if (process) *process = child;
    return 0;
}

}  // namespace

int start_process(int* process, const char* device_path, const void* file_actions, const void* attributes,
                  char* const arguments[], char* const[]) {
    if (file_actions || attributes) not_modelled("posix_spawn", "file actions and attributes");
    if (running_executable().empty()) return start_nothing(process, device_path, arguments);
    if (!host_path(device_path)) return ENOENT;
    std::vector<std::string> vector;
    for (auto* argument = arguments; *argument; ++argument) vector.emplace_back(*argument);
    const pid_t child = fork();
    if (child < 0) return errno;
    if (child > 0) {
        *process = child;
        return 0;
    }
    int status = 127;
    try {
        status = run_executable(device_path, vector);
    } catch (const Refusal& refusal) {
        std::fprintf(stderr, "%s\n", refusal.what());
    }
    _exit(status);
}

int path_of_executable(char* path, unsigned* size) {
    const std::string& running = running_executable();
    if (*size <= running.size()) {
        *size = static_cast<unsigned>(running.size() + 1);
        return -1;
    }
    std::memcpy(path, running.c_str(), running.size() + 1);
    return 0;
}

int system_number(const char* name, void* value, size_t* size, const void* new_value, size_t) {
    constexpr int first_arm64 = 1, any_x86_64 = 3;  // an A11's subtype is arm64 of the first kind
    constexpr bool arm64 = macho::kThisCpu == macho::Cpu::arm64;
    const std::string_view wanted = name;
    const bool type = wanted == "hw.cputype";
    if (new_value || *size != sizeof(int) || !(type || wanted == "hw.cpusubtype"))
        not_modelled("sysctlbyname", name);
    const int number = type ? static_cast<int>(macho::kThisCpu) : arm64 ? first_arm64 : any_x86_64;
    std::memcpy(value, &number, sizeof number);
    return 0;
}

}  // namespace sim

// Stands before the host's own for libraries of the phone that are built for Linux. Before boot there is no
// phone.
SIM_EXPORTED int posix_spawn(pid_t* pid, const char* path, const posix_spawn_file_actions_t* file_actions,
                             const posix_spawnattr_t* attrp, char* const argv[], char* const envp[]) {
    if (sim::is_booted()) return sim::start_process(pid, path, file_actions, attrp, argv, envp);
    static const auto host = reinterpret_cast<decltype(&posix_spawn)>(dlsym(RTLD_NEXT, "posix_spawn"));
    return host(pid, path, file_actions, attrp, argv, envp);
}

// The host has none of its own.
SIM_EXPORTED int sysctlbyname(const char* name, void* value, size_t* size, const void* new_value,
                              size_t new_size) {
    return sim::system_number(name, value, size, new_value, new_size);
}
