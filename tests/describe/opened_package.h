// A package of the project, taken apart, changed and held by huecraft package-check.
#pragma once
#include <string>

#include "describe/report.h"

namespace test {

class OpenedPackage : public testing::Test {
  protected:
    /// Takes the package apart, into the folder `tree`.
    explicit OpenedPackage(const std::string& package);

    /// In the folder that `tree` is in.
    void shell(const std::string& command) const;
    /// Packs the tree, and returns what is not as it should be.
    Lines faults();
    /// What is said of a package.
    Lines checked(const std::string& package);

    Phone phone;
    int exit_status = -1;
};

}  // namespace test
