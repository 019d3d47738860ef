// The compatibility screen, and the report that it shares.
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

#include "settings_page.h"
#include "support/contents.h"
#include "support/runtime.h"

namespace test {
namespace {

using testing::Contains;
using testing::HasSubstr;

/// Without remarks, and hooks, and what only the home screen has.
Lines facts(const std::string& text) {
    Lines found;
    for (std::string line : lines_of(text)) {
        line = line.substr(0, line.find("  #"));
        const bool in_home_screen =
            line.find("SpringBoard") != line.npos || line.find("FBSystemApp") != line.npos;
        if (!line.empty() && line[0] != '#' && !line.starts_with("hook ") && !in_home_screen)
            found.push_back(line);
    }
    return found;
}

/// Those that have the remark, without it.
Lines facts_with(const std::string& text, const std::string& remark) {
    Lines found;
    for (const std::string& line : lines_of(text))
        if (line.ends_with(remark)) found.push_back(line.substr(0, line.size() - remark.size()));
    return found;
}

size_t lines_with(const std::string& text, const std::string& part) {
    return static_cast<size_t>(std::ranges::count_if(
        lines_of(text), [&](const auto& line) { return line.find(part) != line.npos; }));
}

/// The first lines that differ; "" where all are the same.
std::string unlike(const Lines& found, const Lines& expected) {
    const auto [one, other] = std::ranges::mismatch(found, expected);
    const auto line = [](auto place, const Lines& all) { return place == all.end() ? "(end)" : *place; };
    if (one == found.end() && other == expected.end()) return "";
    return "found " + line(one, found) + "; expected " + line(other, expected);
}

class Compatibility : public SettingsPage {
  protected:
    void open_screen(Phone::Options options = {}) {
        open(options);
        choose_row(0, about_section);
    }
    /// The same, without the library, where classes are others.
    template <class Make>
    void open_screen_with(Make make, Phone::Options options = {}) {
        open_with_other_classes(make, options);
        choose_row(0, about_section);
    }
    /// What the screen shares.
    std::string shared_report() {
        choose_row(2, 0);
        tap("Share");
        sim_shared_item item{};
        EXPECT_EQ(sim_shared_item_at(0, &item), SIM_OK) << sim_last_error();
        return item.kind == std::string("file") ? phone.read(item.content) : item.content;
    }
    /// What doctor says of a file, without its name.
    std::string diagnosis(const std::string& file) const {
        const std::string said = phone.host("/said");
        const std::string command = "'" HUECRAFT_COMMAND "' doctor '" + file + "' > '" + said + "' 2>&1";
        EXPECT_LE(WEXITSTATUS(std::system(command.c_str())), 1);
        std::string text = contents_of(said);
        for (size_t at; (at = text.find(file)) != text.npos;) text.replace(at, file.size(), "it");
        return text;
    }
    /// Row by row, but for the first: in Settings there is no class of the home screen.
    Lines rows_of(const std::string& said) const {
        Lines rows = lines_of(said);
        std::erase_if(rows, [](const std::string& line) {
            return line.starts_with("it: ") || line.find("SpringBoard") != line.npos;
        });
        return rows;
    }
    std::string diagnosis_of_report(const std::string& report) const {
        phone.write("/report.txt", report);
        return diagnosis(phone.host("/report.txt"));
    }
    std::string value(NSInteger row) { return utf8(cell(row, 0)->detailTextLabel()->text()); }
    /// The row of that target, wherever it is.
    std::string note_on(const std::string& target) {
        for (const NSInteger section : {1, 2})
            for (NSInteger row = 0; row < table()->numberOfRowsInSection(section); ++row)
                if (UITableViewCell* found = cell(row, section); utf8(found->textLabel()->text()) == target)
                    return utf8(found->detailTextLabel()->text());
        return "no such row";
    }
};

TEST_F(Compatibility, EveryRowIsThereOnTheModelledSystem) {
    open_screen();
    EXPECT_EQ(value(0), "44 of 45");
    EXPECT_EQ(value(1), "10 of 10");
    EXPECT_EQ(note_on("-[SpringBoard applicationDidFinishLaunching:]"),
              "Unknown: This cannot be seen from Settings.");
    EXPECT_EQ(table()->numberOfRowsInSection(1), 45);
    EXPECT_EQ(note_on("-[UIKBEdgeEffect edges]"), "Installs");
    EXPECT_EQ(note_on("UIKBGetNamedColor"), "Installs");
    EXPECT_EQ(note_on("UIWebFormAccessory _leftToolbar"), "Found");
}

TEST_F(Compatibility, TheSameIsSaidWhereTheLibraryIsAtWork) {
    arrange_theme(phone);
    open_screen();
    EXPECT_EQ(value(0), "44 of 45");
    EXPECT_EQ(note_on("-[UIKBBackdropView activeBackgroundView]"), "Installs") << "it is the library's own";
}

TEST_F(Compatibility, AMissingClassIsSaidWithWhatUsersSee) {
    open_screen({.left_out = {"UIKBEdgeEffect"}});
    EXPECT_EQ(value(0), "40 of 45");
    EXPECT_EQ(note_on("-[UIKBEdgeEffect edges]"), "Missing: There is no class UIKBEdgeEffect.");
    choose_row(38, 1);
    EXPECT_TRUE(is_on_screen(
        "Missing: There is no class UIKBEdgeEffect. Then keys keep the lines along their edges."));
}

TEST_F(Compatibility, AHookWithoutEffectIsSaid) {
    arrange_theme(phone);
    open_screen({.unfound = {"-[UIKBEdgeEffect edges]"}});
    EXPECT_THAT(note_on("-[UIKBEdgeEffect edges]"), HasSubstr("The hook had no effect here."));
}

TEST_F(Compatibility, AMethodOfOtherTypesIsSaidAndOneThatIsNotThere) {
    const auto no_object = [](id, SEL) -> id { return nullptr; };
    open_screen_with(
        [&] { class_with("UIKBEdgeEffect", "NSObject", {own_method("edges", no_object, "@@:")}); },
        {.left_out = {"UIKBEdgeEffect"}});
    EXPECT_EQ(value(0), "41 of 45");
    EXPECT_EQ(note_on("-[UIKBEdgeEffect edges]"), "Differs: Its types are @@:, and not Q@:.");
    EXPECT_EQ(note_on("-[UIKBEdgeEffect initWithColor:edges:insets:weight:]"),
              "Missing: The class has no such method.");
    choose_row(38, 1);
    EXPECT_TRUE(is_on_screen("Differs: Its types are @@:, and not Q@:. Applications may stop."));
}

TEST_F(Compatibility, AMethodThatTheLibraryWouldAddIsSaidWhereThereIsOne) {
    open_screen_with([] {
        const IMP nothing = as_method([](id, SEL) -> id { return nullptr; });
        class_addMethod(objc_getClass("UIKBBackdropView"), sel_registerName("activeBackgroundView"), nothing,
                        "@@:");
    });
    EXPECT_EQ(value(0), "43 of 45");
    EXPECT_EQ(note_on("-[UIKBBackdropView activeBackgroundView]"),
              "Missing: The class has such a method already.");
}

TEST_F(Compatibility, AVariableThatIsNotThereIsSaidAndOneThatHoldsNoObject) {
    open_screen_with(
        [] {
            Class accessory = objc_allocateClassPair(objc_getClass("UIView"), "UIWebFormAccessory", 0);
            class_addIvar(accessory, "_rightToolbar", sizeof(int), 2, "i");
            objc_registerClassPair(accessory);
        },
        {.left_out = {"UIWebFormAccessory"}});
    EXPECT_EQ(value(1), "9 of 10");
    EXPECT_EQ(note_on("UIWebFormAccessory _leftToolbar"), "Missing: The class has no such variable.");
    EXPECT_EQ(note_on("UIWebFormAccessory _rightToolbar"), "Differs: Its type is i, and no object.");
}

TEST_F(Compatibility, TheReportIsWhatDoctorKnowsOfTheSimulatedPhone) {
    open_screen();
    const std::string report = shared_report();
    EXPECT_EQ(unlike(facts(report), facts(contents_of(SIMULATED_DESCRIPTION))), "");
    EXPECT_EQ(lines_with(report, "# hooks not seen: theming is off"), 1u);
    const std::string said = diagnosis_of_report(report);
    EXPECT_EQ(rows_of(said), rows_of(diagnosis(SIMULATED_DESCRIPTION)));
    EXPECT_THAT(said,
                HasSubstr("44 of 45 hooks would be installed, and 10 of 10 things would be found; 1 was not "
                          "recorded"));
}

TEST_F(Compatibility, WhereTheLibraryIsAtWorkTheReportSaysWhatItHides) {
    arrange_theme(phone);
    open_screen();
    const std::string report = shared_report();
    const Lines hidden = facts_with(report, "  # is hooked, and may be inherited");
    EXPECT_THAT(hidden, Contains("-[UIInputSwitcherTableView layoutSubviews] v@:"));
    const auto others = [&](Lines all) {
        std::erase_if(all, [&](const auto& line) { return std::ranges::count(hidden, line) > 0; });
        return all;
    };
    EXPECT_EQ(unlike(others(facts(report)), others(facts(contents_of(SIMULATED_DESCRIPTION)))), "");
    EXPECT_EQ(lines_with(report, "-[UIKBBackdropView activeBackgroundView]"), 1u) << "the hook's alone";
    EXPECT_EQ(lines_with(report, "hook -[UIKBEdgeEffect edges] took effect"), 1u);
    EXPECT_EQ(lines_with(report, "hook UIKBGetNamedColor took effect"), 1u);
    EXPECT_EQ(lines_with(report, "had no effect"), 0u);
    EXPECT_EQ(rows_of(diagnosis_of_report(report)), rows_of(diagnosis(SIMULATED_DESCRIPTION)));
}

TEST_F(Compatibility, DoctorReadsWhatTheScreenShows) {
    arrange_theme(phone);
    open_screen({.left_out = {"CAFilter"}, .unfound = {"-[UIKBEdgeEffect edges]"}});
    EXPECT_EQ(value(0), "43 of 45");
    EXPECT_EQ(value(1), "9 of 10");
    const std::string said = diagnosis_of_report(shared_report());
    EXPECT_THAT(said, HasSubstr("43 of 45 hooks would be installed, and 9 of 10 things would be found"));
}

TEST_F(Compatibility, NothingOfTheUsersIsInTheReport) {
    put_theme(phone, "Sesame.plist", "Sesame");
    open();
    choose_row(0, own_section);
    choose_row(0, about_section);
    const std::string report = shared_report();
    for (const char* secret : {"Sesame", "#00FF00", "_ConfigName", "/var/mobile", "HuecraftConfiguration"})
        EXPECT_EQ(lines_with(report, secret), 0u) << secret;
}

TEST_F(Compatibility, OnAFullDiskTheReportIsSharedAsText) {
    open_screen();
    choose_row(2, 0);
    tap("Cancel");
    const FullDisk full;
    choose_row(2, 0);
    tap("Share");
    sim_shared_item item{};
    ASSERT_EQ(sim_shared_item_at(0, &item), SIM_OK) << sim_last_error();
    EXPECT_STREQ(item.kind, "text");
    EXPECT_EQ(lines_with(item.content, "function UIKBGetNamedColor"), 1u);
}

TEST_F(Compatibility, TellsVoiceOverTargetAndState) {
    open_screen();
    EXPECT_EQ(utf8(cell(38, 1)->accessibilityLabel()), "-[UIKBEdgeEffect edges], Installs");
    EXPECT_EQ(utf8(cell(0, 0)->accessibilityValue()), "44 of 45");
}

TEST_F(Compatibility, LooksAsExpected) {
    open_screen();
    expect_picture("pane-compatibility");
}

TEST_F(Compatibility, WhatIsMissingLooksAsExpectedInGerman) {
    open_screen({.left_out = {"UIKBRenderFactory", "UIKBEdgeEffect"}, .language = "de"});
    expect_picture("pane-compatibility-missing");
}

TEST_F(Compatibility, LooksAsExpectedOnAnIPad) {
    open_screen(
        {.left_out = {"UIKBRenderFactory"}, .screen_width = 768, .screen_height = 1024, .screen_scale = 2});
    expect_picture("pane-compatibility-ipad");
}

}  // namespace

void prepare_phones() {
    prepare_phones_that_may_lack({"CAFilter", "UIKBEdgeEffect", "UIKBRenderFactory", "UIWebFormAccessory"});
}

}  // namespace test
