// What a theme holds, and how its values read back: HuecraftConfig.
#include <cstring>

#include "support/configuration.h"
#include "support/runtime.h"
#include "support/themes.h"

namespace test {
namespace {

class Theme : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }

    Configuration holding(std::string_view xml) const { return Configuration::from_xml(phone, xml); }
    static std::vector<Rgba> colours_of(const Configuration& theme) {
        std::vector<Rgba> colours;
        for (NSUInteger i = 0; i < theme.colours()->count(); ++i)
            colours.push_back(rgba(theme.colours()->objectAtIndex(i)));
        return colours;
    }
    static Configuration with_image(UIImage* image) {
        return {
            objc::send<"configWithTextColor:backgroundType:colors:gradientDirection:image:highlightColor:",
                       id>(class_named("HuecraftConfig"), color(1, 1, 1), NSUInteger{3},
                           array({color(0, 0, 0)}), NSUInteger{1}, image, color(1, 0, 0))};
    }

    Phone phone;
};

TEST_F(Theme, TheDefaultHoldsExactlyTheseValues) {
    auto theme = Configuration::made_default();
    EXPECT_EQ(utf8(theme.stored("_TextColor")), "#FFFFFF");
    EXPECT_EQ(utf8(theme.stored("_HighlightColor")), "#555555");
    EXPECT_EQ(theme.background_type(), 2u);
    EXPECT_EQ(theme.direction(), 7u);
    auto* colours = static_cast<NSArray*>(theme.stored("_Colors"));
    ASSERT_EQ(colours->count(), 2u);
    EXPECT_EQ(utf8(colours->objectAtIndex(0)), "#00000066");
    EXPECT_EQ(utf8(colours->objectAtIndex(1)), "#FF0000");
    EXPECT_EQ(utf8(theme.stored("_Image")), "nil");
    EXPECT_EQ((theme.plist()->send<"count", NSUInteger>()), 6u);
}

TEST_F(Theme, TheDefaultHasNoNameNoImageAlphaAndNoKeycapsFlag) {
    auto theme = Configuration::made_default();
    EXPECT_EQ(theme.stored("_ConfigName"), nullptr);
    EXPECT_EQ(theme.stored("_ImageAlpha"), nullptr);
    EXPECT_EQ(theme.stored("_VisibleKeycaps"), nullptr);
}

void expect_fallbacks(const Configuration& theme) {
    EXPECT_EQ(theme.name(), "(nil)");
    EXPECT_EQ(theme.text_colour(), nullptr);
    EXPECT_EQ(theme.highlight_colour(), nullptr);
    EXPECT_EQ(theme.background_type(), 4u);
    EXPECT_EQ(theme.direction(), 9u);
    EXPECT_EQ(theme.colours(), nullptr);
    EXPECT_EQ(theme.image(), nullptr);
    EXPECT_EQ(theme.image_alpha(), 1.0);
    EXPECT_FALSE(theme.caps_visible());
}

TEST_F(Theme, MissingKeysReadAsTheirFallbacks) { expect_fallbacks(holding("")); }

TEST_F(Theme, MistypedValuesReadAsTheirFallbacks) {
    expect_fallbacks(holding(
        "<key>_ConfigName</key><integer>3</integer><key>_TextColor</key><array/>"
        "<key>_HighlightColor</key><integer>16711680</integer><key>_BackgroundType</key><array/>"
        "<key>_GradientDirection</key><dict/><key>_Colors</key><string>#FF0000</string>"
        "<key>_Image</key><string>iVBORw0KGgo=</string><key>_ImageAlpha</key><array/><key>_VisibleKeycaps</"
        "key><dict/>"));
}

TEST_F(Theme, NumbersMayBeStoredAsStrings) {
    auto theme = holding(
        "<key>_BackgroundType</key><string>3</string><key>_GradientDirection</key><string>5</string>"
        "<key>_ImageAlpha</key><string>0.5</string><key>_VisibleKeycaps</key><string>YES</string>");
    EXPECT_EQ(theme.background_type(), 3u);
    EXPECT_EQ(theme.direction(), 5u);
    EXPECT_EQ(theme.image_alpha(), 0.5);
    EXPECT_TRUE(theme.caps_visible());
}

TEST_F(Theme, ANegativeTypeOrDirectionIsSignExtended) {
    auto theme = holding(
        "<key>_BackgroundType</key><integer>-1</integer><key>_GradientDirection</key><string>-2</string>");
    EXPECT_EQ(theme.background_type(), ~NSUInteger{0});
    EXPECT_EQ(theme.direction(), ~NSUInteger{1});
}

