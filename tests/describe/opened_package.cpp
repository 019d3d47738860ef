#include "describe/opened_package.h"

#include <sys/wait.h>

#include <cstdlib>

namespace test {

OpenedPackage::OpenedPackage(const std::string& package) {
    shell("dpkg-deb --raw-extract '" + package + "' tree");
}

void OpenedPackage::shell(const std::string& command) const {
    const std::string all = "umask 022 && cd '" + phone.host("/").string() + "' && " + command;
    ASSERT_EQ(std::system(all.c_str()), 0) << command;
}

Lines OpenedPackage::faults() {
    shell("dpkg-deb --root-owner-group -Zgzip --uniform-compression --build tree changed.deb > pack.log");
    return with(checked("changed.deb"), "  not ok ");
}

Lines OpenedPackage::checked(const std::string& package) {
    const std::string command = "cd '" + phone.host("/").string() +
                                "' && '" HUECRAFT_COMMAND "' package-check '" + package + "' > said 2>&1";
    exit_status = WEXITSTATUS(std::system(command.c_str()));
    return lines_of(phone.read("/said"));
}

}  // namespace test
