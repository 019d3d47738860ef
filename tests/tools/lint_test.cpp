// huecraft lint.
#include <cstdio>
#include <map>
#include <nlohmann/json.hpp>

#include "command_run.h"
#include "photos/photo_samples.h"
#include "png.h"
#include "support/base64.h"

namespace test {
namespace {

using nlohmann::json;

class Lint : public Command {
  protected:
    /// The report of one theme.
    json linted(std::string_view contents) const {
        write("theme.plist", contents);
        const Outcome run = this->run({"lint", "--json", "theme.plist"});
        EXPECT_EQ(run.err, "");
        return json::parse(run.out).at("files").at(0);
    }

    /// "severity key: found" of each finding.
    static std::vector<std::string> findings(const json& report) {
        std::vector<std::string> all;
        for (const json& one : report.at("findings"))
            all.push_back(one.at("severity").get<std::string>() + " " + one.at("key").get<std::string>() +
                          ": " + one.at("found").get<std::string>());
        return all;
    }

    static std::string theme(std::string_view text, std::string_view highlight, std::string_view background,
                             std::string_view more = "") {
        return theme_file("<key>_ConfigName</key><string>T</string><key>_TextColor</key><string>" +
                          std::string(text) + "</string><key>_HighlightColor</key><string>" +
                          std::string(highlight) + "</string>" + std::string(background) + std::string(more));
    }
    static std::string flat(const std::string& hex) {
        return "<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array><string>" + hex +
               "</string></array>";
    }
};

using Findings = std::vector<std::string>;

TEST_F(Lint, ASoundThemeIsFine) {
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"lint", "sound.plist"});
    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_TRUE(run.out.starts_with("sound.plist: fine: contrast of labels 21.00, highlights 4.5"))
        << run.out;
    EXPECT_TRUE(run.out.ends_with("1 theme: 1 fine, 0 weak, 0 faulty; 0 errors, 0 warnings\n")) << run.out;
}

TEST_F(Lint, WhatIsMissingIsFound) {
    EXPECT_EQ(findings(linted(theme_file("<key>_GradientDirection</key><integer>2</integer>"))),
              (Findings{"warning _ConfigName: nothing", "error _TextColor: nothing",
                        "error _HighlightColor: nothing", "error _BackgroundType: nothing"}));
    EXPECT_EQ(
        findings(linted(theme("#FFFFFF", "#777777", "<key>_BackgroundType</key><integer>2</integer>"))).at(0),
        "error _Colors: nothing");
    EXPECT_EQ(
        findings(linted(theme("#FFFFFF", "#777777", "<key>_BackgroundType</key><integer>3</integer>"))).at(0),
        "error _Image: nothing");
}

TEST_F(Lint, WhatIsMistypedIsFoundWithTheValue) {
    const json report =
        linted(theme_file("<key>_ConfigName</key><integer>3</integer>"
                          "<key>_TextColor</key><data>AAAA</data>"
                          "<key>_HighlightColor</key><string>zz</string>"
                          "<key>_BackgroundType</key><array/>"
                          "<key>_Colors</key><string>#000000</string>"
                          "<key>_GradientDirection</key><string>up</string>"
                          "<key>_Image</key><integer>5</integer>"
                          "<key>_ImageAlpha</key><array/>"
                          "<key>_VisibleKeycaps</key><data></data>"));
    EXPECT_EQ(findings(report),
              (Findings{"error _ConfigName: 3", "error _TextColor: 3 bytes of data",
                        "error _HighlightColor: \"zz\"", "error _BackgroundType: the list []",
                        "error _Colors: \"#000000\"", "error _GradientDirection: the text \"up\"",
                        "error _Image: 5", "error _ImageAlpha: the list []",
                        "error _VisibleKeycaps: 0 bytes of data"}));
    EXPECT_EQ(report.at("contrast").at("labels"), nullptr);
}

