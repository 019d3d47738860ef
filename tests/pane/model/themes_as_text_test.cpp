// Themes as text: what comes from elsewhere is looked at before it is kept.
#include "pane/model/themes_as_text.h"

#include "kept_files.h"

namespace test {
namespace {

namespace themes = pane::themes;

class ThemesAsText : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }
    static std::string fault(const std::string& given) {
        return utf8(themes::read_text(text(given)).fault.get());
    }
    static std::string remark(const std::string& given) {
        const auto reading = themes::read_text(text(given));
        EXPECT_TRUE(reading.theme);
        return utf8(reading.remark.get());
    }

    Phone phone;
    NSError* error = nullptr;
};

TEST_F(ThemesAsText, AThemeGoesAndComesBackWhole) {
    put_theme(phone, "a.plist", "Mine");
    const auto before = themes::read(themes::folder(), text("a.plist"));
    NSString* copied = themes::text_of(before.theme, &error);
    ASSERT_NE(copied, nullptr);
    const auto after = themes::read_text(copied);
    ASSERT_TRUE(after.theme);
    EXPECT_FALSE(after.remark);
    EXPECT_TRUE(after.theme->asPlist()->isEqual(before.theme->asPlist()));
}

TEST_F(ThemesAsText, WhatHoldsNoThemeIsRefused) {
    for (const char* given :
         {"", "{ this is <not", "Hello, how are you?", "<plist><array/></plist>", "<plist><dict/></plist>",
          "<plist><dict><key>name</key><string>x</string></dict></plist>",
          "<?xml version=\"1.0\"?><plist><dict><key>_TextColor</key><str"})
        EXPECT_EQ(fault(given), "The text holds no theme.") << given;
}

TEST_F(ThemesAsText, ATextThatIsTooLargeIsRefusedUnread) {
    EXPECT_EQ(fault(std::string((64 << 20) + 1, ' ')), "The text is too large for a theme.");
}

TEST_F(ThemesAsText, WhatIsMissingIsNamed) {
    EXPECT_EQ(remark(property_list("<dict><key>_TextColor</key><string>#FFFFFF</string></dict>")),
              "_HighlightColor is missing.");
}

TEST_F(ThemesAsText, AValueOfTheWrongKindIsNamed) {
    EXPECT_EQ(remark(theme("<key>_ImageAlpha</key><string>half</string>")),
              "_ImageAlpha has a value of another kind than expected.");
}

TEST_F(ThemesAsText, WithoutANameItGetsOne) {
    for (const char* name : {"<string></string>", "<integer>3</integer>"}) {
        const auto reading = themes::read_text(text(property_list(
            std::string("<dict><key>_TextColor</key><string>#FFFFFF</string><key>_ConfigName</key>") + name +
            "</dict>")));
        ASSERT_TRUE(reading.theme);
        EXPECT_NE(themes::keep_arrived(reading.theme, &error), nullptr);
    }
    EXPECT_EQ(names_in(phone, theme_folder),
              (std::vector<std::string>{"Imported Theme 2.plist", "Imported Theme.plist"}));
}

TEST_F(ThemesAsText, ATakenNameReplacesNothing) {
    put_theme(phone, "Meadow.plist", "Meadow");
    const std::string before = phone.read(in_themes("Meadow.plist"));
    EXPECT_EQ(utf8(themes::keep_arrived(themes::read_text(text(theme())).theme, &error)), "Meadow 2.plist");
    EXPECT_EQ(phone.read(in_themes("Meadow.plist")), before);
}

}  // namespace
}  // namespace test
