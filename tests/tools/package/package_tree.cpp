#include "package/package_tree.h"

#include <sys/stat.h>

#include <cstdlib>
#include <sstream>

#include "support/contents.h"

namespace test {

// What a test adds to the tree has the modes that the package's files have.
PackageTree::PackageTree() { umask(022); }

void PackageTree::shell(const std::string& command) const {
    const std::string all = "cd '" + path("").string() + "' && " + command;
    ASSERT_EQ(std::system(all.c_str()), 0) << command;
}

std::string PackageTree::built() const { return contents_of(PACKAGE_FILE); }

void PackageTree::pack(const std::string& package) const {
    shell("dpkg-deb --root-owner-group -Zgzip --uniform-compression --build tree '" + package +
          "' > /dev/null");
}

Outcome PackageTree::checked() const {
    pack();
    return run({"package-check", "changed.deb"});
}

void PackageTree::replace(const char* file, std::string_view what, std::string_view with) const {
    std::string contents = read(file);
    const size_t at = contents.find(what);
    ASSERT_NE(at, contents.npos) << file << " has no " << what;
    write(file, contents.replace(at, what.size(), with));
}

void PackageTree::build(const SmallDylib& wanted) const {
    std::string text = ".data\n.quad _objc_release\n", exports;
    std::istringstream lines(contents_of(DEVICE_FOLDER "/exports.txt"));
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with('_') && line != wanted.without) exports += line + "\n";
    exports += wanted.exports;
    std::istringstream names(exports);
    for (std::string name; names >> name;) text += ".globl " + name + "\n" + name + ": .quad 0\n";
    write("small.s", text + wanted.assembly);
    write("small.exports", exports);
    const std::string more = exists("small.tbd") ? " small.tbd" : "";
    shell("'" DEVICE_COMPILER "' -target arm64-apple-ios12.0 -c small.s -o small.o");
    shell("'" DEVICE_LINKER "' -dylib -arch arm64 -platform_version ios " + wanted.minimum + " " +
          wanted.minimum + " " + wanted.fix_ups +
          (wanted.signing == SmallDylib::not_at_all ? " -no_adhoc_codesign" : " -adhoc_codesign") +
          " -no_data_const -install_name " + wanted.install_name +
          " -exported_symbols_list small.exports -o HuecraftiOS12.dylib small.o '" DEVICE_FOLDER
          "/stubs/libobjc.tbd' '" DEVICE_FOLDER "/stubs/libSystem.tbd'" +
          more);
    if (wanted.damage) {
        std::string bytes = read("HuecraftiOS12.dylib");
        wanted.damage(bytes);
        write("HuecraftiOS12.dylib", bytes);
    }
    shell(wanted.signing == SmallDylib::as_installers_do
              ? "'" SIGN_SLICE "' HuecraftiOS12.dylib " + wanted.identifier + " '" + dylib + "'"
              : "cat HuecraftiOS12.dylib > '" + std::string(dylib) + "'");
}

void expect_only(const Outcome& run, const std::string& line) {
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_EQ(run.err, "");
    std::istringstream lines(run.out);
    std::string failed;
    for (std::string one; std::getline(lines, one);)
        if (one.starts_with("  not ok ")) failed += one.substr(9) + "\n";
    EXPECT_EQ(failed, line + "\n") << run.out;
}

void expect_found(const Outcome& run, const std::vector<std::string>& parts) {
    EXPECT_EQ(run.status, 1);
    for (const std::string& part : parts)
        EXPECT_NE(run.out.find(part), run.out.npos) << part << "\nin\n" << run.out;
}

}  // namespace test
