// Instructions, counted by callgrind.
#include "instructions.h"

#include <cstdio>
#include <cstring>
#include <memory>

#include "check.h"

namespace bench {

size_t instructions_of(Work work, const std::string& library, const test::Phone& phone,
                       const char* executable) {
    const bool shows = work == Work::showing_a_keyboard;
    std::string command = "LD_LIBRARY_PATH='" HUECRAFT_COUNTED
                          "' valgrind --tool=callgrind --callgrind-out-file=/dev/null --collect-atstart=no "
                          "'--toggle-collect=";
    command += shows ? "sim_show_keyboard" : "sim_load' '--toggle-collect=macho::verify_pages*";
    command += "'";
    for (const std::string& argument : {std::string(HUECRAFT_COUNTED "/huecraft_keyboard_picture"), library,
                                        phone.host("/").string(), std::string(executable)})
        command += " '" + argument + "'";
    if (shows) command += " '" + phone.host("/counted.png").string() + "'";
    command += " 2>&1";
    const std::unique_ptr<FILE, decltype(&pclose)> output(popen(command.c_str(), "r"), &pclose);
    check(output != nullptr, "callgrind can be started: ./dev bench installs it");
    size_t instructions = 0;
    char line[512];
    while (std::fgets(line, sizeof line, output.get()))
        if (const char* found = std::strstr(line, "Collected : "))
            std::sscanf(found, "Collected : %zu", &instructions);
    check(instructions > 100000, "callgrind counts instructions");
    return instructions;
}

}  // namespace bench