TEST_F(Lint, NumbersInTextsAreAWarningAndUsed) {
    const json report = linted(theme("#FFFFFF", "#777777",
                                     "<key>_BackgroundType</key><string>1</string><key>_Colors</key><array>"
                                     "<string>#000000</string></array>"));
    EXPECT_EQ(findings(report), Findings{"warning _BackgroundType: the text \"1\""});
}

TEST_F(Lint, AColourThatTheLibraryReadsOtherwiseIsAWarning) {
    const json report = linted(theme("#12345", "#777777", flat("#FFFFFF")));
    EXPECT_EQ(findings(report).at(0), "warning _TextColor: \"#12345\"");
    EXPECT_NE(report.at("findings").at(0).at("fix").get<std::string>().find("#000000"), std::string::npos);
}

TEST_F(Lint, EntriesOfColoursAreCounted) {
    const json report = linted(theme(
        "#FFFFFF", "#777777",
        "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>1</integer>"
        "<key>_Colors</key><array><string>#000000</string><integer>5</integer><string>zz</string></array>"));
    EXPECT_EQ(findings(report).at(0), "error _Colors: 5");
    EXPECT_NE(report.at("findings").at(0).at("expected").get<std::string>().find("colour 2"),
              std::string::npos);
    EXPECT_EQ(findings(report).at(1), "error _Colors: \"zz\"");
}

TEST_F(Lint, UnknownKeysAreFound) {
    EXPECT_EQ(findings(linted(theme("#FFFFFF", "#777777", flat("#000000"), "<key>_Textcolor</key><true/>"))),
              Findings{"warning _Textcolor: yes"});
}

TEST_F(Lint, ValuesBeyondTheirRangeAreFound) {
    EXPECT_EQ(findings(linted(theme("#FFFFFF", "#777777",
                                    "<key>_BackgroundType</key><integer>2</integer><key>_Colors</key><array>"
                                    "<string>#000000</string><string>#000000</string></array>",
                                    "<key>_GradientDirection</key><integer>12</integer>"
                                    "<key>_ImageAlpha</key><real>1.5</real>"))),
              (Findings{"warning _GradientDirection: 12", "warning _ImageAlpha: 1.5"}));
}

TEST_F(Lint, AnImageThatDoesNotDecodeIsFound) {
    EXPECT_EQ(findings(linted(theme("#FFFFFF", "#777777", "<key>_BackgroundType</key><integer>3</integer>",
                                    "<key>_Image</key><data>bm90IGEgcGljdHVyZQ==</data>")))
                  .at(0),
              "error _Image: 13 bytes of data");
}

TEST_F(Lint, AnImagesWeightIsItsDecodedBytesAndTooMuchIsFound) {
    const std::string png = png_of(sample(3000, 2000, [](int, int) { return Rgb{0, 0, 0}; }));
    const json report = linted(theme("#FFFFFF", "#777777", "<key>_BackgroundType</key><integer>3</integer>",
                                     "<key>_Image</key><data>" + in_base64(png) + "</data>"));
    EXPECT_EQ(report.at("image").at("decodedBytes"), 3000 * 2000 * 4);
    EXPECT_EQ(findings(report), Findings{"warning _Image: 3000 x 2000 pixels, 22 MB decoded"});
}

TEST_F(Lint, ContrastIsThatOfWcag) {
    // The contrast of #767676 on white is 4.54, that of #777777 is 4.47.
    EXPECT_NEAR(linted(theme("#767676", "#000000", flat("#FFFFFF")))
                    .at("contrast")
                    .at("labels")
                    .at("ratio")
                    .get<double>(),
                4.54, 0.005);
    EXPECT_NEAR(linted(theme("#777777", "#000000", flat("#FFFFFF")))
                    .at("contrast")
                    .at("labels")
                    .at("ratio")
                    .get<double>(),
                4.48, 0.005);
    EXPECT_EQ(linted(theme("#FFFFFF", "#000000", flat("#000000"))).at("contrast").at("labels").at("ratio"),
              21.0);
}

