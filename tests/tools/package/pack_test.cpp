// huecraft pack: packages of themes, installed by dpkg into a folder.
#include <sys/stat.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "package/package_tree.h"

namespace test {
namespace {

class Pack : public PackageTree {
  protected:
    Pack() {
        write("Midnight.plist", sound_theme());
        write("Noon.plist", changed(sound_theme(), "Sound", "Noon"));
        write("programs/chown", "#!/bin/sh\nprintf '%s ' \"$@\" >>\"$CALLS\"\n");
        chmod(path("programs/chown").c_str(), 0755);
        setenv("CALLS", path("calls").c_str(), 1);
    }

    static std::string changed(std::string text, std::string_view what, std::string_view with) {
        return text.replace(text.find(what), what.size(), with);
    }

    Outcome pack_themes(const std::string& output, std::vector<std::string> more = {}) const {
        std::vector<std::string> arguments{"pack", "Midnight.plist", "Noon.plist",       "-o",
                                           output, "--id",           "org.example.night"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        return run;
    }

    /// Has dpkg work on a folder in place of a phone, with no need for its root.
    void dpkg(const std::string& arguments) const {
        shell(
            "mkdir -p phone/var/lib/dpkg/updates phone/var/lib/dpkg/info && touch phone/var/lib/dpkg/status");
        shell(
            "PATH=\"$PWD/programs:$PATH:/usr/sbin:/sbin\" dpkg --root=\"$PWD/phone\" --force-not-root "
            "--force-architecture --force-depends --force-script-chrootless --force-bad-path "
            "--log=/dev/null " +
            arguments + " >said 2>&1 || { cat said; false; }");
    }
    static std::string theme(const std::string& name) {
        return "phone/var/mobile/Library/Preferences/HuecraftConfiguration/" + name + ".plist";
    }
};

TEST_F(Pack, InstalledThemesLieAmongTheUsers) {
    pack_themes("night.deb");
    dpkg("-i night.deb");
    EXPECT_EQ(read(theme("Midnight")), sound_theme());
    EXPECT_EQ(read(theme("Noon")), read("Noon.plist"));
    EXPECT_NE(read("calls").find("501:501 "), std::string::npos) << read("calls");
    struct stat status{};
    ASSERT_EQ(stat(path(theme("Noon")).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0644u);
}

TEST_F(Pack, AUsersThemeOfTheSameNameIsNeverTouched) {
    write(theme("Midnight"), "the user's own");
    pack_themes("night.deb");
    pack_themes("later.deb", {"--version", "2"});
    for (const char* step : {"-i night.deb", "-i later.deb", "-r org.example.night", "-i night.deb",
                             "--purge org.example.night"}) {
        dpkg(step);
        EXPECT_EQ(read(theme("Midnight")), "the user's own") << step;
    }
}

TEST_F(Pack, TheSameThemeOfTheUserOutlastsAPackage) {
    write(theme("Midnight"), sound_theme());
    pack_themes("night.deb");
    dpkg("-i night.deb");
    dpkg("-r org.example.night");
    EXPECT_EQ(read(theme("Midnight")), sound_theme());
    EXPECT_FALSE(exists(theme("Noon")));
}

TEST_F(Pack, AnUpdateReplacesOnlyWhatNobodyChanged) {
    pack_themes("night.deb");
    dpkg("-i night.deb");
    write(theme("Midnight"), "changed by the user");
    write("Midnight.plist", changed(sound_theme(), "757575", "767676"));
    write("Noon.plist", changed(sound_theme(), "757575", "777777"));
    pack_themes("later.deb", {"--version", "2"});
    dpkg("-i later.deb");
    EXPECT_EQ(read(theme("Midnight")), "changed by the user");
    EXPECT_EQ(read(theme("Noon")), read("Noon.plist"));
}

TEST_F(Pack, RemovalTakesPlacedThemesAndKeepsChangedOnes) {
    pack_themes("night.deb");
    dpkg("-i night.deb");
    write(theme("Midnight"), "changed by the user");
    dpkg("-r org.example.night");
    EXPECT_EQ(read(theme("Midnight")), "changed by the user");
    EXPECT_FALSE(exists(theme("Noon")));
    EXPECT_FALSE(exists("phone/Library/Huecraft/Themes/org.example.night"));
    EXPECT_EQ(read("said").find("not empty"), std::string::npos) << read("said");
}

TEST_F(Pack, NamesThatShellsWouldReadAreInstalledAndRemoved) {
    const std::string name = " It's $(touch pwned) * \\n";
    write(name + ".plist", sound_theme());
    ASSERT_EQ(run({"pack", name + ".plist", "-o", "odd.deb"}).status, 0);
    dpkg("-i odd.deb");
    EXPECT_EQ(read(theme(name)), sound_theme());
    dpkg("-r huecraft-theme.odd");
    EXPECT_FALSE(exists(theme(name)));
}

TEST_F(Pack, TheSameThemesGiveTheSameBytes) {
    pack_themes("one.deb");
    shell("touch -d 2001-01-01 Midnight.plist");
    umask(077);
    setenv("TZ", "Pacific/Chatham", 1);
    ASSERT_EQ(
        run({"pack", "./Noon.plist", "Midnight.plist", "-o", "two.deb", "--id", "org.example.night"}).status,
        0);
    EXPECT_TRUE(read("one.deb") == read("two.deb"));
    setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
    pack_themes("earlier.deb");
    EXPECT_FALSE(read("one.deb") == read("earlier.deb"));
}

TEST_F(Pack, InstallersReadItsFields) {
    pack_themes("night.deb", {"--version", "1.2~rc1-3", "--name", "Night", "--maintainer",
                              "N <n@example.org>", "--description", "Dark ones"});
    shell("dpkg-deb -f night.deb Package Version Name Architecture Depends Maintainer Description >fields");
    EXPECT_EQ(
        read("fields"),
        "Package: org.example.night\nVersion: 1.2~rc1-3\nName: Night\nArchitecture: iphoneos-arm\n"
        "Depends: com.quillmoth.huecraftios12\nMaintainer: N <n@example.org>\nDescription: Dark ones\n");
}

TEST_F(Pack, WhatIsNotAskedForComesFromTheOutputAndTheThemes) {
    const Outcome run = this->run({"pack", "Noon.plist", "-o", "Bright_2.deb", "--json"});
    const auto said = nlohmann::json::parse(run.out);
    EXPECT_EQ(said.at("id"), "huecraft-theme.bright");
    EXPECT_EQ(said.at("version"), "1.0");
    EXPECT_EQ(said.at("name"), "Noon");
    EXPECT_EQ(this->run({"pack", "Noon.plist", "-o", "b!.deb"}).status, 2);
}

TEST_F(Pack, FieldsThatInstallersRefuseAreRefused) {
    const std::pair<const char*, const char*> bad[] = {{"--id", "Night"},
                                                       {"--id", "-x"},
                                                       {"--id", "a"},
                                                       {"--id", "a b"},
                                                       {"--id", "a/../b"},
                                                       {"--version", "one"},
                                                       {"--version", "1 0"},
                                                       {"--version", "1_0"},
                                                       {"--version", ""},
                                                       {"--version", "1-"},
                                                       {"--name", "a\nEssential: yes"},
                                                       {"--maintainer", " "},
                                                       {"--description", "\x1b[31m"}};
    for (const auto& [option, value] : bad) {
        const Outcome run = this->run({"pack", "Noon.plist", "-o", "n.deb", option, value});
        EXPECT_EQ(run.status, 2) << option << value;
        EXPECT_EQ(lines(run.err), 1u) << run.err;
        EXPECT_FALSE(exists("n.deb")) << option << value;
    }
}

TEST_F(Pack, AFaultyThemeMakesNoPackage) {
    write("Odd.plist", theme_file("<key>_TextColor</key><string>zz</string>"));
    const Outcome run = this->run({"pack", "Noon.plist", "Odd.plist", "-o", "n.deb"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with("huecraft: Odd.plist: ")) << run.err;
    EXPECT_FALSE(exists("n.deb"));
}

TEST_F(Pack, AThemeIsNotReplacedByAForgottenOutput) {
    const Outcome run = this->run({"pack", "-o", "Noon.plist", "Midnight.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: Noon.plist: it exists and is not a package; --force replaces it\n");
}

// --- package-check of such packages ---

class PackCheck : public Pack {
  protected:
    /// What is found after a change to the unpacked package; the package as it was has no faults.
    Outcome found_after(const std::string& change) const {
        pack_themes("night.deb");
        EXPECT_EQ(run({"package-check", "night.deb"}).status, 0);
        shell("rm -rf tree && dpkg-deb --raw-extract night.deb tree && " + change);
        return checked();
    }
    static constexpr const char* own = "tree/Library/Huecraft/Themes/org.example.night";
};

TEST_F(PackCheck, WhatIsPackedPasses) {
    pack_themes("night.deb");
    const Outcome run = this->run({"package-check", "night.deb", PACKAGE_FILE});
    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_TRUE(run.out.starts_with("night.deb: sound; 4 checks passed\n")) << run.out;
}

TEST_F(PackCheck, AFileInTheUsersFolderIsFound) {
    expect_only(
        found_after("mkdir -p tree/var/mobile && echo x > tree/var/mobile/x"),
        "layout: found /var, which has no place in a package of themes; found /var/mobile, which has no "
        "place in a package of themes; found /var/mobile/x, which has no place in a package of themes");
}

TEST_F(PackCheck, AConffileIsFound) {
    expect_only(
        found_after("echo /Library/Huecraft/Themes/org.example.night/Noon.plist > tree/DEBIAN/conffiles"),
        "layout: found /conffiles for the installer, expected control, postinst and prerm alone");
}

TEST_F(PackCheck, AnotherScriptIsFound) {
    expect_only(found_after("echo 'rm -rf /var' >> tree/DEBIAN/postinst"),
                "scripts: found another postinst than huecraft pack writes");
    expect_only(found_after("rm tree/DEBIAN/prerm"), "scripts: found no prerm");
}

TEST_F(PackCheck, AThemeThatDoesNotLoadIsFound) {
    const Outcome run = found_after(std::string("echo '<plist' > ") + own + "/Noon.plist");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("not ok themes: Noon.plist: it is not a property list"), run.out.npos) << run.out;
}

TEST_F(PackCheck, AnEmptyPackageIsFound) {
    expect_only(found_after(std::string("rm ") + own + "/*.plist"),
                "layout: found no theme in /Library/Huecraft/Themes/org.example.night");
}

TEST_F(PackCheck, AWritableThemeIsFound) {
    expect_only(
        found_after(std::string("chmod 666 ") + own + "/Noon.plist"),
        "layout: found mode 0666 at /Library/Huecraft/Themes/org.example.night/Noon.plist, expected 0644");
}

TEST_F(PackCheck, AMissingDependencyIsFound) {
    expect_only(found_after("sed -i /^Depends/d tree/DEBIAN/control"),
                "control: Depends: found no such field, expected \"com.quillmoth.huecraftios12\"");
}

TEST_F(PackCheck, AnIdThatIsNotTheFoldersIsFound) {
    const Outcome run = found_after("sed -i 's/^Package: .*/Package: org.example.noon/' tree/DEBIAN/control");
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("not ok layout: "), run.out.npos) << run.out;
    EXPECT_NE(run.out.find("not ok scripts: "), run.out.npos) << run.out;
}

}  // namespace
}  // namespace test