TEST_F(Theme, ANumberReadsByItsLow32BitsAndWithoutItsFraction) {
    auto theme = holding(
        "<key>_BackgroundType</key><integer>4294967297</integer>"
        "<key>_GradientDirection</key><real>2.9</real>");
    EXPECT_EQ(theme.background_type(), 1u);
    EXPECT_EQ(theme.direction(), 2u);
}

TEST_F(Theme, AStringBeyond32BitsReadsAsTheLargestInteger) {
    auto theme = holding("<key>_BackgroundType</key><string>99999999999</string>");
    EXPECT_EQ(theme.background_type(), 2147483647u);
}

TEST_F(Theme, AsManyColoursAsAreStoredAreReadInOrder) {
    // Few are collected on the stack, many are not.
    std::string xml;
    std::vector<Rgba> expected;
    for (int i = 1; i <= 40; ++i) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "#0000%02X", i);
        xml += "<string>" + std::string(hex) + "</string>";
        expected.push_back({0, 0, i / 255.0, 1});
        const auto theme = holding("<key>_Colors</key><array>" + xml + "</array>");
        EXPECT_EQ(colours_of(theme), expected) << i;
        EXPECT_EQ(raised_by([&] { objc::send<"addObject:">(theme.colours(), id(color(1, 0, 0))); }),
                  "NSInvalidArgumentException")
            << "the list cannot be changed";
    }
}

TEST_F(Theme, NonStringColoursAreLeftOutAndInvalidOnesAreTransparent) {
    auto theme = holding(
        "<key>_Colors</key><array><string>#FF0000</string><integer>5</integer><string>zz</string></array>");
    EXPECT_EQ(colours_of(theme), (std::vector<Rgba>{{1, 0, 0, 1}, {0, 0, 0, 0}}));
}

TEST_F(Theme, AnEmptyColourListReadsAsNothing) {
    EXPECT_EQ(holding("<key>_Colors</key><array/>").colours(), nullptr);
    EXPECT_EQ(holding("<key>_Colors</key><array><integer>1</integer></array>").colours(), nullptr);
}

TEST_F(Theme, AnInvalidColourTextIsTransparentBlack) {
    EXPECT_EQ(rgba(holding("<key>_TextColor</key><string>mauve</string>").text_colour()), (Rgba{0, 0, 0, 0}));
}

TEST_F(Theme, EveryGetterAnswersWhatItsSetterStored) {
    auto theme = Configuration::made_default();
    theme.set_name("Night & Day <1>");
    objc::send<"setTextColor:">(theme.object, color(1, 0, 0));
    objc::send<"setHighlightColor:">(theme.object, color(0, 0, 1, 0.0));
    objc::send<"setBackgroundType:">(theme.object, NSUInteger{1});
    objc::send<"setGradientDirection:">(theme.object, NSUInteger{3});
    objc::send<"setColors:">(theme.object, array({color(0, 1, 0), color(1, 1, 1)}));
    objc::send<"setVisibleKeycaps:">(theme.object, true);
    EXPECT_EQ(theme.name(), "Night & Day <1>");
    EXPECT_EQ(utf8(theme.stored("_TextColor")), "#FF0000");
    EXPECT_EQ(utf8(theme.stored("_HighlightColor")), "#0000FF00");
    EXPECT_EQ(rgba(theme.highlight_colour()), (Rgba{0, 0, 1, 0}));
    EXPECT_EQ(theme.background_type(), 1u);
    EXPECT_EQ(theme.direction(), 3u);
    EXPECT_EQ(colours_of(theme), (std::vector<Rgba>{{0, 1, 0, 1}, {1, 1, 1, 1}}));
    EXPECT_TRUE(theme.caps_visible());
}

TEST_F(Theme, SettersOverwriteWhatWasThere) {
    auto theme = Configuration::made_default();
    objc::send<"setVisibleKeycaps:">(theme.object, true);
    objc::send<"setVisibleKeycaps:">(theme.object, false);
    EXPECT_FALSE(theme.caps_visible());
    EXPECT_NE(theme.stored("_VisibleKeycaps"), nullptr);
}

TEST_F(Theme, AStoredColourListIsImmutable) {
    auto theme = Configuration::made_default();
    id stored = theme.stored("_Colors");
    EXPECT_NE(raised_by([&] { objc::send<"addObject:">(stored, text("#000000")); }), "");
}

TEST_F(Theme, TheImageAlphaIsStoredInSinglePrecision) {
    auto theme = Configuration::made_default();
    objc::send<"setImageAlpha:">(theme.object, 0.1);
    EXPECT_EQ(theme.image_alpha(), static_cast<double>(0.1f));
    objc::send<"setImageAlpha:">(theme.object, 0.99);
    EXPECT_EQ(theme.image_alpha(), 0.9900000095367432);
}

