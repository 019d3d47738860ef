// huecraft send, with programs in PATH in place of ssh and scp: they do on a folder what a phone would do.
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "command_run.h"

namespace test {
namespace {

constexpr const char* host = "root@phone";

class Send : public Command {
  protected:
    Send() {
        write("themes/Midnight.plist", sound_theme());
        std::filesystem::create_directories(path("phone/var/mobile/Library/Preferences"));
        // Each program notes what it is asked for, and fails where a test wants it to.
        const std::string note =
            "#!/bin/sh\n"
            "for word in \"${0##*/}\" \"$@\"; do printf '<%s>' \"$word\"; done >>\"$CALLS\"; echo "
            ">>\"$CALLS\"\n"
            "if [ \"$FAILING\" = \"${0##*/}\" ]; then exit \"${FAILURE:-1}\"; fi\n"
            "if [ \"$FAILING_CALL\" = \"$(grep -c . \"$CALLS\")\" ]; then exit \"${FAILURE:-1}\"; fi\n";
        program("ssh",
                note +
                    "if [ \"$1\" = -p ]; then shift 2; fi\n"
                    "exec sh -c \"$(printf '%s' \"$2\" | sed \"s#/var/mobile#$PHONE/var/mobile#g\")\"\n");
        // The last word is the place.
        program("scp", note +
                           "for last; do :; done\n"
                           "while [ $# -gt 1 ]; do case $1 in -q) ;; -P) shift ;;\n"
                           "  *) cp -- \"$1\" \"$PHONE${last##*:}/\" || exit 1 ;; esac; shift; done\n");
        program("chown", note);
        program("killall", note);
        program("mv", note + "exec /bin/mv \"$@\"\n");
        program("cp", note + "exec /bin/cp \"$@\"\n");
        setenv("CALLS", path("calls").c_str(), 1);
        setenv("PHONE", path("phone").c_str(), 1);
        setenv("PATH", (path("programs").string() + ":" + getenv("PATH")).c_str(), 1);
    }

    void program(const std::string& name, const std::string& script) const {
        write("programs/" + name, script);
        chmod(path("programs/" + name).c_str(), 0755);
    }

    std::string on_phone(const std::string& name) const {
        return "phone/var/mobile/Library/Preferences/" + name;
    }
    static constexpr const char* preferences = "com.quillmoth.huecraftios12.plist";

    /// What the phone's user sees: each file with its contents.
    std::string state() const {
        std::string all;
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path("phone")))
            if (entry.is_regular_file() && entry.path().string().find("incoming") == std::string::npos)
                files.push_back(std::filesystem::relative(entry.path(), path("")));
        std::ranges::sort(files);
        for (const auto& file : files) all += file.string() + "\n" + read(file.string()) + "\n";
        return all;
    }
    size_t calls_of(const std::string& word) const {
        const std::string calls = read("calls");
        size_t count = 0;
        for (size_t at = 0; (at = calls.find("<" + word + ">", at)) != calls.npos; ++at) ++count;
        return count;
    }
    std::string shown_preferences() const {
        EXPECT_EQ(run({"convert", on_phone(preferences), "-o", "p.xml", "--to", "xml", "--force"}).status, 0);
        return read("p.xml");
    }
    static bool has(const std::string& text, const std::string& part) { return text.find(part) != text.npos; }
    static unsigned mode_of(const std::filesystem::path& file) {
        struct stat status{};
        EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
        return status.st_mode & 07777;
    }
};

TEST_F(Send, AThemeArrivesAsItIsWithItsFolder) {
    const Outcome run = this->run({"send", "themes/Midnight.plist", host});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "sent to root@phone: Midnight.plist\n");
    EXPECT_EQ(read(on_phone("HuecraftConfiguration/Midnight.plist")), sound_theme());
    EXPECT_FALSE(exists(on_phone(preferences)));
    EXPECT_FALSE(exists(on_phone(".huecraft-incoming")));
}

TEST_F(Send, FilesBelongToMobileAndAreReadable) {
    umask(077);
    ASSERT_EQ(run({"send", "themes/Midnight.plist", host, "--choose", "Midnight"}).status, 0);
    EXPECT_EQ(mode_of(path(on_phone("HuecraftConfiguration"))), 0755u);
    EXPECT_EQ(mode_of(path(on_phone("HuecraftConfiguration/Midnight.plist"))), 0644u);
    EXPECT_EQ(mode_of(path(on_phone(preferences))), 0644u);
    EXPECT_TRUE(has(read("calls"), "<chown><501:501><" + path(on_phone("HuecraftConfiguration")).string() +
                                       "><./Midnight.plist><./preferences>"))
        << read("calls");
}

TEST_F(Send, TheChosenThemeIsWorn) {
    const Outcome run = this->run({"send", "themes/Midnight.plist", host, "--choose", "Sound"});
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string xml = shown_preferences();
    EXPECT_TRUE(has(xml, "<key>_Enabled</key>")) << xml;
    EXPECT_TRUE(has(xml, "<true/>")) << xml;
    EXPECT_TRUE(has(xml, "<string>Midnight.plist</string>")) << xml;
}

