// huecraft import.
#include <nlohmann/json.hpp>

#include "command_run.h"

namespace test {
namespace {

class Import : public Command {
  protected:
    /// What the library reads of the theme, by key.
    nlohmann::json answers(const std::string& file) const {
        nlohmann::json answers;
        const auto keys =
            nlohmann::json::parse(run({"show", "--json", file}).out).at("files").at(0).at("keys");
        for (const auto& key : keys) answers[key.at("key").get<std::string>()] = key.at("answer");
        return answers;
    }

    /// The theme that a gradient becomes.
    nlohmann::json theme_of(const std::string& css) const {
        const Outcome run = this->run({"import", "-", "--name", "G", "--force"}, css);
        EXPECT_EQ(run.status, 1) << run.out << run.err;  // it never says the labels' colour
        return answers("G.plist");
    }
    std::vector<std::string> losses_of(const std::string& css) const {
        return nlohmann::json::parse(run({"import", "-", "--name", "G", "--force", "--json"}, css).out)
            .at("losses");
    }
    std::string refusal_of(const std::string& css) const {
        const Outcome run = this->run({"import", "-", "--name", "G"}, css);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(lines(run.err), 1u);
        EXPECT_TRUE(names().empty());
        return run.err;
    }
    using Colours = std::vector<std::string>;
};

constexpr const char* scheme =
    "scheme: \"Deep Ocean\"\nauthor: \"A. Diver\"\nbase00: \"102030\"\nbase01: \"202020\"\nbase05: "
    "\"C0C8D0\"\n"
    "base0D: \"5090F0\"\n";

TEST_F(Import, ASchemeGivesBackgroundLabelsHighlightAndName) {
    write("ocean.yaml", scheme);
    const Outcome run = this->run({"import", "ocean.yaml"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "made the theme \"Deep Ocean\": Deep Ocean.plist\n"
              "  left out: a theme has no place for base01\n"
              "  left out: a theme has no place for \"author\"\n");
    const auto theme = answers("Deep Ocean.plist");
    EXPECT_EQ(theme.at("_TextColor"), "#C0C8D0");
    EXPECT_EQ(theme.at("_HighlightColor"), "#5090F0");
    EXPECT_EQ(theme.at("_Colors"), Colours{"#102030"});
    EXPECT_EQ(theme.at("_BackgroundType"), 1);
}

TEST_F(Import, ASchemeWithAPaletteIsRead) {
    write("new.yaml",
          "system: base16\nname: Newer\npalette:\n  base00: \"#102030\"\n  base05: \"#C0C8D0\"\n  base0D: "
          "\"#5090F0\"\n");
    EXPECT_EQ(run({"import", "new.yaml"}).status, 0);
    EXPECT_EQ(answers("Newer.plist").at("_TextColor"), "#C0C8D0");
}

TEST_F(Import, ASchemeWithoutAColourItNeedsIsRefused) {
    write("half.yaml", "scheme: Half\nbase00: \"102030\"\n");
    const Outcome run = this->run({"import", "half.yaml"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "huecraft: half.yaml: the scheme has no colour base05\n");
}

TEST_F(Import, AnInvalidColourOfASchemeIsNamed) {
    write("bad.yaml", "base00: \"10203\"\nbase05: \"C0C8D0\"\nbase0D: \"5090F0\"\n");
    EXPECT_EQ(run({"import", "bad.yaml"}).err,
              "huecraft: bad.yaml: base00: found \"10203\", expected a hex colour, RRGGBB\n");
}

TEST_F(Import, WhatIsNeitherIsRefused) {
    write("list.yaml", "- a\n- b\n");
    EXPECT_EQ(run({"import", "list.yaml"}).err,
              "huecraft: list.yaml: it is neither a base16 scheme nor a CSS gradient\n");
    write("torn.yaml", "a: [b\nc: \"");
    const Outcome run = this->run({"import", "torn.yaml"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u);
    EXPECT_TRUE(run.err.starts_with("huecraft: torn.yaml: it is neither a CSS gradient nor YAML: "))
        << run.err;
}

TEST_F(Import, YamlThatNestsWithoutEndIsRefusedInOneLine) {
    write("deep.yaml", std::string(200000, '['));
    const Outcome run = this->run({"import", "deep.yaml"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 1u) << run.err;
    EXPECT_TRUE(run.err.starts_with("huecraft: deep.yaml: ")) << run.err;
}

TEST_F(Import, SidesAndCornersAreDirections) {
    const std::pair<const char*, int> sides[] = {
        {"to top", 1},      {"to bottom", 2},    {"to left", 3},        {"to right", 4},
        {"to top left", 5}, {"to right top", 6}, {"to bottom left", 7}, {"TO BOTTOM RIGHT", 8}};
    for (const auto& [side, direction] : sides)
        EXPECT_EQ(theme_of("linear-gradient(" + std::string(side) + ", red, blue)").at("_GradientDirection"),
                  direction)
            << side;
}

TEST_F(Import, AnglesAreDirections) {
    const std::pair<const char*, int> angles[] = {{"0deg", 1},      {"45deg", 6},   {"90deg", 4},
                                                  {"0.375turn", 8}, {"200grad", 2}, {"225deg", 7},
                                                  {"-90deg", 3},    {"675deg", 5}};
    for (const auto& [angle, direction] : angles) {
        EXPECT_EQ(theme_of("linear-gradient(" + std::string(angle) + ", red, blue)").at("_GradientDirection"),
                  direction)
            << angle;
        EXPECT_EQ(losses_of("linear-gradient(" + std::string(angle) + ", red, blue)").size(), 2u) << angle;
    }
}

TEST_F(Import, AnOddAngleBecomesTheNearestAndIsTold) {
    EXPECT_EQ(theme_of("linear-gradient(100deg, red, blue)").at("_GradientDirection"), 4);
    EXPECT_EQ(losses_of("linear-gradient(100deg, red, blue)").at(0),
              "the angle \"100deg\" became 90deg: a theme has eight directions");
}

TEST_F(Import, WithoutADirectionItRunsDown) {
    EXPECT_EQ(theme_of("linear-gradient(red, blue)").at("_GradientDirection"), 2);
}

TEST_F(Import, ColoursOfEveryNotationAreRead) {
    EXPECT_EQ(theme_of("background: linear-gradient(to right, #f80, #FF8800, #ff880080, rgb(255, 136, 0), "
                       "rgb(255 136 0 / 50%), rgba(100%, 0%, 0%, 0.5), RebeccaPurple, transparent)")
                  .at("_Colors"),
              (Colours{"#FF8800", "#FF8800", "#FF880080", "#FF8800", "#FF880080", "#FF000080", "#663399",
                       "#00000000"}));
}

TEST_F(Import, EvenStopsAreCarriedOverAndOthersAreTold) {
    EXPECT_EQ(losses_of("linear-gradient(red 0%, lime 50%, blue 100%)").size(), 2u);
    const auto losses = losses_of("linear-gradient(red, lime 30%, blue 20px)");
    ASSERT_EQ(losses.size(), 4u);
    EXPECT_EQ(losses[0], "the position \"30%\" of colour 2 became 50%: a theme's colours are evenly spread");
    EXPECT_EQ(losses[1],
              "the position \"20px\" of colour 3 became 100%: a theme's colours are evenly spread");
}

TEST_F(Import, MidpointsAndFurtherGradientsAreTold) {
    EXPECT_EQ(losses_of("linear-gradient(red, 20%, blue), linear-gradient(lime, navy)").size(), 4u);
}

TEST_F(Import, LabelsAreBlackOrWhiteWhicheverIsReadable) {
    EXPECT_EQ(theme_of("linear-gradient(white, yellow)").at("_TextColor"), "#000000");
    EXPECT_EQ(theme_of("linear-gradient(black, navy)").at("_TextColor"), "#FFFFFF");
}

TEST_F(Import, WhatCannotBeAGradientIsRefused) {
    EXPECT_NE(refusal_of("radial-gradient(red, blue)").find("-: there is no linear-gradient(…) in it"),
              std::string::npos);
    EXPECT_NE(refusal_of("repeating-linear-gradient(red, blue)").find("repeats itself"), std::string::npos);
    EXPECT_NE(refusal_of("linear-gradient(red, blue").find("not closed"), std::string::npos);
    EXPECT_NE(refusal_of("linear-gradient(red)").find("two colours or more"), std::string::npos);
    EXPECT_NE(refusal_of("linear-gradient(red, )").find("missing between two commas"), std::string::npos);
    EXPECT_NE(refusal_of("linear-gradient(red, lab(1 2% 3%))").find("\"lab(1 2% 3%)\" is not a colour"),
              std::string::npos);
    EXPECT_NE(refusal_of("linear-gradient(to centre, red, blue)").find("no direction \"to centre\""),
              std::string::npos);
}

TEST_F(Import, AGradientInACommentIsNone) {
    write("comment.css",
          "/* linear-gradient(red, blue) */\nbackground: linear-gradient(to left, #000, #fff);\n");
    EXPECT_EQ(run({"import", "comment.css"}).status, 1);  // it does not say the labels' colour
    const std::string shown = run({"show", "comment.plist"}).out;
    EXPECT_NE(shown.find("getColors: #000000, #FFFFFF"), shown.npos) << shown;
    EXPECT_NE(shown.find("getGradientDirection: 3,"), shown.npos) << shown;
    EXPECT_EQ(run({"import", "-"}, "/* linear-gradient(red, blue) */").status, 2);
}

}  // namespace
}  // namespace test