TEST_F(Theme, AMissingColourIsTheSettersCallersFault) {
    auto theme = Configuration::made_default();
    EXPECT_EQ(raised_by([&] { objc::send<"setTextColor:">(theme.object, id{}); }),
              "NSInvalidArgumentException");
    EXPECT_EQ(utf8(theme.stored("_TextColor")), "#FFFFFF") << "what was there stays";
}

TEST_F(Theme, AMissingColourListIsStoredAsAnEmptyOne) {
    auto theme = Configuration::made_default();
    objc::send<"setColors:">(theme.object, id{});
    EXPECT_EQ(static_cast<NSArray*>(theme.stored("_Colors"))->count(), 0u);
}

TEST_F(Theme, AnImageIsStoredAsItsPngForm) {
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    auto* png = static_cast<NSData*>(theme.stored("_Image"));
    ASSERT_TRUE(png->isKindOfClass(NSData::class_object()));
    EXPECT_EQ(std::memcmp(png->bytes(), "\x89PNG\r\n\x1a\n", 8), 0);
    EXPECT_EQ(theme.image()->size(), (CGSize{4, 3}));
}

TEST_F(Theme, AMissingImageIsStoredAsTheStringNil) {
    auto theme = with_image(nullptr);
    EXPECT_EQ(utf8(theme.stored("_Image")), "nil");
    EXPECT_EQ(theme.image(), nullptr);
    objc::send<"setImageData:">(theme.object, filled_image(color(0, 0, 1), 2, 2));
    EXPECT_NE(theme.image(), nullptr);
    objc::send<"setImageData:">(theme.object, id{});
    EXPECT_EQ(utf8(theme.stored("_Image")), "nil");
}

TEST_F(Theme, ImageDataThatDoesNotDecodeReadsAsNoImage) {
    EXPECT_EQ(holding("<key>_Image</key><data>AAECAwQFBgc=</data>").image(), nullptr);
    EXPECT_EQ(holding("<key>_Image</key><data></data>").image(), nullptr);
}

TEST_F(Theme, ColoursAndImagesAreMadeAnewOnEveryCall) {
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    EXPECT_NE(theme.text_colour(), theme.text_colour());
    EXPECT_NE(theme.highlight_colour(), theme.highlight_colour());
    EXPECT_NE(theme.colours()->objectAtIndex(0), theme.colours()->objectAtIndex(0));
    EXPECT_NE(theme.image(), theme.image());
}

TEST_F(Theme, TheCallThatBuildsTheImageCacheAnswersNothing) {
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    EXPECT_EQ(theme.image_cache(), nullptr);
    UIImage* cached = theme.image_cache();
    ASSERT_NE(cached, nullptr);
    EXPECT_EQ(theme.image_cache(), cached);
}

TEST_F(Theme, TheCachedImageCoversTheKeyboardAndFortyPointsMore) {
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    theme.image_cache();
    auto keyboard = objc::send<"keyboardSizeForInterfaceOrientation:", CGSize>(class_named("UIKeyboardImpl"),
                                                                               NSInteger{1});
    EXPECT_EQ(theme.image_cache()->size(), (CGSize{keyboard.width, keyboard.height + 40.0}));
    EXPECT_EQ(theme.image_cache()->scale(), 2.0);
}

TEST_F(Theme, BuildingTheImageCacheDropsTheEncodedImage) {
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    theme.image_cache();
    EXPECT_EQ(theme.stored("_Image"), nullptr);
    EXPECT_EQ(theme.image(), nullptr);
}

TEST_F(Theme, TheImageCacheIsNeverRefreshed) {
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    theme.image_cache();
    UIImage* cached = theme.image_cache();
    objc::send<"setImageData:">(theme.object, filled_image(color(0, 0, 1), 2, 2));
    EXPECT_EQ(theme.image_cache(), cached);
    EXPECT_NE(theme.stored("_Image"), nullptr) << "the new image is stored all the same";
}

TEST_F(Theme, WithoutAnImageNothingIsCached) {
    auto theme = with_image(nullptr);
    EXPECT_EQ(theme.image_cache(), nullptr);
    EXPECT_EQ(theme.image_cache(), nullptr);
    EXPECT_EQ(utf8(theme.stored("_Image")), "nil") << "the string stays";
}

TEST_F(Theme, ImageDataThatDoesNotDecodeStillFillsTheCache) {
    auto theme = holding("<key>_Image</key><data>AAECAwQFBgc=</data>");
    EXPECT_EQ(theme.image_cache(), nullptr);
    EXPECT_EQ(theme.stored("_Image"), nullptr);
    UIImage* cached = theme.image_cache();
    ASSERT_NE(cached, nullptr);
    EXPECT_GT(cached->size().width, 0);
    EXPECT_EQ(rgba(objc::send<"averageColorWithAlphaForImage:", id>(class_named("HCCITool"), cached)),
              (Rgba{0, 0, 0, 0}));
}