TEST_F(Send, PreferencesKeepOtherKeysAndAreBackedUp) {
    const std::string before = theme_file(
        "<key>_Enabled</key><false/><key>_Config</key><string>Old.plist</string><key>theirs</key>"
        "<array><integer>7</integer></array>");
    write(on_phone(preferences), before);
    ASSERT_EQ(run({"send", "themes/Midnight.plist", host, "--choose", "Midnight.plist"}).status, 0);
    const std::string xml = shown_preferences();
    EXPECT_TRUE(has(xml, "<key>theirs</key>")) << xml;
    EXPECT_TRUE(has(xml, "<integer>7</integer>")) << xml;
    EXPECT_FALSE(has(xml, "Old.plist")) << xml;
    EXPECT_EQ(read(on_phone(std::string(preferences) + ".before")), before);
}

TEST_F(Send, BinaryPreferencesStayBinary) {
    write("old.plist", theme_file("<key>theirs</key><true/>"));
    ASSERT_EQ(run({"convert", "old.plist", "-o", on_phone(preferences), "--to", "binary"}).status, 0);
    ASSERT_EQ(run({"send", "themes/Midnight.plist", host, "--choose", "Midnight"}).status, 0);
    EXPECT_TRUE(read(on_phone(preferences)).starts_with("bplist00"));
    EXPECT_TRUE(has(shown_preferences(), "<key>theirs</key>"));
}

