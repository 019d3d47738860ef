// Packages that differ in one thing from the one that is built.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "command_run.h"

namespace test {

/// Tests that change the package: unpack it, change the files of its tree, pack it again, have it checked.
class PackageTree : public Command {
  protected:
    PackageTree();

    static constexpr const char* libraries = "tree/Library/MobileSubstrate/DynamicLibraries/";
    static constexpr const char* dylib = "tree/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib";
    static constexpr const char* filter = "tree/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.plist";
    static constexpr const char* control = "tree/DEBIAN/control";
    static constexpr const char* bundle = "tree/Library/PreferenceBundles/Huecraft.bundle/";

    /// Runs a shell command in the test's folder, which must succeed.
    void shell(const std::string& command) const;
    /// The package as it was built.
    std::string built() const;

    void unpack() const { shell("dpkg-deb --raw-extract '" PACKAGE_FILE "' tree"); }
    void pack(const std::string& package = "changed.deb") const;
    /// Packs the tree, and checks the package.
    Outcome checked() const;
    void replace(const char* file, std::string_view what, std::string_view with) const;

    /// A dylib with the promised exports and little else, of which one thing can be changed.
    struct SmallDylib {
        std::string assembly = {};  ///< more of it
        std::string exports = {};   ///< more names, a line each
        std::string without = {};   ///< a promised export to leave out
        std::string minimum = "12.0";
        std::string install_name = "/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib";
        std::string fix_ups = "-no_fixup_chains";
        std::function<void(std::string&)> damage = {};  ///< done to the linked file, before it is signed
        std::string identifier = "HuecraftiOS12.dylib";
        enum { as_installers_do, by_the_linker, not_at_all } signing = as_installers_do;
    };
    /// Builds it into the tree, in place of the dylib.
    void build(const SmallDylib& wanted) const;
};

/// Expects that the check found this and nothing else.
void expect_only(const Outcome& run, const std::string& line);
/// Expects that it found these, among others.
void expect_found(const Outcome& run, const std::vector<std::string>& parts);

}  // namespace test
