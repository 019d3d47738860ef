// huecraft package-check: a package with one flipped bit never passes if the installer refuses it.
#include <random>

#include "package/package_tree.h"

namespace test {
namespace {

using PackageDamage = PackageTree;

/// One bit of the package is another.
std::string with_flipped_bit(std::string package, size_t bit) {
    package[bit / 8] = static_cast<char>(package[bit / 8] ^ 1 << bit % 8);
    return package;
}

TEST_F(PackageDamage, WhatPassesIsWhatTheInstallerUnpacks) {
    const std::string whole = built();
    std::mt19937 random(7);
    std::vector<std::string> arguments{"package-check"};
    for (int i = 0; i < 150; ++i) {
        // A fifth of them in the first headers, of which there are few bytes.
        const size_t bytes = i % 5 ? whole.size() : 200;
        arguments.push_back("flipped" + std::to_string(i) + ".deb");
        write(arguments.back(), with_flipped_bit(whole, random() % (bytes * 8)));
    }
    const Outcome run = this->run(arguments);
    size_t passed = 0;
    for (size_t i = 1; i < arguments.size(); ++i) {
        if (run.out.find(arguments[i] + ": sound") == run.out.npos) continue;
        ++passed;
        shell("dpkg-deb --raw-extract " + arguments[i] + " tree" + std::to_string(i) + " 2> /dev/null");
    }
    // Times and the like may be anything; of the rest nothing may.
    EXPECT_LT(passed, 30u);
}

TEST_F(PackageDamage, AChangedChecksumIsFound) {
    const std::string whole = built();
    // The last part ends with its checksum and its length, perhaps with a byte to make it even.
    write("changed.deb", with_flipped_bit(whole, (whole.size() - 7) * 8));
    const Outcome run = this->run({"package-check", "changed.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with("huecraft: changed.deb: it is a damaged package: data.tar.gz: "))
        << run.err;
}

TEST_F(PackageDamage, ASizeThatIsNoNumberIsFound) {
    std::string whole = built();
    whole[8 + 48] = 'x';  // of "debian-binary"
    write("changed.deb", whole);
    const Outcome run = this->run({"package-check", "changed.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err,
        "huecraft: changed.deb: it is a damaged package: the size of its part \"debian-binary\" is \"x\", "
        "expected digits\n");
}

TEST_F(PackageDamage, OfManyPartsTheFirstAreNamed) {
    std::string package = "!<arch>\n";
    for (int i = 0; i < 50; ++i)
        package +=
            "part" + std::to_string(10 + i) + "          0           0     0     100644  0         `\n";
    write("changed.deb", package);
    const Outcome run = this->run({"package-check", "changed.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: changed.deb: it is not a whole package: expected control.tar.gz, found only part10, "
              "part11, part12 and 47 more\n");
}

TEST_F(PackageDamage, APathThatLeadsOutOfThePackageIsRefused) {
    unpack();
    pack();
    write("escaped.txt", "escaped");
    write("wait.txt", "wait 1\n");
    for (const std::string path :
         {"../escaped.txt", "./../../escaped.txt", "/Library/../../escaped.txt", "//escaped.txt",
          "./Library//escaped.txt", "Library/./escaped.txt", "Library/.."}) {
        shell("tar -czPf data.tar.gz --transform 's,^escaped.txt," + path +
              ",' escaped.txt && '" AR "' r changed.deb data.tar.gz");
        for (const std::vector<std::string>& command :
             {std::vector<std::string>{"package-check", "changed.deb"},
              {"pane", "--package", "changed.deb", "wait.txt"}}) {
            const Outcome run = this->run(command);
            EXPECT_EQ(run.status, 2) << path;
            EXPECT_EQ(run.err, "huecraft: changed.deb: it is a damaged package: found the path \"" + path +
                                   "\", expected one of names alone\n");
        }
    }
}

TEST_F(PackageDamage, APartThatIsCutShortIsFound) {
    const std::string whole = built();
    write("changed.deb", whole.substr(0, whole.size() - 500));
    const Outcome run = this->run({"package-check", "changed.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("its part \"data.tar.gz\" has "), run.err.npos) << run.err;
}

}  // namespace
}  // namespace test
