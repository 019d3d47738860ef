// huecraft doctor.
#include <nlohmann/json.hpp>
#include <sstream>

#include "command_run.h"
#include "hooks/hook_count.h"
#include "support/contents.h"

namespace test {
namespace {

class Doctor : public Command {
  protected:
    static std::string simulated() {
        return contents_of(BUILD_FOLDER "/share/huecraft/devices/simulated-12.4.txt");
    }
    /// The description without the lines that hold one of these texts.
    static std::string without(const std::vector<std::string>& parts) {
        std::istringstream lines(simulated());
        std::string kept;
        for (std::string line; std::getline(lines, line);) {
            bool goes = false;
            for (const std::string& part : parts) goes = goes || line.find(part) != line.npos;
            if (!goes) kept += line + "\n";
        }
        return kept;
    }
    nlohmann::json json_of(const std::string& description) const {
        write("device.txt", description);
        const Outcome run = this->run({"doctor", "--json", "device.txt"});
        EXPECT_EQ(run.err, "");
        return nlohmann::json::parse(run.out);
    }
    static std::string of_all(size_t count) {
        return std::to_string(count) + " of " + std::to_string(hook_count) + " hooks";
    }
    static nlohmann::json row(const nlohmann::json& report, const std::string& target) {
        for (const auto& each : report.at("hooks"))
            if (each.at("target") == target) return each;
        return {};
    }
    static std::vector<std::string> missing(const nlohmann::json& list) {
        std::vector<std::string> found;
        for (const auto& one : list)
            if (!one.at("wouldInstall")) found.push_back(one.at("target"));
        return found;
    }
    void expect_refused(const std::string& description, const std::string& line) const {
        write("device.txt", description);
        const Outcome run = this->run({"doctor", "device.txt"});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "huecraft: " + line + "\n");
    }
    static constexpr const char* forms =
        "expected \"class Name : Superclass\", \"-[Class selector] types\", \"+[Class selector] types\", "
        "\"variable Class name type\", \"function name\", \"system version\", \"unrecorded class Name\", "
        "\"unrecorded members Name\", \"unrecorded methods\", \"unrecorded functions\", \"hook method took "
        "effect\" or \"hook method "
        "had no effect\"";
};

using Targets = std::vector<std::string>;

TEST_F(Doctor, OnTheSimulatedPhoneEverythingIsThere) {
    const Outcome run = this->run({"doctor", "--system", "simulated-12.4"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(
        run.out.find(": " + of_all(hook_count) + " would be installed, and 10 of 10 things would be found\n"),
        run.out.npos)
        << run.out;
    EXPECT_NE(run.out.find(std::to_string(hook_count - 1) +
                           " installs -[UIKBShadowEffect initWithColor:offset:insets:weight:]\n"),
              run.out.npos);
    EXPECT_EQ(run.out.find("missing"), run.out.npos);
}

TEST_F(Doctor, TheSimulatedPhoneIsDescribedAsItIs) {
    const Outcome run = this->run({"doctor", "--describe"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, simulated())
        << "write it again: huecraft doctor --describe > resources/devices/simulated-12.4.txt";
}

TEST_F(Doctor, AMissingMethodIsToldWithWhatUsersSee) {
    write("device.txt", without({"-[UIKBEdgeEffect edges]"}));
    const Outcome run = this->run({"doctor", "device.txt"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_TRUE(run.out.starts_with("device.txt: " + of_all(hook_count - 1) +
                                    " would be installed, and 10 of 10 things would be found\n"))
        << run.out;
    EXPECT_NE(run.out.find(" missing  -[UIKBEdgeEffect edges]\n"
                           "        the class has no such method: keys keep the lines along their edges\n"),
              run.out.npos)
        << run.out;
}

TEST_F(Doctor, OfAMissingClassEveryRowIsMissing) {
    const auto json = json_of(without({"UIKBGradient"}));
    EXPECT_EQ(missing(json.at("hooks")),
              (Targets{"+[UIKBGradient gradientWithFlatColor:]", "+[UIKBGradient gradientWithName:]",
                       "-[UIKBGradient initWithFlatColor:]", "-[UIKBGradient initWithName:]"}));
    EXPECT_EQ(row(json, "+[UIKBGradient gradientWithFlatColor:]").at("reason"),
              "there is no class UIKBGradient");
    EXPECT_EQ(json.at("summary").at("wouldInstall"), hook_count - 4);
    EXPECT_EQ(missing(json.at("lookUps")), Targets{});
}

TEST_F(Doctor, ClassMethodsAndInstanceMethodsAreToldApart) {
    const auto json =
        json_of(without({"+[UIKBGradient gradientWithName:]"}) + "-[UIKBGradient gradientWithName:]\n");
    EXPECT_EQ(missing(json.at("hooks")), Targets{"+[UIKBGradient gradientWithName:]"});
}

TEST_F(Doctor, EveryRowHasASentence) {
    const auto json = json_of("class NSObject\n");
    ASSERT_EQ(json.at("hooks").size(), hook_count);
    EXPECT_EQ(missing(json.at("hooks")).size(), hook_count);
    for (const auto& row : json.at("hooks"))
        EXPECT_GT(row.at("effect").get<std::string>().size(), 10u) << row.at("target");
}

TEST_F(Doctor, WhatASuperclassHasItsSubclassesHave) {
    const auto own = without({"-[UIButton layoutSubviews]", "-[UIView layoutSubviews]"});
    EXPECT_EQ(missing(json_of(own).at("hooks")), (Targets{"-[UIKeyboardPredictionCell layoutSubviews]",
                                                          "-[UIKeyboardDockItemButton layoutSubviews]",
                                                          "-[UIKBInputBackdropView layoutSubviews]"}));
    EXPECT_EQ(missing(json_of(own + "-[UIView layoutSubviews]\n").at("hooks")), Targets{});
}

TEST_F(Doctor, AnAddedMethodThatIsThereAlreadyStays) {
    const auto json = json_of(simulated() + "-[UIKBBackdropView activeBackgroundView]\n");
    EXPECT_EQ(missing(json.at("hooks")), Targets{"-[UIKBBackdropView activeBackgroundView]"});
    EXPECT_EQ(row(json, "-[UIKBBackdropView activeBackgroundView]").at("how"), "added");
    EXPECT_EQ(row(json, "-[UIKBBackdropView activeBackgroundView]").at("reason"),
              "the class has such a method already, which stays");
}

TEST_F(Doctor, AnInheritedMethodDoesNotKeepOneFromBeingAdded) {
    const auto json = json_of(simulated() + "-[UIView activeBackgroundView]\n");
    EXPECT_EQ(missing(json.at("hooks")), Targets{});
}

TEST_F(Doctor, AMissingFunctionIsTold) {
    EXPECT_EQ(missing(json_of(without({"function "})).at("hooks")), Targets{"UIKBGetNamedColor"});
}

TEST_F(Doctor, WhatIsLookedUpBesideTheHooksIsHeldAgainstTheDescription) {
    const auto json = json_of(without({"_UIBackdropView", "m_activeView", "keyboardSizeForInterface"}));
    EXPECT_EQ(missing(json.at("hooks")), Targets{});
    EXPECT_EQ(missing(json.at("lookUps")),
              (Targets{"_UIBackdropView", "+[UIKeyboardImpl keyboardSizeForInterfaceOrientation:]",
                       "UIKeyboardPredictionCell m_activeView"}));
    EXPECT_EQ(json.at("lookUps").at(5).at("effect"), "applications stop when suggestions are shown");
}

TEST_F(Doctor, AVariableOfAMissingClassIsNotMissedBesides) {
    EXPECT_EQ(missing(json_of(without({"UIWebFormAccessory"})).at("lookUps")), Targets{});
}

TEST_F(Doctor, WhatIsLookedUpIsNamedInTheLibrary) {
    const std::string library = contents_of(BUILD_FOLDER "/lib/HuecraftiOS12.so");
    ASSERT_GT(library.size(), 10000u);
    const auto report = json_of(simulated());
    for (const auto& one : report.at("lookUps")) {
        std::istringstream words(one.at("target").get<std::string>());
        for (std::string word; words >> word;) {
            if (word.starts_with("+[")) word.erase(0, 2);
            if (word.ends_with("]")) word.pop_back();
            EXPECT_NE(library.find('\0' + word + '\0'), library.npos) << word;
        }
    }
}

TEST_F(Doctor, RemarksMarginsAndLineEndsOfOtherSystemsAreNothing) {
    std::string description;
    std::istringstream lines(simulated());
    for (std::string line; std::getline(lines, line);) description += "\t " + line + "  # as is\r\n";
    EXPECT_EQ(json_of(description).at("summary").at("wouldInstall"), hook_count);
}

TEST_F(Doctor, TheDescriptionMayComeFromStandardInput) {
    const Outcome run = this->run({"doctor", "-"}, simulated());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("-: " + of_all(hook_count))) << run.out;
}

TEST_F(Doctor, ALineThatIsNoFactIsNamedWithItsNumber) {
    for (const std::string line : {"UIKBEdgeEffect",
                                   "class",
                                   "class A B",
                                   "class A :",
                                   "class A : B : C",
                                   "class 1A",
                                   "class :",
                                   "variable A",
                                   "variable A :",
                                   "system",
                                   "function",
                                   "function a b",
                                   "-[A]",
                                   "-[A ]",
                                   "-[A b c]",
                                   "-[A  b]",
                                   "-[A b",
                                   "*[A b]",
                                   "-[A b:c]",
                                   "-[A b\x1b:]",
                                   "[A b]",
                                   "method A b",
                                   "-[A :b]",
                                   "unrecorded",
                                   "unrecorded class",
                                   "unrecorded class A B",
                                   "unrecorded functions f",
                                   "hook",
                                   "hook -[A b]",
                                   "hook -[A b] took no effect",
                                   "hook -[A] took effect"})
        expect_refused("class A\n\n" + line + "\n-[A b]\n",
                       "device.txt:3: found \"" + (line.find('\x1b') == line.npos ? line : "-[A b\\x1b:]") +
                           "\"; " + forms);
}

TEST_F(Doctor, SelectorsOfEveryShapeAreRead) {
    EXPECT_EQ(json_of(simulated() + "-[A :]\n-[A ::]\n-[A b::c:]\n-[A _b]\n-[A .cxx_destruct]\n")
                  .at("summary")
                  .at("wouldInstall"),
              hook_count);
}

TEST_F(Doctor, TypesThatDoNotFitTheSelectorAreRefused) {
    for (const std::string types : {"v@:", "v@:@@", "v", "@", "v@:Z", "v@:{A=d", "@@@@", "v@: @", "v@:@\"A"})
        expect_refused("-[A b:] " + types + "\n",
                       "device.txt:1: found the types \"" + types +
                           "\" of -[A b:]; expected a result, \"@:\" and 1 argument");
    expect_refused("-[A b:] v@:" + std::string(5000, '^') + "\n",
                   "device.txt:1: found the types \"v@:" + std::string(77, '^') +
                       "…\" of -[A b:]; expected a result, \"@:\" and 1 argument");
}

TEST_F(Doctor, WhatIsToldInTwoWaysIsRefused) {
    expect_refused("-[A b:] v@:d\n-[A b:]\n-[A b:] v24@0:8d16\n-[A b:] v@:f\n",
                   "device.txt:4: found the types \"v@:f\" of -[A b:]; expected \"v@:d\", as before");
    expect_refused("variable A b d\nvariable A b @\n",
                   "device.txt:2: found the types \"@\" of A b; expected \"d\", as before");
    expect_refused("system 12.4\nsystem 12.1\n",
                   "device.txt:2: found the version \"12.1\" of the system; expected \"12.4\", as before");
    expect_refused("hook f took effect\nhook f had no effect\n",
                   "device.txt:2: found both effects of the hook of f; expected one");
}

TEST_F(Doctor, TwoSuperclassesOfOneClassAreRefused) {
    expect_refused("class A : B\nclass A\nclass A : B\nclass A : C\n",
                   "device.txt:4: found the superclass C of A; expected B, as line 3 says");
}

TEST_F(Doctor, ACircleOfSuperclassesIsRefused) {
    expect_refused("class A : B\nclass B : C\nclass C : A\n",
                   "device.txt:1: found A below itself; expected superclasses without a circle");
}

TEST_F(Doctor, ADescriptionOfNothingIsRefused) {
    for (const char* nothing : {"", "# no more\n", "\n\n"})
        expect_refused(nothing, std::string("device.txt: it names nothing; expected lines such as ") +
                                    std::string(forms).substr(std::string("expected ").size()));
}

TEST_F(Doctor, AFileThatIsNotThereIsNamed) {
    const Outcome run = this->run({"doctor", "missing.txt"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: missing.txt: there is no such file\n");
}

TEST_F(Doctor, DescribingAndReadingADescriptionExcludeEachOther) {
    EXPECT_EQ(run({"doctor", "--describe", "device.txt"}).status, 2);
    EXPECT_EQ(run({"doctor", "--describe", "--json"}).status, 2);
}

}  // namespace
}  // namespace test
