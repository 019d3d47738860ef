// The colour picker's copy and paste buttons, and their icons.
#include "settings/color_picker.h"

namespace test {
namespace {

class Clipboard : public ColorPicker {
  protected:
    void SetUp() override {
        ColorPicker::SetUp();
        show();
    }
    void copy() const { tap(part<"duplicateButton">()); }
    void paste() const { tap(part<"pasteButton">()); }
    static UIPasteboard* board() { return UIPasteboard::generalPasteboard(); }
};

TEST_F(Clipboard, CopyPutsTheTextOnThePasteboard) {
    update(color(1, 0, 0));
    copy();
    EXPECT_EQ(utf8(board()->string()), "#FF0000");
    EXPECT_FALSE(shook());
    for (const char* hex : {"123456", "#12345", "12345678", "#1234567", "#12345678", "ab#cd#"}) {
        set_text(hex);
        copy();
        EXPECT_EQ(utf8(board()->string()), hex) << "as it is";
        EXPECT_FALSE(shook());
    }
}

TEST_F(Clipboard, AnIncompleteTextShakesAndLeavesThePasteboard) {
    board()->setString(text("before"));
    for (const char* hex : {"#12", "", "#", "#1234", "#123456789"}) {
        set_text(hex);
        copy();
        EXPECT_EQ(utf8(board()->string()), "before") << hex;
        EXPECT_TRUE(shook()) << hex;
    }
}

TEST_F(Clipboard, PasteTakesAHexTextInItsCanonicalForm) {
    const struct {
        const char *pasted, *written;
    } texts[] = {{"00ff00", "#00FF00"},      {"#ff0000", "#FF0000"},     {"0000ff80", "#0000FF80"},
                 {"#0000FF80", "#0000FF80"}, {"#12345678", "#12345678"}, {"FF0000FF", "#FF0000"}};
    for (const auto& each : texts) {
        board()->setString(text(each.pasted));
        paste();
        EXPECT_EQ(hex_text(), each.written) << each.pasted;
        EXPECT_FALSE(shook());
    }
    EXPECT_EQ(current(), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(utf8(board()->string()), "FF0000FF") << "the pasteboard stays as it is";
}

TEST_F(Clipboard, AnythingElseShakes) {
    for (const char* pasted :
         {"", "red", "#12", "0x00ff00", " 00ff00", "00ff00\n", "#1234567890", "ＦＦ００００"}) {
        board()->setString(text(pasted));
        paste();
        EXPECT_EQ(hex_text(), "#000000") << pasted;
        EXPECT_TRUE(shook()) << pasted;
    }
}

TEST_F(Clipboard, AnEmptyPasteboardShakes) {
    ASSERT_EQ(board()->string(), nullptr);
    paste();
    EXPECT_EQ(hex_text(), "#000000");
    EXPECT_TRUE(shook());
}

TEST_F(Clipboard, AnImageOnThePasteboardShakes) {
    UIImage* image = filled_image(color(1, 0, 0), 2, 2);
    board()->setImage(image);
    paste();
    EXPECT_EQ(hex_text(), "#000000");
    EXPECT_TRUE(shook());
    EXPECT_EQ(board()->image(), image);
}

TEST_F(Clipboard, AMegabyteOfTextShakes) {
    for (const char letter : {'a', '#', ' ', 'x'}) {
        board()->setString(text(std::string(1 << 20, letter)));
        paste();
        EXPECT_EQ(hex_text(), "#000000") << letter;
        EXPECT_TRUE(shook()) << letter;
    }
}

TEST_F(Clipboard, ACopyReplacesAnImageAndARefusedOneLeavesIt) {
    UIImage* image = filled_image(color(1, 0, 0), 2, 2);
    board()->setImage(image);
    set_text("#12");
    copy();
    EXPECT_EQ(board()->image(), image);
    set_text("#123456");
    copy();
    EXPECT_EQ(board()->image(), nullptr);
    EXPECT_EQ(utf8(board()->string()), "#123456");
}

TEST_F(Clipboard, ATypedTextIsCopiedBeforeItIsReturned) {
    tap(field());
    ASSERT_EQ(sim_type_text("80"), SIM_OK) << sim_last_error();
    copy();
    EXPECT_EQ(utf8(board()->string()), "#00000080");
    EXPECT_EQ(current(), (Rgba{0, 0, 0, 1})) << "which the sliders do not have yet";
}

TEST_F(Clipboard, ExchangesByMessage) {
    observe<"shakeWrong">("HCColorPickerController");
    observe<"updateToColor:", void, id>("HCColorPickerController");
    paste();
    board()->setString(text("00ff00"));
    paste();
    set_text("#");
    copy();
    EXPECT_EQ(heard, (Selectors{"shakeWrong", "updateToColor:", "shakeWrong"}));
}

// ---- The icons

class Icons : public ColorPicker {
  protected:
    template <objc::Name Icon>
    UIImage* icon_of() const {
        return picker->send<Icon, UIImage*>();
    }
    /// Pixels of an image that are not transparent, of those at its points.
    static int opaque_points(UIImage* image) {
        UIGraphicsBeginImageContextWithOptions({20, 20}, false, 1.0);
        image->drawInRect({{0, 0}, {20, 20}});
        CGContextRef context = UIGraphicsGetCurrentContext();
        auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(context));
        int count = 0;
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 20; ++x) count += bytes[y * 80 + x * 4 + 3] > 127;
        UIGraphicsEndImageContext();
        return count;
    }
};

TEST_F(Icons, AreTemplatesOfThePreferenceBundle) {
    for (UIImage* image : {icon_of<"copyImage">(), icon_of<"pasteImage">()}) {
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->renderingMode(), 2);
    }
    EXPECT_EQ(opaque_points(icon_of<"copyImage">()), 16 * 16);
    EXPECT_EQ(opaque_points(icon_of<"pasteImage">()), 8 * 16);
}