TEST_F(Lint, LabelsBelowThreeAreAnErrorAndBelowFourAndAHalfAWarning) {
    auto of_labels = [&](const char* text) {
        return findings(linted(theme(text, "#000000", flat("#FFFFFF"))));
    };
    EXPECT_EQ(of_labels("#767676"), Findings{});
    EXPECT_TRUE(of_labels("#777777").at(0).starts_with("warning _TextColor: #777777, a contrast of 4.47"));
    EXPECT_TRUE(of_labels("#949494").at(0).starts_with("warning _TextColor: #949494, a contrast of 3.03"));
    EXPECT_TRUE(of_labels("#959595").at(0).starts_with("error _TextColor: #959595, a contrast of 2.99"));
}

TEST_F(Lint, TheNearestColourThatPassesDoesPassAndItsNeighbourDoesNot) {
    const json report = linted(theme("#959595", "#000000", flat("#FFFFFF")));
    EXPECT_EQ(report.at("findings").at(0).at("fix"),
              "the nearest pair that passes on every key is #767676 for labels and #000000 for highlights");
}

TEST_F(Lint, TheWorstKeyOfAGradientIsNamed) {
    const json report = linted(theme(
        "#000000", "#FFFFFF",
        "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>4</integer>"
        "<key>_Colors</key><array><string>#FFFFFF</string><string>#000000</string></array>"));
    EXPECT_EQ(report.at("contrast").at("labels").at("worstKey"), "p");
    EXPECT_EQ(report.at("contrast").at("highlights").at("worstKey"), "q");
}

TEST_F(Lint, NoColourPassesOverBlackAndWhite) {
    const json report = linted(theme(
        "#808080", "#808080",
        "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>4</integer>"
        "<key>_Colors</key><array><string>#FFFFFF</string><string>#000000</string></array>"));
    EXPECT_NE(report.at("findings")
                  .at(0)
                  .at("fix")
                  .get<std::string>()
                  .find("no pair passes on this background; the nearest is with _Colors #"),
              std::string::npos);
}

TEST_F(Lint, HighlightsAreAreasAndNeedThree) {
    auto of_highlights = [&](const char* highlight) {
        return findings(linted(theme("#FFFFFF", highlight, flat("#000000"))));
    };
    EXPECT_EQ(of_highlights("#5A5A5A"), Findings{});
    EXPECT_TRUE(
        of_highlights("#595959").at(0).starts_with("warning _HighlightColor: #595959, a contrast of 2.99"));
    EXPECT_TRUE(
        of_highlights("#404040").at(0).starts_with("error _HighlightColor: #404040, a contrast of 2.02") ||
        of_highlights("#404040").at(0).starts_with("warning _HighlightColor: #404040, a contrast of 2.02"));
    EXPECT_TRUE(
        of_highlights("#3E3E3E").at(0).starts_with("error _HighlightColor: #3E3E3E, a contrast of 1.9"));
}

TEST_F(Lint, EveryEvenBackgroundHasAPair) {
    for (int grey = 0; grey < 256; grey += 5) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "#%02X%02X%02X", grey, grey, grey);
        const json report = linted(theme(hex, hex, flat(hex)));
        ASSERT_TRUE(report.at("advice").is_object()) << hex;
        EXPECT_TRUE(report.at("advice").at("colors").empty()) << hex << report.at("advice");
    }
}

TEST_F(Lint, LabelsThatDrownInTheHighlightAreAWarning) {
    const auto found = findings(linted(theme("#FFFFFF", "#F0F0F0", flat("#000000"))));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_TRUE(found[0].starts_with("warning _TextColor: #FFFFFF, a contrast of 1.1")) << found[0];
}

