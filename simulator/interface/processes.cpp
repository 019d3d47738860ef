// Processes of the phone: each is a process of the host.
#include "interface/processes.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "interface/executable.h"
#include "interface/refusal.h"
#include "loader/format/format.h"
#include "phone/file_system.h"
#include "runtime/not_modelled.h"

namespace sim {

int start_process(int* process, const char* device_path, const void* file_actions, const void* attributes,
                  char* const arguments[], char* const[]) {
    if (file_actions || attributes) not_modelled("posix_spawn", "file actions and attributes");
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
