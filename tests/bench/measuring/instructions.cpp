// Instructions, counted by callgrind.
#include "instructions.h"

#include <cstdio>
#include <cstring>
#include <memory>

#include "check.h"

namespace bench {

size_t instructions_in(const std::vector<std::string>& functions, const std::string& program,
                       const std::vector<std::string>& arguments) {
    std::string command = "LD_LIBRARY_PATH='" HUECRAFT_COUNTED
                          "' valgrind --tool=callgrind --callgrind-out-file=/dev/null --collect-atstart=no";
    for (const std::string& function : functions) command += " '--toggle-collect=" + function + "'";
    command += " '" HUECRAFT_COUNTED "/" + program + "'";
    for (const std::string& argument : arguments) command += " '" + argument + "'";
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

size_t instructions_of(Work work, const std::string& library, const test::Phone& phone,
                       const char* executable) {
    const bool shows = work == Work::showing_a_keyboard;
    std::vector<std::string> arguments{library, phone.host("/").string(), executable};
    if (shows) arguments.push_back(phone.host("/counted.png").string());
    return instructions_in(shows ? std::vector<std::string>{"sim_show_keyboard"}
                                 : std::vector<std::string>{"sim_load", "macho::verify_pages*"},
                           "huecraft_keyboard_picture", arguments);
}

}  // namespace bench
