// huecraft doctor on the real systems whose descriptions come along, and on types.
#include <nlohmann/json.hpp>
#include <sstream>

#include "command_run.h"
#include "hooks/hook_count.h"
#include "support/contents.h"

namespace test {
namespace {

using Targets = std::vector<std::string>;

std::string replaced(std::string text, const std::string& part, const std::string& by) {
    size_t at = text.find(part);
    EXPECT_NE(at, text.npos) << part;
    for (; at != text.npos; at = text.find(part, at + by.size())) text.replace(at, part.size(), by);
    return text;
}

std::string of_all(size_t count) { return std::to_string(count) + " of " + std::to_string(hook_count); }

nlohmann::json row(const nlohmann::json& report, const std::string& target) {
    for (const auto& each : report.at("hooks"))
        if (each.at("target") == target) return each;
    return {};
}

class DoctorOfSystems : public Command {
  protected:
    static std::string described(const std::string& system) {
        return contents_of(BUILD_FOLDER "/share/huecraft/devices/" + system + ".txt");
    }
    nlohmann::json json_of(const std::vector<std::string>& arguments) const {
        std::vector<std::string> all{"doctor", "--json"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome run = this->run(all);
        EXPECT_EQ(run.err, "");
        return nlohmann::json::parse(run.out);
    }
    nlohmann::json json_of_text(const std::string& description) const {
        write("device.txt", description);
        return json_of({"device.txt"});
    }
    /// The targets with a verdict, of the rows first.
    static Targets with(const std::string& verdict, const nlohmann::json& report) {
        Targets found;
        for (const char* part : {"hooks", "lookUps"})
            for (const auto& one : report.at(part))
                if (one.at("verdict") == verdict) found.push_back(one.at("target"));
        return found;
    }
};

const std::string launch = "-[SpringBoard applicationDidFinishLaunching:]";

TEST_F(DoctorOfSystems, EveryRowFitsTheSystemsThatAreWhollyDescribed) {
    for (const char* system : {"12.1.1", "12.4"}) {
        const auto report = json_of({"--system", system});
        EXPECT_EQ(report.at("summary").at("hooks"), hook_count);
        EXPECT_EQ(with("well", report).size(), hook_count + 10) << system;
        for (const auto& row : report.at("hooks"))
            EXPECT_EQ(row.contains("types"), row.at("how") == "replaced") << row.at("target");
        for (const auto& one : report.at("lookUps"))
            EXPECT_EQ(one.contains("types"), one.at("how") != "class looked up") << one.at("target");
    }
}

TEST_F(DoctorOfSystems, NothingThatWasRecordedOfIOS12DoesNotFit) {
    const std::map<std::string, Targets> unrecorded{{"12.0-beta", {launch, "UIKBGetNamedColor"}},
                                                    {"12.0", {launch}},
                                                    {"12.1-simulator", {launch}},
                                                    {"12.1.2", {launch}}};
    for (const auto& [system, targets] : unrecorded) {
        const auto report = json_of({"--system", system});
        EXPECT_EQ(with("unrecorded", report), targets) << system;
        EXPECT_EQ(with("well", report).size() + targets.size(), hook_count + 10) << system;
    }
}

TEST_F(DoctorOfSystems, AListOfSymbolsLeavesMethodsOpen) {
    const auto report = json_of({"--system", "12.2-symbols"});
    EXPECT_EQ(with("missing", report), Targets{});
    EXPECT_EQ(with("well", report).size(), 1u + 3 + 5);
    EXPECT_EQ(report.at("hooks").at(1).at("reason"), "the method was not recorded");
    EXPECT_EQ(report.at("hooks").at(1).at("wouldInstall"), nullptr);
    EXPECT_EQ(run({"doctor", "--system", "12.2-symbols"}).status, 0);
}

TEST_F(DoctorOfSystems, ADoubleWhereTheSystemPassesAFloatIsFound) {
    write("device.txt",
          replaced(described("12.4"), "setHeaderOpacity:] v@:d", "setHeaderOpacity:] v20@0:8f16"));
    const Outcome run = this->run({"doctor", "device.txt"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_NE(
        run.out.find("   13 differs  -[UIKeyboardEmojiSectionHeader setHeaderOpacity:]\n"
                     "        its types are \"v@:f\", and not \"v@:d\": the replacement mistakes what it is "
                     "given or what is answered, and applications may stop\n"),
        run.out.npos)
        << run.out;
    EXPECT_TRUE(run.out.starts_with("device.txt: " + of_all(hook_count) +
                                    " hooks would be installed, and 10 of 10 things would be "
                                    "found; 1 differs\n"))
        << run.out;
}

TEST_F(DoctorOfSystems, EveryKindOfOtherTypeIsFound) {
    const std::vector<std::array<std::string, 3>> changes{
        {"[UIKBEdgeEffect edges] Q@:", "[UIKBEdgeEffect edges] I@:", "-[UIKBEdgeEffect edges]"},
        {"useVibrantBlend] B@:", "useVibrantBlend] @@:", "-[UIKeyboardEmojiSectionHeader useVibrantBlend]"},
        {"offset:insets:weight:] @@:@{CGSize=dd}", "offset:insets:weight:] @@:@{CGSize=ff}",
         "-[UIKBShadowEffect initWithColor:offset:insets:weight:]"},
        {"[UIView layoutSubviews] v@:", "[UIView layoutSubviews] @@:",
         "-[UIKBInputBackdropView layoutSubviews]"},
        {"keyboardSizeForInterfaceOrientation:] {CGSize=dd}@:q",
         "keyboardSizeForInterfaceOrientation:] {CGSize=dd}@:d",
         "+[UIKeyboardImpl keyboardSizeForInterfaceOrientation:]"},
        {"m_activeView @\"UIView\"", "m_activeView d", "UIKeyboardPredictionCell m_activeView"}};
    for (const auto& [was, is, target] : changes) {
        const Targets found = with("differs", json_of_text(replaced(described("12.4"), was, is)));
        EXPECT_NE(std::find(found.begin(), found.end(), target), found.end()) << is;
        EXPECT_LE(found.size(), 2u) << is;
    }
}

TEST_F(DoctorOfSystems, WhatIsPassedAlikeIsNoDifference) {
    std::string text = described("12.4");
    text = replaced(text, "useVibrantBlend] B@:", "useVibrantBlend] c16@0:8");
    text = replaced(text, "setUseVibrantBlend:] v@:B", "setUseVibrantBlend:] v20@0:8C16");
    text = replaced(text, "{CGRect={CGPoint=dd}{CGSize=dd}}",
                    "{_NSRect=\"origin\"{_NSPoint=\"x\"d\"y\"d}{?=dd}}");
    text = replaced(text, "+[UIKBGradient gradientWithName:] @@:@",
                    "+[UIKBGradient gradientWithName:] @24@0:8n@16");
    text = replaced(text, "+[UIKBGradient gradientWithFlatColor:] @@:@",
                    "+[UIKBGradient gradientWithFlatColor:]");
    EXPECT_EQ(with("well", json_of_text(text)).size(), hook_count + 10);
}

TEST_F(DoctorOfSystems, WhatWasNotRecordedIsNotMissing) {
    const std::string simulated = described("simulated-12.4");
    const std::string without_edges = replaced(simulated, "-[UIKBEdgeEffect edges] Q@:\n", "");
    EXPECT_EQ(with("missing", json_of_text(without_edges)), Targets{"-[UIKBEdgeEffect edges]"});
    for (const char* line : {"unrecorded members UIKBEdgeEffect\n", "unrecorded class UIKBEdgeEffect\n",
                             "unrecorded class NSObject # its superclass\n", "unrecorded methods\n"})
        EXPECT_EQ(with("missing", json_of_text(without_edges + line)), Targets{}) << line;
    const std::string without_function = replaced(simulated, "function UIKBGetNamedColor\n", "");
    EXPECT_EQ(with("unrecorded", json_of_text(without_function + "unrecorded functions\n")),
              Targets{"UIKBGetNamedColor"});
    const std::string without_variable =
        replaced(simulated, "variable UIKeyboardPredictionCell m_activeView", "#");
    EXPECT_EQ(
        with("unrecorded", json_of_text(without_variable + "unrecorded methods\n")),
        (Targets{"-[UIKBBackdropView activeBackgroundView]", "-[UIKBBackdropView setActiveBackgroundView:]",
                 "-[UIKBInputBackdropView removeKBBackdropEffects:]"}));
    EXPECT_EQ(with("missing", json_of_text(without_variable + "unrecorded methods\n")),
              Targets{"UIKeyboardPredictionCell m_activeView"});
}

TEST_F(DoctorOfSystems, AHookThatHadNoEffectIsTold) {
    const auto report = json_of_text(described("12.4") + "hook -[UIKBEdgeEffect edges] had no effect\n" +
                                     "hook UIKBGetNamedColor took effect\n");
    EXPECT_EQ(with("missing", report), Targets{"-[UIKBEdgeEffect edges]"});
    EXPECT_EQ(row(report, "-[UIKBEdgeEffect edges]").at("reason"), "the hook had no effect there");
}

TEST_F(DoctorOfSystems, WithoutAFileAllOfIOS12IsAnswered) {
    const Outcome run = this->run({"doctor"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "system           hooks      looked up\n"
              "12.0-beta        " +
                  of_all(hook_count - 2) +
                  "   10 of 10  2 were not recorded\n"
                  "12.0             " +
                  of_all(hook_count - 1) +
                  "   10 of 10  1 was not recorded\n"
                  "12.1-simulator   " +
                  of_all(hook_count - 1) +
                  "   10 of 10  1 was not recorded\n"
                  "12.1.1           " +
                  of_all(hook_count) +
                  "   10 of 10\n"
                  "12.1.2           " +
                  of_all(hook_count - 1) +
                  "   10 of 10  1 was not recorded\n"
                  "12.2-symbols     " +
                  of_all(1) + "    8 of 10   " + std::to_string(hook_count + 1) +
                  " were not recorded\n"
                  "12.4             " +
                  of_all(hook_count) + "   10 of 10\n");
    const auto json = json_of({});
    ASSERT_EQ(json.at("systems").size(), 7u);
    EXPECT_EQ(json.at("systems").at(6).at("device"), "12.4");
    EXPECT_EQ(json.at("systems").at(0).at("summary").at("unrecorded"), 2);
}

TEST_F(DoctorOfSystems, ASystemThatIsNotDescribedIsRefused) {
    for (const char* name : {"12.3", "../12.4", "facts"}) {
        const Outcome run = this->run({"doctor", "--system", name});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err,
                  std::string("huecraft: --system ") + name +
                      ": no such system is described; expected one of 11.0, 11.2.6, 11.4, 12.0-beta, 12.0, "
                      "12.1-simulator, 12.1.1, 12.1.2, 12.2-symbols, 12.4, 13.4.1, 13.5, 13.5.1, "
                      "simulated-12.4\n");
    }
}

TEST_F(DoctorOfSystems, ASystemDiffersFromItselfInNothing) {
    for (const char* system : {"12.4", "11.4", "12.2-symbols"}) {
        const Outcome run = this->run({"doctor", "--system", system, "--against", system});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, std::string(system) + " against " + system + ": 0 differences\n");
    }
}

TEST_F(DoctorOfSystems, WhatDriftedIsNamedFact) {
    std::string text = described("12.4");
    text = replaced(text, "-[UIKBEdgeEffect edges] Q@:\n", "-[UIKBEdgeEffect corners] Q@:\n");
    text = replaced(text, "class UIKBGradient : NSObject", "class UIKBGradient : UIView");
    text = replaced(text, "setHeaderOpacity:] v@:d", "setHeaderOpacity:] v@:f");
    text = replaced(text, "UIKeyboardPredictionCell m_activeView @\"UIView\"",
                    "UIKeyboardPredictionCell m_active @");
    text = replaced(text, "function UIKBGetNamedColor\n", "");
    write("device.txt", text);
    const Outcome run = this->run({"doctor", "device.txt", "--against", "12.4"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_EQ(run.out,
              "device.txt against 12.4: 7 differences\n"
              "  gone     -[UIKBEdgeEffect edges]\n"
              "  gone     variable UIKeyboardPredictionCell m_activeView\n"
              "  gone     function UIKBGetNamedColor\n"
              "  changed  class UIKBGradient: UIView, was NSObject\n"
              "  changed  -[UIKeyboardEmojiSectionHeader setHeaderOpacity:]: v@:f, was v@:d\n"
              "  new      -[UIKBEdgeEffect corners]\n"
              "  new      variable UIKeyboardPredictionCell m_active\n");
    const auto json = json_of({"device.txt", "--against", "12.4"});
    EXPECT_EQ(json.at("differences").size(), 7u);
    EXPECT_EQ(
        json.at("differences").at(0),
        (nlohmann::json{
            {"kind", "changed"}, {"what", "class UIKBGradient"}, {"now", "UIView"}, {"before", "NSObject"}}));
}

TEST_F(DoctorOfSystems, OnlyAHookedClassIsMissedAltogether) {
    std::string text = described("12.4");
    text = replaced(text, "UIKeyboardPredictionCell", "UIKeyboardOtherCell");
    text = replaced(text, "class UISlider : UIControl\n", "");
    write("device.txt", text + "class UIKBNew : NSObject\n");
    const Outcome run = this->run({"doctor", "device.txt", "--against", "12.4"});
    EXPECT_EQ(run.out, "device.txt against 12.4: 1 difference\n  gone     class UIKeyboardPredictionCell\n");
}

TEST_F(DoctorOfSystems, ALongDriftIsCutShort) {
    std::string text = described("12.4");
    for (int i = 100; i < 200; ++i) text += "-[UIKBEdgeEffect new" + std::to_string(i) + "]\n";
    write("device.txt", text);
    const Outcome run = this->run({"doctor", "device.txt", "--against", "12.4"});
    EXPECT_EQ(lines(run.out), 1u + 40 + 1);
    EXPECT_TRUE(
        run.out.ends_with("  new      -[UIKBEdgeEffect new139]\n  … and 60 more; --json has them all\n"))
        << run.out;
    EXPECT_EQ(json_of({"device.txt", "--against", "12.4"}).at("differences").size(), 100u);
}

TEST_F(DoctorOfSystems, TheOtherSideOfAComparisonMayBeAFile) {
    write("one.txt", "-[UIKBEdgeEffect edges]\n");
    write("two.txt", "-[UIKBEdgeEffect edges]\n-[UIKBEdgeEffect b]\n");
    EXPECT_EQ(run({"doctor", "two.txt", "--against", "one.txt"}).out,
              "two.txt against one.txt: 1 difference\n  new      -[UIKBEdgeEffect b]\n");
    EXPECT_EQ(run({"doctor", "one.txt", "--against", "three.txt"}).err,
              "huecraft: three.txt: there is no such file\n");
    EXPECT_EQ(run({"doctor", "--against", "12.4"}).status, 2);
}

TEST_F(DoctorOfSystems, ThePageOfRealSystemsShowsWhatIsPrinted) {
    const std::string page = SOURCE_FOLDER "/docs/systems.md";
    const std::string again = path("again.md").string();
    const std::string writing =
        SOURCE_FOLDER "/tools/huecraft/doctor/write_page " HUECRAFT_COMMAND " " + page + " > " + again;
    ASSERT_EQ(std::system(writing.c_str()), 0);
    EXPECT_EQ(contents_of(again), contents_of(page)) << "write it again, as the page says";
    EXPECT_GT(lines(contents_of(page)), 100u);
}

TEST_F(DoctorOfSystems, AnEightfoldDescriptionTakesNoMoreThanItsShare) {
    const auto seconds_for = [&](size_t bytes) {
        std::string text = "class C0\n";
        for (size_t i = 1; text.size() < bytes; ++i) {
            const std::string name = "C" + std::to_string(i);
            text += "class " + name + " : C" + std::to_string(i - 1) + "\n-[" + name +
                    " a:] v@:d\nvariable " + name + " b d\n";
        }
        write("long.txt", text);
        const Outcome run = this->run({"doctor", "long.txt"});
        EXPECT_EQ(run.status, 1) << run.err;
        return run.processor_seconds;
    };
    const double less = seconds_for(7 << 20 >> 3), more = seconds_for(7 << 20);
    EXPECT_LT(more, 16 * less);
}

}  // namespace
}  // namespace test
