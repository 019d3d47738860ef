// Themes that the client makes, saves and reads back.
#include "client.h"

namespace test {
namespace {

class ClientThemes : public Client {
  protected:
    void SetUp() override {
        Client::SetUp();
        editor = made("PaneThemeEditor");
    }
    id theme(const char* name) const {
        return ask<"themeNamed:image:">(editor, text(name), filled_image(color(0, 0, 1), 12, 4));
    }
    NSError* error_of_saving(id theme) const { return ask<"errorOfSaving:", NSError*>(editor, theme); }

    id editor = nullptr;
};

TEST_F(ClientThemes, EveryKeyIsInTheFile) {
    ASSERT_EQ(error_of_saving(theme("Made by a pane")), nullptr);
    ASSERT_TRUE(phone.exists(std::string(theme_folder) + "Made by a pane.plist"));
    const auto saved = Configuration::from_file("Made by a pane.plist");
    EXPECT_EQ((ask<"count", NSUInteger>(saved.plist())), 9u);
    EXPECT_EQ(saved.name(), "Made by a pane");
    EXPECT_EQ(utf8(saved.stored("_TextColor")), "#102030");
    EXPECT_EQ(utf8(saved.stored("_HighlightColor")), "#40506070");
    EXPECT_EQ(saved.background_type(), 2u);
    std::vector<std::string> colours;
    for (id each : elements(static_cast<NSArray*>(saved.stored("_Colors")))) colours.push_back(utf8(each));
    EXPECT_EQ(colours, (std::vector<std::string>{"#FF0000", "#00FF0080", "#0000FF"}));
    EXPECT_EQ(saved.direction(), 6u);
    EXPECT_EQ(saved.image()->size(), (CGSize{12, 4}));
    EXPECT_EQ(saved.image_alpha(), 0.5);
    EXPECT_TRUE(saved.caps_visible());
}

TEST_F(ClientThemes, AreReadBackAsTheyWereMade) {
    ASSERT_EQ(error_of_saving(theme("Again")), nullptr);
    id settings = ask<"settingsOf:">(editor, ask<"themeInFile:">(editor, text("Again.plist")));
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(text_of(settings, "name"), "Again");
    EXPECT_EQ(text_of(settings, "text"), "#102030");
    EXPECT_EQ(text_of(settings, "highlight"), "#40506070");
    EXPECT_EQ(text_of(settings, "type"), "2");
    EXPECT_EQ(text_of(settings, "colours"), "#FF0000 #00FF0080 #0000FF");
    EXPECT_EQ(text_of(settings, "direction"), "6");
    EXPECT_EQ(text_of(settings, "width"), "12");
    EXPECT_EQ(text_of(settings, "alpha"), "0.5");
    EXPECT_EQ(text_of(settings, "caps"), "1");
}

TEST_F(ClientThemes, AnErrorOfSavingReachesTheClient) {
    ASSERT_EQ(error_of_saving(theme("Twice")), nullptr);
    EXPECT_EQ(texts_of(error_of_saving(theme("Twice"))),
              config_error("File name already exists", "File name already exists",
                           "Set a different configuration name"));
}

TEST_F(ClientThemes, AnErrorOfLoadingReachesTheClient) {
    EXPECT_EQ(texts_of(ask<"errorOfLoading:", NSError*>(editor, text("Nowhere.plist"))),
              config_error("File not found", "File was not found so could not parse",
                           "Enter in the correct filename and make sure it is not a folder"));
    EXPECT_EQ(ask<"themeInFile:">(editor, text("Nowhere.plist")), nullptr);
}

TEST_F(ClientThemes, NewImagesAreTheCallers) {
    UIImage* image = filled_image(color(0, 0, 1), 12, 4);
    EXPECT_TRUE((ask<"newImagesAreTheCallers:", bool>(editor, static_cast<id>(image))));
}

TEST_F(ClientThemes, GoWithTheirOwners) { EXPECT_TRUE((ask<"themesGoWithTheirOwners", bool>(editor))); }

}  // namespace
}  // namespace test
