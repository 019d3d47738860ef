// Whether a theme can be read, by the background that the pane draws.
#include "pane/drawing/judgement.h"

#include <cmath>

#include "kept_files.h"
#include "pane/model/themes.h"

namespace test {
namespace {

class Judgement : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    objc::strong<HuecraftConfig> theme_of(const std::string& xml) {
        return static_cast<HuecraftConfig*>(Configuration::from_xml(phone, xml).object);
    }
    static std::string flat(const std::string& labels, const std::string& background) {
        return "<key>_TextColor</key><string>" + labels +
               "</string><key>_HighlightColor</key><string>#FF0000</string><key>_BackgroundType</key>"
               "<integer>1</integer><key>_Colors</key><array><string>" +
               background + "</string></array>";
    }
    static readability::Legibility judge(HuecraftConfig* theme) {
        return readability::legibility_of(pane::pair_of(theme), pane::behind(theme));
    }

    Phone phone;
};

TEST_F(Judgement, BlackOnWhiteHasTheLargestContrast) {
    EXPECT_NEAR(judge(theme_of(flat("#000000", "#FFFFFF"))).labels.ratio, 21, 0.01);
}

TEST_F(Judgement, LabelsOfTheBackgroundsColourCannotBeRead) {
    const auto legibility = judge(theme_of(flat("#204060", "#204060")));
    EXPECT_NEAR(legibility.labels.ratio, 1, 0.01);
    EXPECT_FALSE(pane::is_readable(legibility));
}

TEST_F(Judgement, AGradientIsJudgedWhereItIsWorst) {
    const auto theme = theme_of(
        "<key>_TextColor</key><string>#FFFFFF</string><key>_HighlightColor</key><string>#FF0000</string>"
        "<key>_BackgroundType</key><integer>2</integer><key>_GradientDirection</key><integer>4</integer>"
        "<key>_Colors</key><array><string>#000000</string><string>#FFFFFF</string></array>");
    EXPECT_LT(judge(theme).labels.ratio, 1.1);
}

TEST_F(Judgement, WithoutAColourLabelsCannotBeRead) { EXPECT_FALSE(pane::is_readable(judge(theme_of("")))); }

TEST_F(Judgement, LabelsCanBeReadFromARatioOfThree) {
    readability::Legibility legibility{};
    for (const auto& [ratio, readable] : {std::pair{2.99, false}, {3.0, true}, {21.0, true}}) {
        legibility.labels.ratio = ratio;
        EXPECT_EQ(pane::is_readable(legibility), readable) << ratio;
    }
}

TEST_F(Judgement, TheNearestPairCanBeRead) {
    auto theme = theme_of(flat("#204060", "#204060"));
    const auto nearest = readability::nearest_pair(pane::pair_of(theme), pane::behind(theme));
    ASSERT_TRUE(nearest);
    theme->setTextColor(pane::ui_color(nearest->labels));
    theme->setHighlightColor(pane::ui_color(nearest->highlights));
    EXPECT_TRUE(judge(theme).passes());
}

TEST_F(Judgement, EachStepOfAComponentIsTheSameLightEachTime) {
    auto computed = [](double component) {
        return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
    };
    for (int time = 0; time < 2; ++time)
        for (int step = 0; step <= 255; ++step)
            for (const double nearby : {0.0, 1e-9, -1e-9}) {
                const double component = step / 255.0 + nearby;
                EXPECT_EQ(readability::linear(component), computed(component)) << step;
            }
    EXPECT_EQ(readability::linear(1.5), computed(1.5));
    EXPECT_EQ(readability::linear(-0.5), computed(-0.5));
    EXPECT_TRUE(std::isnan(readability::linear(NAN)));
}

TEST_F(Judgement, AColourIsRoundedAsItsTextIs) {
    for (const readability::Colour& colour :
         {readability::Colour{0.1, 0.5, 0.999, 1}, {0, 1, 0.3, 0.25}, {-1, 2, 0.498, 0.999}})
        EXPECT_EQ(readability::rounded(colour), readability::colour_of(readability::hex_of(colour)));
}

TEST_F(Judgement, TheWorstKeyIsTheFirstOfThoseThatAreAlike) {
    const readability::Colour black{0, 0, 0, 1}, grey{0.5, 0.5, 0.5, 1}, white{1, 1, 1, 1};
    const auto worst = readability::smallest_contrast(
        white, {{"a", {black, black}}, {"b", {black, grey}}, {"c", {grey, grey, black}}});
    EXPECT_EQ(worst.worst_key, "b");
    EXPECT_EQ(worst.behind, grey);
}

}  // namespace
}  // namespace test
