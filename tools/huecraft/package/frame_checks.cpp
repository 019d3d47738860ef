// Checks that every package goes through.
#include <cstdio>

#include "cli/terminal.h"
#include "package/checks.h"

namespace command {

std::string octal(unsigned mode) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04o", mode);
    return digits;
}

std::vector<std::string> faults_of_frame(const Package& package) {
    std::vector<std::string> faults;
    if (package.members != std::vector<std::string>{"debian-binary", "control.tar.gz", "data.tar.gz"})
        faults.push_back("its parts are not debian-binary, control.tar.gz and data.tar.gz in this order");
    if (package.trailing)
        faults.push_back("found " + counted(package.trailing, "byte") + " after its last part");
    if (package.format != "2.0\n")
        faults.push_back("found the format " + in_quotes(package.format) + ", expected \"2.0\\n\"");
    return faults;
}

}  // namespace command