TEST_F(Send, DamagedPreferencesStopItBeforeAnythingIsCopied) {
    write(on_phone(preferences), "<plist");
    const std::string before = state();
    const Outcome run = this->run({"send", "themes/Midnight.plist", host, "--choose", "Midnight"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(has(run.err, "root@phone:/var/mobile/Library/Preferences/")) << run.err;
    EXPECT_EQ(calls_of("scp"), 0u);
    EXPECT_EQ(state(), before);
}

TEST_F(Send, AFailureAtAnyCallLeavesThePhoneAsItWas) {
    write(on_phone(preferences), theme_file("<key>_Enabled</key><false/>"));
    write(on_phone("HuecraftConfiguration/Midnight.plist"), "an older one");
    const std::string before = state();
    // Everything up to the first renaming: ssh, scp and its copy, ssh, chown.
    for (const char* call : {"1", "2", "3", "5", "6"}) {
        setenv("FAILING_CALL", call, 1);
        std::filesystem::remove(path("calls"));
        const Outcome run = this->run({"send", "themes/Midnight.plist", host, "--choose", "Midnight"});
        EXPECT_EQ(run.status, 2) << call << read("calls");
        EXPECT_EQ(lines(run.err), 1u) << call << run.err;
        EXPECT_TRUE(has(run.err, "failed with exit status 1; themes and preferences are as they were"))
            << call << run.err;
        EXPECT_EQ(state(), before) << call << read("calls");
    }
    unsetenv("FAILING_CALL");
    EXPECT_EQ(run({"send", "themes/Midnight.plist", host, "--choose", "Midnight"}).status, 0);
    EXPECT_NE(state(), before);
}

TEST_F(Send, AThemeThatCannotBePlacedLeavesThePreferences) {
    const std::string before = theme_file("<key>_Enabled</key><false/>");
    write(on_phone(preferences), before);
    setenv("FAILING", "mv", 1);
    const Outcome run = this->run({"send", "themes/Midnight.plist", host, "--choose", "Midnight"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(read(on_phone(preferences)), before);
}

TEST_F(Send, ALostConnectionIsNamed) {
    setenv("FAILING", "ssh", 1);
    setenv("FAILURE", "255", 1);
    const Outcome run = this->run({"send", "themes/Midnight.plist", host});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: root@phone: preparing the folders failed: ssh has no connection; themes and "
              "preferences are as they were\n");
}

TEST_F(Send, WithoutSshItSaysSo) {
    setenv("PATH", "/nowhere", 1);
    const Outcome run = this->run({"send", "themes/Midnight.plist", host});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: ssh: it is not installed, or not in PATH\n");
}

TEST_F(Send, RestartsOnlyWhenAskedAndSaysWhenThatFails) {
    ASSERT_EQ(run({"send", "themes/Midnight.plist", host}).status, 0);
    EXPECT_EQ(calls_of("killall"), 0u);
    ASSERT_EQ(run({"send", "themes/Midnight.plist", host, "--restart"}).status, 0);
    EXPECT_TRUE(has(read("calls"), "<killall><SpringBoard>"));
    setenv("FAILING", "killall", 1);
    const Outcome run = this->run({"send", "themes/Midnight.plist", host, "--restart"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: root@phone: the themes are there, but SpringBoard did not restart\n");
    EXPECT_TRUE(exists(on_phone("HuecraftConfiguration/Midnight.plist")));
}

TEST_F(Send, NothingIsSentWhenOneThemeIsFaulty) {
    write("themes/Odd.plist", theme_file("<key>_TextColor</key><string>zz</string>"));
    write("themes/None.plist", "<plist");
    const Outcome run = this->run({"send", "themes/Midnight.plist", "themes/Odd.plist", "themes/None.plist",
                                   "themes/Missing.plist", host});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 4u) << run.err;
    for (const char* file : {"Odd", "None", "Missing"})
        EXPECT_TRUE(has(run.err, std::string("huecraft: themes/") + file + ".plist: ")) << run.err;
    EXPECT_TRUE(run.err.ends_with("huecraft: root@phone: nothing was sent\n")) << run.err;
    EXPECT_FALSE(exists("calls"));
}

TEST_F(Send, TwoThemesOfOneNameAreRefused) {
    write("others/Midnight.plist", sound_theme());
    const Outcome run = this->run({"send", "themes/Midnight.plist", "others/Midnight.plist", host});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(has(run.err, "it would replace themes/Midnight.plist, which has the same name")) << run.err;
    EXPECT_FALSE(exists("calls"));
}

TEST_F(Send, AChoiceThatWasNotSentIsRefusedWithWhatWas) {
    const Outcome run = this->run({"send", "themes/Midnight.plist", host, "--choose", "Noon"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: --choose: found \"Noon\", expected one of the themes sent: Midnight\n");
    EXPECT_FALSE(exists("calls"));
}

TEST_F(Send, NamesThatShellsWouldReadArriveAsTheyAre) {
    const std::string odd = "It's $(touch pwned) `a`; & \"b\" *:x.plist", dashed = "-oProxyCommand=x.plist";
    write(odd, sound_theme());
    write(dashed, sound_theme());
    const Outcome run = this->run({"send", odd, "./" + dashed, host, "--choose", odd});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(read(on_phone("HuecraftConfiguration/" + odd)), sound_theme());
    EXPECT_EQ(read(on_phone("HuecraftConfiguration/" + dashed)), sound_theme());
    EXPECT_FALSE(exists("pwned"));
    // With a colon and no slash before it, scp would look for a machine of that name.
    EXPECT_TRUE(has(read("calls"), "<./" + odd + ">")) << read("calls");
}

TEST_F(Send, WhatSshCouldTakeForAnOptionIsRefused) {
    for (const char* name : {"-oProxyCommand=touch pwned", "root@-oProxyCommand=x", "-l@phone", "root@",
                             "@phone", "root@phone;reboot", "root@phone reboot", "root@pho:ne",
                             "root@[fe80::1", "a@b@c", "$(reboot)", "ssh://phone"}) {
        const Outcome run = this->run({"send", "--", "themes/Midnight.plist", name});
        EXPECT_EQ(run.status, 2) << name;
        EXPECT_TRUE(has(run.err, "expected USER@HOST")) << name << run.err;
    }
    EXPECT_FALSE(exists("calls"));
}

TEST_F(Send, AForgottenPhoneIsNoticed) {
    write("themes/Noon.plist", sound_theme());
    const Outcome run = this->run({"send", "themes/Midnight.plist", "themes/Noon.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(has(run.err, "expected USER@HOST")) << run.err;
    EXPECT_FALSE(exists("calls"));
}

TEST_F(Send, PortsAndBracketedAddressesReachBothPrograms) {
    ASSERT_EQ(run({"send", "themes/Midnight.plist", "mobile@[fe80::1%usb0]", "--port", "2222"}).status, 0);
    EXPECT_TRUE(has(read("calls"), "<ssh><-p><2222><mobile@fe80::1%usb0><")) << read("calls");
    EXPECT_TRUE(
        has(read("calls"), "<scp><-q><-P><2222><./themes/Midnight.plist><mobile@[fe80::1%usb0]:/var/"))
        << read("calls");
}

TEST_F(Send, ADryRunPrintsWhatAShellCanRun) {
    const std::string odd = "It's $x.plist";
    write(odd, sound_theme());
    const Outcome dry = run({"send", odd, host, "--restart", "--dry-run"});
    EXPECT_EQ(dry.status, 0) << dry.err;
    EXPECT_EQ(lines(dry.out), 3u) << dry.out;
    EXPECT_FALSE(exists("calls"));
    write("commands", dry.out);
    ASSERT_EQ(std::system(("cd '" + path("").string() + "' && sh -e commands").c_str()), 0);
    EXPECT_EQ(read(on_phone("HuecraftConfiguration/" + odd)), sound_theme());
    const std::string by_hand = read("calls");
    std::filesystem::remove(path("calls"));
    ASSERT_EQ(run({"send", odd, host, "--restart"}).status, 0);
    EXPECT_EQ(read("calls"), by_hand);
}

TEST_F(Send, JsonNamesWhatWasDone) {
    const Outcome run =
        this->run({"send", "themes/Midnight.plist", host, "--choose", "Midnight", "--restart", "--json"});
    const auto said = nlohmann::json::parse(run.out);
    EXPECT_EQ(said.at("phone"), host);
    EXPECT_EQ(said.at("sent"), nlohmann::json::array({"Midnight.plist"}));
    EXPECT_EQ(said.at("chosen"), "Midnight.plist");
    EXPECT_EQ(said.at("restarted"), true);
}

}  // namespace
}  // namespace test