TEST_F(Icons, AreMadeOnceForTheProcess) {
    UIImage *copy = icon_of<"copyImage">(), *paste = icon_of<"pasteImage">();
    std::filesystem::remove(phone.host(copy_icon_file));
    std::filesystem::remove(phone.host(paste_icon_file));
    picker = made_picker();
    EXPECT_EQ(icon_of<"copyImage">(), copy);
    EXPECT_EQ(icon_of<"pasteImage">(), paste);
}

TEST_F(Icons, DoNotBelongToTheCaller) {
    UIImage* copy = icon_of<"copyImage">();
    const auto count = copy->send<"retainCount", NSUInteger>();
    for (int i = 0; i < 3; ++i) icon_of<"copyImage">();
    EXPECT_EQ((copy->send<"retainCount", NSUInteger>()), count);
}

TEST_F(Icons, AreShownAt20PointsInTheFieldsTextColour) {
    picker->view();
    UIImage* images[] = {part<"duplicateButtonImage", UIImage>(), part<"pasteButtonImage", UIImage>()};
    EXPECT_EQ((part<"duplicateButton", UIButton>()->imageForState(0)), images[0]);
    EXPECT_EQ((part<"pasteButton", UIButton>()->imageForState(0)), images[1]);
    for (UIImage* image : images) EXPECT_EQ(image->size(), (CGSize{20, 20}));
    EXPECT_EQ(opaque_points(images[0]), 16 * 16);
    EXPECT_EQ(opaque_points(images[1]), 8 * 16);
}

TEST_F(Icons, WithoutTheirFilesAreTheApplicationsOwn) {
    std::filesystem::remove(phone.host(copy_icon_file));
    phone.write("/Applications/MobileNotes.app/copy.png", icon({{0, 0}, {5, 5}}));
    EXPECT_EQ(opaque_points(icon_of<"copyImage">()), 25);
    EXPECT_EQ(icon_of<"copyImage">()->renderingMode(), 2);
    EXPECT_EQ(opaque_points(icon_of<"pasteImage">()), 8 * 16);
}

TEST_F(Icons, WhoseFilesCannotBeReadAreTheApplicationsOwn) {
    for (const char* file : {copy_icon_file, paste_icon_file}) {
        std::filesystem::remove(phone.host(file));
        phone.make_folder(file);
    }
    phone.write("/Applications/MobileNotes.app/copy.png", icon({{0, 0}, {5, 5}}));
    phone.write("/Applications/MobileNotes.app/paste.png", icon({{0, 0}, {6, 6}}));
    EXPECT_EQ(opaque_points(icon_of<"copyImage">()), 25);
    EXPECT_EQ(opaque_points(icon_of<"pasteImage">()), 36);
    EXPECT_EQ(icon_of<"pasteImage">()->renderingMode(), 2);
}

TEST_F(Icons, WithoutAnyTheButtonsShowNone) {
    std::filesystem::remove(phone.host(copy_icon_file));
    std::filesystem::remove(phone.host(paste_icon_file));
    EXPECT_EQ(icon_of<"copyImage">(), nullptr);
    EXPECT_EQ(icon_of<"pasteImage">(), nullptr);
    show();
    EXPECT_EQ(opaque_points(part<"duplicateButton", UIButton>()->imageForState(0)), 0);
    EXPECT_EQ(opaque_points(part<"pasteButton", UIButton>()->imageForState(0)), 0);
}

TEST_F(Icons, AFileThatIsNoPictureIsNoIcon) {
    phone.write(copy_icon_file, "no picture");
    phone.write("/Applications/MobileNotes.app/copy.png", icon({{0, 0}, {5, 5}}));
    EXPECT_EQ(icon_of<"copyImage">(), nullptr) << "the file can be read";
}

}  // namespace
}  // namespace test