TEST_F(Theme, NineCharactersAreTakenOutOfFileNames) {
    auto theme = Configuration::made_default();
    auto sanitized = [&](std::string_view name) {
        return utf8(objc::send<"_sanitizeFileNameString:", NSString*>(theme.object, text(name)));
    };
    EXPECT_EQ(sanitized("a/b"), "ab");
    EXPECT_EQ(sanitized("~a"), "~a");
    EXPECT_EQ(sanitized("/\\?%*|\"<>"), "");
    EXPECT_EQ(sanitized("..\\x:y'z"), "..x:y'z");
    EXPECT_EQ(sanitized("Gr\u00fcn \U0001F600?"), "Gr\u00fcn \U0001F600");
    EXPECT_EQ((objc::send<"_sanitizeFileNameString:", id>(theme.object, id{})), nullptr);
}

TEST_F(Theme, ThePropertyListIsTheLiveDictionary) {
    auto theme = Configuration::made_default();
    EXPECT_EQ(theme.plist(), theme.plist());
    theme.plist()->setObject(text("#0000FF"), text("_TextColor"));
    EXPECT_EQ(rgba(theme.text_colour()), (Rgba{0, 0, 1, 1}));
}

TEST_F(Theme, ItsDescriptionIsTheDictionarys) {
    auto theme = Configuration::made_default();
    EXPECT_EQ(utf8(static_cast<NSObject*>(theme.object)->description()), utf8(theme.plist()->description()));
}

TEST_F(Theme, ItsMembersAreInstanceVariablesInOrder) {
    Class type = objc_getClass("HuecraftConfig");
    Ivar configuration = class_getInstanceVariable(type, "configuration");
    Ivar cache = class_getInstanceVariable(type, "backgroundImageCache");
    ASSERT_NE(configuration, nullptr);
    ASSERT_NE(cache, nullptr);
    EXPECT_LT(ivar_getOffset(configuration), ivar_getOffset(cache));
    auto theme = Configuration::made_default();
    EXPECT_EQ(*reinterpret_cast<id*>(reinterpret_cast<char*>(theme.object) + ivar_getOffset(configuration)),
              theme.plist());
}

TEST_F(Theme, ReleasesWhatItHolds) {
    objc::strong<NSMutableDictionary> held;
    {
        objc::AutoreleasePool pool;
        held = Configuration::made_default().plist();
        EXPECT_GT((held->send<"retainCount", NSUInteger>()), 1u);
    }
    EXPECT_EQ((held->send<"retainCount", NSUInteger>()), 1u);
}

TEST_F(Theme, AsksTheColourToolsByMessage) {
    static UIColor* substitute = nullptr;
    static CGSize asked_size{};
    auto theme = with_image(filled_image(color(1, 0, 0), 4, 3));
    substitute = UIColor::whiteColor();
    stand_in("HCCITool", "colorFromHexString:", [](id, SEL, id) -> id { return substitute; }, Side::on_class);
    stand_in(
        "HCCITool", "hexStringFromColor:", [](id, SEL, id) -> id { return text("written"); }, Side::on_class);
    stand_in(
        "HCCITool", "newScale:forImage:",
        [](id, SEL, CGSize size, id) -> id {
            asked_size = size;
            return objc_retain(filled_image(color(0, 0, 1), 5, 5));
        },
        Side::on_class);
    EXPECT_EQ(theme.text_colour(), substitute);
    objc::send<"setTextColor:">(theme.object, color(1, 0, 0));
    EXPECT_EQ(utf8(theme.stored("_TextColor")), "written");
    objc::send<"setColors:">(theme.object, array({color(1, 0, 0)}));
    EXPECT_EQ(utf8(static_cast<NSArray*>(theme.stored("_Colors"))->objectAtIndex(0)), "written");
    theme.image_cache();
    EXPECT_EQ(asked_size, (CGSize{375, 256}));
    EXPECT_EQ(theme.image_cache()->size(), (CGSize{5, 5}));
}

TEST(ThemeWithoutKeyboard, TheImageIsScaledToNothingAndDropped) {
    Phone phone;
    phone.start({.left_out = {"UIKeyboardImpl"}});
    ASSERT_EQ(objc_getClass("UIKeyboardImpl"), nullptr);
    auto theme = Configuration::made_default();
    objc::send<"setImageData:">(theme.object, filled_image(color(1, 0, 0), 4, 3));
    EXPECT_EQ(theme.image_cache(), nullptr);
    EXPECT_EQ(theme.image_cache(), nullptr);
    EXPECT_EQ(theme.stored("_Image"), nullptr);
}

}  // namespace

void prepare_phones() { prepare_phones_that_may_lack({"UIKeyboardImpl"}); }

}  // namespace test