/// What lint says is behind the worst key, against the keyboard itself, drawn with labels that leave no
/// trace.
class LintAgainstTheKeyboard : public Lint, public testing::WithParamInterface<const char*> {};

TEST_P(LintAgainstTheKeyboard, SeesWhatIsBehindTheLabels) {
    const std::string more = GetParam();
    const json worst = linted(theme("#204060", "#FFFFFF", more)).at("contrast").at("labels");
    write("bare.plist", theme("#00000000", "#FFFFFF", more));
    ASSERT_EQ(run({"keyboard", "bare.plist", "-o", "k.png", "--background", "light", "--scale", "1"}).status,
              0);
    const Png png(path("k.png"));
    // On a screen of 375 x 667 points. A word is wide: its end is where a gradient goes furthest.
    const std::string key = worst.at("worstKey");
    const std::map<std::string, std::pair<int, int>> middles{
        {"suggestion 1", {62, 430}}, {"suggestion 3", {342, 437}}, {"q", {18, 480}},      {"p", {356, 480}},
        {"Shift-Key", {24, 588}},    {"123", {20, 642}},           {"return", {328, 642}}};
    ASSERT_TRUE(middles.contains(key)) << key;
    const auto [x, y] = middles.at(key);
    const unsigned seen = png.at(x, y);
    const unsigned said =
        static_cast<unsigned>(std::stoul(worst.at("behind").get<std::string>().substr(1), nullptr, 16));
    for (int shift : {0, 8, 16})
        EXPECT_NEAR(seen >> shift & 255, said >> shift & 255, 10)
            << std::hex << seen << " " << said << " " << key;
}

constexpr const char* backgrounds[] = {
    "<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array><string>#80A060</string></array>",
    "<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array><string>#80A06080</string></"
    "array>",
    "<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array><string>#80A060</string></array>"
    "<key>_VisibleKeycaps</key><true/>",
    "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>4</"
    "integer><key>_Colors</key>"
    "<array><string>#FFC0C0</string><string>#503050</string></array>",
    "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>8</"
    "integer><key>_Colors</key>"
    "<array><string>#FFC0C0</string><string>#503050</string></array><key>_VisibleKeycaps</key><true/>",
    "<key>_BackgroundType</key><integer>0</integer>",
    // From top to bottom: the worst key is in the last row.
    "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>2</"
    "integer><key>_Colors</key>"
    "<array><string>#FFC0C0</string><string>#503050</string></array>",
};
INSTANTIATE_TEST_SUITE_P(Backgrounds, LintAgainstTheKeyboard, testing::ValuesIn(backgrounds));

TEST_F(Lint, SuggestionsHaveNoCapsToBeReadOn) {
    const std::string caps = "<key>_VisibleKeycaps</key><true/>";
    const auto found = findings(linted(theme("#101010", "#C0C0C0", flat("#505050"), caps)));
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NE(found[0].find("#505050 behind suggestion 1"), std::string::npos) << found[0];
}

TEST_F(Lint, FilesThatCannotBeUsedDoNotKeepTheOthersFromBeingLinted) {
    write("a.plist", sound_theme());
    write("b.plist", "nonsense {");
    write("c.plist", sound_theme());
    const Outcome run = this->run({"lint", "a.plist", "b.plist", "missing.plist", "c.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 2u);
    EXPECT_NE(run.out.find("a.plist: "), run.out.npos);
    EXPECT_NE(run.out.find("c.plist: "), run.out.npos);
    EXPECT_NE(run.out.find("2 themes: "), run.out.npos);
    EXPECT_TRUE(run.out.ends_with("2 unusable files\n")) << run.out;
}

TEST_F(Lint, FindingsAreStatusOne) {
    write("odd.plist", theme("#FFFFFF", "#777777", flat("#000000"), "<key>_More</key><true/>"));
    EXPECT_EQ(run({"lint", "odd.plist"}).status, 1);
}

}  // namespace
}  // namespace test
