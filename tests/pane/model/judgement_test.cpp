// Whether a theme can be read, by the background that the pane draws.
#include "pane/drawing/judgement.h"

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

TEST_F(Judgement, TheNearestPairCanBeRead) {
    auto theme = theme_of(flat("#204060", "#204060"));
    const auto nearest = readability::nearest_pair(pane::pair_of(theme), pane::behind(theme));
    ASSERT_TRUE(nearest);
    theme->setTextColor(pane::ui_color(nearest->labels));
    theme->setHighlightColor(pane::ui_color(nearest->highlights));
    EXPECT_TRUE(judge(theme).passes());
}

}  // namespace
}  // namespace test
